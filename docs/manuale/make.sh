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
# The pages of a manual stand in the folder itself, all others below it as they do below docs/ and examples/.
links() {
  sed -E "s#(href|src)=\"$1#\1=\"#g; s#(href=\"[^\":]*)\.md([\"\#])#\1.html\2#g; s#href=\"\.\./examples/#href=\"#g"
}

# The gallery without its second part, which is for those who work on the drawing library; on paper the first page
# without its list of chapters, as the pages are numbered in another.
on_paper=
source_of() { sed "/^## What the drawing library draws/,\$d; ${on_paper:+/^| Capitolo /,/^\$/d}" "$1"; }

chapter_list() { # the page that is being read, the way up from it to the folder
  local page
  for page in manuale/indice.md "${chapters[@]}"; do
    echo "<li><a href=\"${2:-}$(name "$page").html\"$([ "$page" != "$1" ] || echo ' aria-current="page"')>$(title "$page")</a></li>"
  done
}

page() { # page, the one before it, the one behind it
  local before=() after=()
  [ -z "$2" ] || before=(-V "before=$(name "$2").html" -V "before-title=$(title "$2")")
  [ -z "$3" ] || after=(-V "after=$(name "$3").html" -V "after-title=$(title "$3")")
  html "$1" page.html -V lang=it -V "version=$version" -V "chapters=$(chapter_list "$1")" \
    "${before[@]}" "${after[@]}" | links '\.\./' > "$out/$(name "$1").html"
}

pages=(manuale/indice.md "${chapters[@]}")
for ((i = 0; i < ${#pages[@]}; i++)); do
  page "${pages[i]}" "$([ $i -eq 0 ] || echo "${pages[i - 1]}")" "${pages[i + 1]:-}"
done
for example in "${laboratory[@]}"; do
  place=$(dirname "${example#../examples/}")
  up=$(sed 's#[^/][^/]*#..#g' <<< "$place")/
  mkdir -p "$out/$place"
  html "$example" page.html -V lang=it -V "version=$version" -V "up=$up" -V "chapters=$(chapter_list "$example" "$up")" |
    sed -E "s#href=\"(\.\./)*docs/manuale/#href=\"$up#g" | links manuale/ > "$out/$place/README.html"
done
for example in ../examples/laboratorio/*/figura.png; do
  cp "$example" "$out/${example#../examples/}"
done
for english_page in "${english[@]}"; do
  up=$(dirname "$english_page" | sed 's/^\.$//; s#[^/][^/]*#../#')
  mkdir -p "$out/$(dirname "$english_page")"
  html "$english_page" page.html -V lang=en -V "version=$version" -V "up=$up" \
    -V "chapters=$(chapter_list "$english_page" "$up")" |
    links "manuale/" > "$out/${english_page%.md}.html"
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
