#!/usr/bin/env bash
# Makes pages for a browser of the manual and of the pages that it leads to, in a folder that begins with indice.html,
# and one PDF of the manual and the laboratory examples. The same sources give the same bytes.
# Usage: docs/manuale/make.sh FOLDER [FILE.pdf]
set -euo pipefail
[ $# -ge 1 ] || { sed -n 's/^# Usage/Usage/p' "$0"; exit 2; }
mkdir -p "$1"
out=$(cd "$1" && pwd)
pdf=${2:+$(realpath "$2")}
cd "$(dirname "$0")/.."
version=$(sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' ../CMakeLists.txt)
made=$(mktemp -d)
trap 'rm -rf "$made"' EXIT
export LC_ALL=C.UTF-8

chapters=(manuale/[0-9]*.md)
laboratory=(../examples/laboratorio/README.md ../examples/laboratorio/*/README.md)
english=(formats.md json.md many-files.md departures.md validation.md gallery/README.md)

name() { basename "$1" .md; } # of a page
title() { sed -n '1s/^# //p' "$1"; }
html() { # what pandoc makes of a page with this template, without breaking lines or weighing the columns of tables
  source_of "$1" | pandoc --from gfm --to html5 --wrap none --columns 10000 --no-highlight --toc --toc-depth 2 \
    --template "manuale/style/$2" -M "pagetitle=$(title "$1")" "${@:3}"
}
# Where a page stands in the folder: those of the manual in itself, all others as they do below docs/ and examples/.
target() {
  case $1 in
    manuale/*) echo "$(name "$1").html" ;;
    *) sed 's#^../examples/##; s#\.md$#.html#' <<< "$1" ;;
  esac
}

# The gallery without its second part, which is for those who work on the drawing library; on paper the first page
# without its list of chapters, as the pages are numbered in another.
on_paper=
source_of() { sed "/^## What the drawing library draws/,\$d; ${on_paper:+/^| Capitolo /,/^\$/d}" "$1"; }

# Links about the checkout become links about the folder, which stands beside the examples where both are installed.
links() { # page, the way up from it to the folder
  local of_manual=
  [[ $1 != manuale/* ]] || of_manual='s#(href|src)="\.\./#\1="#g'
  sed -E "$of_manual
    s#(href|src)=\"(\.\./)*(docs/|manuale/)+#\1=\"$2#g
    s#href=\"(\.\./)*examples/#href=\"$2../examples/#g
    s#href=\"(\.\./)*examples/laboratorio/#href=\"$2laboratorio/#g
    s#(href=\"[^\":]*)\.md([\"\#])#\1.html\2#g"
}

chapter_list() { # the page that is being read, the way up from it to the folder
  local page
  for page in "${pages[@]}"; do
    echo "<li><a href=\"$2$(target "$page")\"$([ "$page" != "$1" ] || echo ' aria-current="page"')>$(title "$page")</a></li>"
  done
}

page() { # page, the one before it, the one behind it
  local to up lang=en before=() after=()
  to=$(target "$1")
  up=$(sed 's#[^/]*$##; s#[^/][^/]*#..#g' <<< "$to")
  [[ $1 != manuale/* && $1 != ../examples/* ]] || lang=it
  [ -z "$2" ] || before=(-V "before=$up$(target "$2")" -V "before-title=$(title "$2")")
  [ -z "$3" ] || after=(-V "after=$up$(target "$3")" -V "after-title=$(title "$3")")
  mkdir -p "$(dirname "$out/$to")"
  html "$1" page.html -V "lang=$lang" -V "up=$up" -V "version=$version" -V "chapters=$(chapter_list "$1" "$up")" \
    "${before[@]}" "${after[@]}" | links "$1" "$up" > "$out/$to"
}
in_turn() { # pages
  local all=("" "$@" "") i
  for ((i = 1; i <= $#; i++)); do page "${all[i]}" "${all[i - 1]}" "${all[i + 1]}"; done
}

pages=(manuale/indice.md "${chapters[@]}")
in_turn "${pages[@]}"
in_turn "${laboratory[@]}"
for english_page in "${english[@]}"; do
  page "$english_page" "" ""
done
for figure in ../examples/laboratorio/*/figura.png; do
  cp "$figure" "$out/${figure#../examples/}"
done
mkdir -p "$out/screenshots" "$out/gallery"
cp manuale/style/manuale.css json.schema.json "$out"
cp screenshots/*.png "$out/screenshots"
cp -r gallery/figures "$out/gallery"
[ -n "$pdf" ] || exit 0

# In the PDF all is one page: what its parts call their headings gets the names of the parts in front. Links that lead
# out of it stay as words.
part() { # page
  case $1 in
    ../examples/*) dirname "${1#../examples/}" | tr / - ;;
    *) name "$1" ;;
  esac
}
within() { # page
  local place
  place=$(dirname "${1#../examples/}")
  sed -E "s|src=\"\.\./|src=\"|g; s|src=\"figura|src=\"$place/figura|g" |
    sed -E 's!href="[^":#]*\b([0-9]{2}-[a-z-]+)/README\.md!href="#laboratorio-\1!g
      s!href="([^":#]*laboratorio|\.\.)/README\.md!href="#laboratorio!g
      s!href="[^":#]*\b([0-9]{2}-[a-z-]+|indice)\.md!href="#\1!g
      s!(href="#[^"#]+)#!\1--!g
      s!<a href="[^#][^"]*"[^>]*>([^<]*(<code>[^<]*</code>)?[^<]*)</a>!\1!g
      s!</a> !</a>\&nbsp;!g' # weasyprint may lose a blank behind the number of a page
}
on_paper=yes
{
  html manuale/indice.md title.html -V lang=it -V "version=$version"
  echo '<nav class="contents"><h1>Indice</h1>'
  for page in "${pages[@]}" "${laboratory[@]}"; do
    depth=2
    [[ $page == manuale/* ]] || depth=1
    html "$page" contents.html --id-prefix "$(part "$page")--" --toc-depth "$depth"
  done
  echo '</nav>'
  for page in "${pages[@]}" "${laboratory[@]}"; do
    echo "<section id=\"$(part "$page")\">"
    html "$page" body.html --id-prefix "$(part "$page")--" | within "$page"
    echo '</section>'
  done
  echo '</body></html>'
} > "$made/manuale.html"
cp -r "$out/." "$made"
cp manuale/style/print.css "$made"
# The PDF holds the date of its fonts and a hash of the address of each picture: both are the same on every machine.
cd "$made"
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-0} weasyprint --quiet --base-url file:///proc/self/cwd/ manuale.html "$pdf"
