#!/usr/bin/env bash
# Makes the Debian package, has the tools of its formats look at it, and tries it in a bare system (bare_system.sh).
# Usage: checks/package.sh
set -euo pipefail
cd "$(dirname "$0")/.."
packaging/install.sh full
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

(umask 077 && packaging/deb.sh "$work") # whatever the user keeps from others
deb=$(ls "$work"/vor-kel_*.deb)
lintian --fail-on error,warning "$deb"

dpkg-deb -x "$deb" "$work/tree"
share=$work/tree/usr/share
desktop-file-validate "$share"/applications/*.desktop
appstreamcli validate --no-net "$share"/metainfo/*.xml
find "$share" \( -name '*.xml' -o -name '*.svg' -o -name '*.lang' \) -exec xmllint --nonet --noout {} +
xmllint --nonet --noout --relaxng /usr/share/gtksourceview-4/language-specs/language2.rng \
  "$share"/gtksourceview-4/language-specs/*.lang

# The pages lead to what is installed beside them.
while IFS=: read -r page link; do
  [ -e "${page%/*}/$link" ] || { echo "${page#"$share/"}: there is no $link" >&2; exit 1; }
done < <(find "$share" -name '*.md' -exec grep -oHE '\]\([^):#]+[)#]' {} + | sed 's/](//; s/.$//')

# Kinds of files by their names, and of graphic files by what is in them; editors know the same.
kind_is() { # file, kind
  local found
  found=$(XDG_DATA_HOME=$work/none XDG_DATA_DIRS=$share:/usr/share gio info -a standard::content-type "$1" | tail -n 1)
  [ "${found##* }" = "$2" ] || { echo "$1 is taken for:$found" >&2; exit 1; }
}
update-mime-database "$share/mime" 2> /dev/null # which would tell that the folder is none of this system's
while IFS= read -r file; do
  case $file in
    *.fcn) kind_is "$file" text/x-vor-kel-function ;;
    *.gra)
      kind_is "$file" text/x-vor-kel-figure
      cp "$file" "$work/figure"
      kind_is "$work/figure" text/x-vor-kel-figure
      ;;
  esac
  QT_QPA_PLATFORM=offscreen XDG_DATA_DIRS=$share kate-syntax-highlighter -o "$work/coloured.html" "$file" 2> "$work/said"
  [ ! -s "$work/said" ] || { cat "$work/said"; exit 1; }
  grep -q '<span' "$work/coloured.html" || { echo "$file is not coloured" >&2; exit 1; }
done < <(find "$share/vor_kel/examples" -name '*.fcn' -o -name '*.gra')
checks/bare_system.sh "$deb"
