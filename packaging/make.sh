#!/usr/bin/env bash
# Makes the files of an installation that depend on the built program or on other files of the repository.
# Usage: packaging/make.sh PROGRAM SHARE TREE ID ADDRESS PART ...
# PROGRAM is the built vor_kel_batch, SHARE the folder of the build that may hold pages for man. TREE becomes what goes
# below the prefix, of these parts: examples, doc, desktop.
set -euo pipefail
program=$1 built=$2 share=$3/share id=$4 address=$5
here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$3"

filled() { # template, name in it, what stands for it
  local text
  text=$(< "$1")
  echo "${text//@$2@/"$3"}"
}

examples() { # their pages, which lead to the manual as it is installed
  local page
  while IFS= read -r page; do
    mkdir -p "$share/vor_kel/${page%/*}"
    sed -E 's#((\.\./)+)docs/manuale/([a-z0-9-]+)\.md#\1manuale/\3.html#g' "$here/../$page" > "$share/vor_kel/$page"
  done < <(cd "$here/.." && find examples -name '*.md')
}

doc() {
  local pages=$share/doc/vor-kel completions=$share/bash-completion/completions docs=$here/../docs
  mkdir -p "$pages" "$completions"
  "$program" completion > "$completions/vor_kel_batch"
  cp "$here/copyright" "$docs"/{formats,json,many-files,departures,validation}.md "$docs/json.schema.json" "$pages"
  "$here/changes.sh" debian "$address" | gzip -9n > "$pages/changelog.gz"
  ln -s ../../vor_kel/examples "$pages/examples"
  [ ! -d "$built/vor_kel/manuale" ] || ln -s ../../vor_kel/manuale "$pages/manuale"
  if [ -d "$built/man" ]; then
    cp -r "$built/man" "$share"
    find "$share/man" -type f -exec gzip -9n {} +
  fi
}

icons() {
  local all=$share/icons/hicolor icon size
  mkdir -p "$all"/scalable/{apps,mimetypes}
  cp "$here"/icons/{vor_kel,tabulo}.svg "$all/scalable/apps"
  for icon in vor_kel:figure function:function; do
    filled "$here/icons/page.svg.in" VOR_DRAWING \
      "$(sed -n '/<!-- drawing -->/,/<!-- drawing -->/{//!p}' "$here/icons/${icon%:*}.svg")" \
      > "$all/scalable/mimetypes/text-x-vor-kel-${icon#*:}.svg"
  done
  # Without the tool there are the vectors, which most desktops take.
  command -v rsvg-convert > /dev/null || return 0
  for size in 16 22 24 32 48 64 128 256 512; do
    mkdir -p "$all/${size}x$size"/{apps,mimetypes}
    for icon in "$all"/scalable/*/*.svg; do
      icon=${icon#"$all/scalable/"}
      rsvg-convert -w $size -h $size "$all/scalable/$icon" -o "$all/${size}x$size/${icon%.svg}.png"
    done
  done
}

desktop() {
  icons
  mkdir -p "$share/metainfo"
  filled <(filled <(filled "$here/desktop/vor_kel.metainfo.xml.in" VOR_ID "$id") VOR_ADDRESS "$address") VOR_RELEASES \
    "$("$here/changes.sh" appstream)" > "$share/metainfo/$id.metainfo.xml"
}

for part in "${@:6}"; do "$part"; done
