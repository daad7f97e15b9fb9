#!/usr/bin/env bash
# Fails when a file that the glossary names does not hold one of the names told for it, and when it lacks a unit or a
# form that a header names.
set -euo pipefail
cd "$(dirname "$0")/.."

rows=$(grep '^| `' docs/glossary.md)
status=0
while IFS='|' read -r _ names _ files _; do
  [ -n "${files// /}" ] || continue
  # shellcheck disable=SC2013
  for file in $(grep -oE '`[^`]+`' <<< "$files" | tr -d '`'); do
    [ -f "$file" ] && continue
    echo "docs/glossary.md: there is no $file"
    status=1
  done
  # shellcheck disable=SC2013
  for name in $(grep -oE '`[^`]+`' <<< "$names" | tr -d '`'); do
    # shellcheck disable=SC2046
    if ! grep -qsw -- "$name" $(grep -oE '`[^`]+`' <<< "$files" | tr -d '`'); then
      echo "docs/glossary.md: $name is not in$files"
      status=1
    fi
  done
done <<< "$rows"

# shellcheck disable=SC2046
for name in $(grep -rhoE '^/// (Unit|Form) [A-Za-z0-9_]+:' --include='*.h' \
  $(sed -n 's/^\([a-z]*\):.*/\1/p' checks/layers.txt) 2> /dev/null | sed 's/.* //; s/://' | sort -u); do
  grep -qF "| \`$name\` |" docs/glossary.md && continue
  echo "docs/glossary.md: there is no $name"
  status=1
done
exit $status
