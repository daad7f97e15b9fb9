#!/usr/bin/env bash
# Fails when a file that the glossary names does not hold one of the names told for it.
# Usage: checks/glossary.sh [folder of the checkout]
set -euo pipefail
cd "${1:-$(dirname "$0")/..}"

status=0
while IFS='|' read -r _ names _ files _; do
  [ -n "${files// /}" ] || continue
  # shellcheck disable=SC2013
  for name in $(grep -oE '`[^`]+`' <<< "$names" | tr -d '`'); do
    # shellcheck disable=SC2046
    if ! cat $(grep -oE '`[^`]+`' <<< "$files" | tr -d '`') 2> /dev/null | grep -qw -- "$name"; then
      echo "docs/glossary.md: $name is not in$files"
      status=1
    fi
  done
done < <(grep '^| `' docs/glossary.md)
exit $status
