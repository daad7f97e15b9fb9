#!/usr/bin/env bash
# Fails when docs/man/en.txt lacks a text of the help of vor_kel_batch or has too much, when a page for man lacks a
# command, and when one stands in one language only. With the folder of the made pages (docs/man/make.sh) it fails, too,
# when man warns of one, when one has no name to be found by, and when one shows signs that only Markdown understands.
# Usage: checks/man.sh PROGRAMS [PAGES]: PROGRAMS holds vor_kel_batch.
set -euo pipefail
program=$(realpath "$1")/vor_kel_batch
pages=${2:+$(realpath "$2")}
cd "$(dirname "$0")/.."
status=0

# The texts of a help stand in column 31; a long name has its text in the next line, behind 30 blanks.
texts_of_help() { # command, or nothing
  "$program" "$@" --help | awk -v own="$#" '
    function tell(line) { if (line ~ /^  / && substr(line, 31) != "") print substr(line, 31) }
    FNR == 1 { if (own) print; next }
    !NF { next }
    { if (substr($0, 1, 30) ~ /[^ ]/) tell(before); before = $0 }
    END { tell(before) }'
}
commands=$("$program" --help | sed '1,/^Comandi:/d' | awk '{ print $1 }')
[ -n "$commands" ] || { echo "the help lists no commands"; exit 1; }
texts() {
  texts_of_help
  for command in $commands; do texts_of_help "$command"; done
}
# Names of values, all in capitals, are looked up when the pages are made.
if ! difference=$(diff <(grep -vE '^(  .*|#.*|[A-Z]*)$' docs/man/en.txt | sort) <(texts | sort -u)); then
  echo "docs/man/en.txt has too much (<) or lacks (>):"
  grep '^[<>]' <<< "$difference"
  status=1
fi
for command in $commands; do
  for page in docs/man/*/vor_kel_batch.1.md; do
    grep -qxF "<!-- usage $command -->" "$page" || { echo "$page does not tell of $command"; status=1; }
  done
done
diff <(cd docs/man/it && ls) <(cd docs/man/en && ls) || { echo "a page stands in one language only"; status=1; }

[ -n "$pages" ] || exit $status
for source in docs/man/it/*.md; do
  name=$(basename "$source" .md)
  for page in "$pages/man${name##*.}/$name" "$pages/it/man${name##*.}/$name"; do
    for locale in it_IT.UTF-8 C.UTF-8; do
      said=$(LC_ALL=$locale MANWIDTH=80 man --warnings=w -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 > /dev/null) ||
        said+="man fails"
      [ -z "$said" ] || { echo "$page: $said"; status=1; }
    done
    lexgrog "$page" | grep -q ": \"${name%.*} - " || { echo "$page has no name that whatis finds"; status=1; }
    shown=$(LC_ALL=C.UTF-8 MANWIDTH=80 man -l "$page" | col -bx) || { echo "$page: man fails"; status=1; }
    ! grep -nE '\]\(|^ *\||\*\*[a-z]|<!--' <<< "$shown" || { echo "$page shows Markdown"; status=1; }
  done
done
exit $status
