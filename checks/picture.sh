#!/usr/bin/env bash
# Prints the picture of the libraries that docs/architecture.md shows: checks/layers.txt without the arrows that follow
# from others. Usage: checks/picture.sh [--renew], which writes it there, and the line "May use" of each folder's page.
set -euo pipefail
cd "$(dirname "$0")/.."

drawn=$(awk -F: '
  function node(name) { gsub(/\//, "_", name); return name }
  # True where one library follows from another, by one arrow or more.
  function reaches(from, to,   n, list, i) {
    n = split(below[from], list, " ")
    for (i = 1; i <= n; i++) if (list[i] == to || reaches(list[i], to)) return 1
    return 0
  }
  function follows(from, to,   n, list, i) {
    n = split(below[from], list, " ")
    for (i = 1; i <= n; i++) if (list[i] != to && reaches(list[i], to)) return 1
    return 0
  }
  /^#/ || !NF { next }
  { order[++count] = $1; below[$1] = $2 }
  END {
    print "```mermaid"
    print "graph TD"
    for (i = 1; i <= count; i++) print "  " node(order[i]) "[\"" order[i] "\"]"
    for (i = 1; i <= count; i++) {
      n = split(below[order[i]], list, " ")
      for (j = 1; j <= n; j++) {
        if (!(list[j] in below)) print "  " node(order[i]) " -.-> " list[j] "([" list[j] "])"
        else if (!follows(order[i], list[j])) print "  " node(order[i]) " --> " node(list[j])
      }
    }
    print "```"
  }' checks/layers.txt)

[ "${1:-}" = --renew ] || { echo "$drawn"; exit; }
page=docs/architecture.md
{
  sed '/^```mermaid$/,$d' "$page"
  echo "$drawn"
  sed '1,/^```mermaid$/d' "$page" | sed '0,/^```$/d'
} > "$page.new"
mv "$page.new" "$page"
while IFS=: read -r library below; do
  may=$(sed 's/^ *//; s/ /, /g' <<< "$below")
  sed -i "s|^May use: .*|May use: ${may:-nothing}.|" "$library/README.md"
done < <(grep '^[a-z]' checks/layers.txt)
