#!/usr/bin/env bash
# Prints what CHANGELOG.md tells for the tools of a desktop and of Debian.
# Usage: packaging/changes.sh appstream | debian ADDRESS
# What is not released yet counts as of SOURCE_DATE_EPOCH, else of today.
set -euo pipefail
cd "$(dirname "$0")/.."

now=${SOURCE_DATE_EPOCH:-$(date +%s)}
heading='^## \[(.*)\] - (.*)$'
day() { # of a heading of the list
  if [ "$1" = unreleased ]; then date -u -d "@$now" "$2"; else date -u -d "$1" "$2"; fi
}

appstream() {
  local line type
  while IFS= read -r line; do
    [[ $line =~ $heading ]] || continue
    type=stable
    [ "${BASH_REMATCH[2]}" != unreleased ] || type=development
    echo "    <release version=\"${BASH_REMATCH[1]}\" date=\"$(day "${BASH_REMATCH[2]}" +%F)\" type=\"$type\"/>"
  done < CHANGELOG.md
}

debian() { # address
  local line item="" signature=""
  put() { # the item that was read, without the marks of links
    [ -z "$item" ] || sed -E 's/\[([^]]*)\]\([^)]*\)/\1/g' <<< "$item" | fold -s -w 75 | sed 's/ *$//; 1s/^/  * /; 1!s/^/    /'
    item=""
  }
  while IFS= read -r line; do
    if [[ $line =~ $heading ]]; then
      put
      [ -z "$signature" ] || printf '\n%s\n\n' "$signature"
      echo "vor-kel (${BASH_REMATCH[1]}) unstable; urgency=medium"
      echo
      signature=" -- The Vor_Kel developers <$1>  $(day "${BASH_REMATCH[2]}" -R)"
    elif [[ $line == '- '* ]]; then
      put
      item=${line#- }
    elif [[ $line == '  '* && -n $item ]]; then
      item+=" ${line#  }"
    else
      put
    fi
  done < CHANGELOG.md
  put
  printf '\n%s\n' "$signature"
}

"$@"
