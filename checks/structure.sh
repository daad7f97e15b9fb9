#!/usr/bin/env bash
# Prints the figures by which the structure of the product code is judged, and fails on one that is beyond its limit.
set -euo pipefail
cd "$(dirname "$0")/.."

libraries=$(sed -n 's/^\([a-z]*\):.*/\1/p' checks/layers.txt)
status=0
# What the figures look for; under another name they would all be 0.
for counted in session/Session.h:ErrFlag platform/Dialogs.h:Dialogs commands/CommandTable.cpp:MenDat; do
  grep -qs "${counted#*:}" "${counted%:*}" || { echo "there is no ${counted#*:} in ${counted%:*}"; status=1; }
done
report() { # figure, limit ("" for none), what it counts
  local verdict=""
  if [ -n "$2" ] && awk "BEGIN { exit !($1 > $2) }"; then
    verdict=" TOO MUCH"
    status=1
  fi
  printf '%8s %-12s %s%s\n' "$1" "${2:+(at most $2)}" "$3" "$verdict"
}
sources_of() { # folders
  find "$@" \( -name '*.cpp' -o -name '*.h' \) 2> /dev/null
}
lines_of() { # folders
  sources_of "$@" | xargs -r cat | wc -l
}

# shellcheck disable=SC2086
existing=$(ls -d $libraries 2> /dev/null)
# shellcheck disable=SC2086
total=$(lines_of $existing)
report "$total" "" "lines of product code"

# A library is a folder with a build file of its own; the lines of its sub-libraries count for themselves.
largest=0
for library in $existing; do
  while read -r folder; do
    lines=$(find "$folder" -maxdepth 1 \( -name '*.cpp' -o -name '*.h' \) -exec cat {} + | wc -l)
    share=$(awk "BEGIN { printf \"%.1f\", 100 * $lines / $total }")
    if awk "BEGIN { exit !($share > $largest) }"; then largest=$share largest_name=$folder; fi
    [ "$folder" = ui ] && own_ui=$share
  done < <(find "$library" -type d)
done
report "$largest" 20 "per cent of the lines in the largest library, $largest_name/"
report "$own_ui" 8 "per cent in ui/ itself"
report "$(awk "BEGIN { printf \"%.1f\", 100 * $(lines_of ui) / $total }")" "" "per cent in ui/ with all below it"

# shellcheck disable=SC2086
arrows=$(sources_of $existing | xargs grep -HoE '^#include "[^"]+"' | awk -F: '
  function library(path) { sub(/\/.*/, "", path); return path }
  { file = $1; header = $2; gsub(/#include |"/, "", header)
    if (library(file) != library(header)) pair[library(file) " " library(header)] }
  END { for (p in pair) n++; print n + 0 }')
report "$arrows" "" "arrows between the libraries"
report "$({ checks/layers.sh || true; } | wc -l)" 0 "arrows upward"

# What must be compiled again when the session's header changes.
# shellcheck disable=SC2086
reached=$(sources_of $existing | xargs grep -HoE '^#include "[^"]+"' | awk -F: '
  { header = $2; gsub(/#include |"/, "", header); users[header] = users[header] " " $1 }
  function visit(file,   n, list, i) {
    n = split(users[file], list, " ")
    for (i = 1; i <= n; i++) if (!(list[i] in seen)) { seen[list[i]]; visit(list[i]) }
  }
  END { visit("session/Session.h"); for (f in seen) if (f ~ /\.cpp$/) count++; print count + 0 }')
report "$reached" 40 "sources reached by session/Session.h"

# shellcheck disable=SC2086
dialogs=$(sources_of $existing | { xargs grep -hoE 'Dialogs& *[a-z]*[,)]' || true; } | wc -l)
report "$dialogs" 40 "parameters of the type Dialogs&"
report "$(sources_of numeric expr data analysis gral grafile | { xargs grep -l 'Dialogs' || true; } | wc -l)" 0 \
  "sources below the session that know the dialogs"

# shellcheck disable=SC2086
writers=$(sources_of $existing | { xargs grep -lE '\bErrFlag\s*=[^=]|guard\([a-z_.>-]*ErrFlag' || true; } |
  { grep -v '^commands/' || true; } | wc -l)
report "$writers" 0 "sources outside commands/ that write ErrFlag"
# shellcheck disable=SC2086
controls=$(sources_of $existing | grep -v '^commands/CommandTable' |
  { xargs grep -hoE '"Men[A-Z][A-Za-z]+(\(|")' || true; } | wc -l)
report "$controls" 0 "literal names of menu controls outside their table"
exit $status
