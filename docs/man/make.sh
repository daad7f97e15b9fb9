#!/usr/bin/env bash
# Makes the pages for man, in Italian and English, of the Markdown beside this script, of the help of the terminal
# program, and of the pages on the files. Needs pandoc. Usage: docs/man/make.sh PROGRAM FOLDER
# PROGRAM is the built vor_kel_batch; FOLDER becomes a tree as man looks through: man1/vor_kel.1, it/man1/vor_kel.1, ...
set -euo pipefail
program=$(realpath "$1")
mkdir -p "$2"
made=$(realpath "$2")
cd "$(dirname "$0")/../.."

version=$(sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
# The day of the release; none before it.
date=$(sed -n "s/^## \[$version\] - \([0-9-]*\)$/\1/p" CHANGELOG.md)

page() { # language, folder in the tree, header
  local source=docs/man/$1/$4 name section
  name=${4%.md} section=${name##*.}
  mkdir -p "$made/$2/man$section"
  pandoc --from commonmark+pipe_tables+definition_lists --to man --template docs/man/page.man \
    --lua-filter docs/man/page.lua -M lang="$1" -M program="$program" -M root="$PWD" \
    -V title="${name%.*}" -V section="$section" -V date="$date" -V footer="Vor_Kel $version" -V header="$3" \
    --output "$made/$2/man$section/$name" "$source"
}
for name in vor_kel.1.md tabulo.1.md vor_kel_batch.1.md vor_kel_formati.5.md; do
  page it it "Manuale di Vor_Kel" $name
  page en . "Manual of Vor_Kel" $name
done
# The program that draws is not called by people; its name leads to the page that tells of it.
for tree in . it; do echo ".so man1/vor_kel_batch.1" > "$made/$tree/man1/vor_kel_figures.1"; done
