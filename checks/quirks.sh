#!/usr/bin/env bash
# Intended oddities of the code are tagged QUIRK, and so are their tests, so that nobody "repairs" one
# unnoticed: a library that has tagged code has tagged tests.
set -euo pipefail
cd "$(dirname "$0")/.."
status=0
for library in $(sed -n 's/^\([a-z]*\):.*/\1/p' checks/layers.txt); do
  if grep -rqs 'QUIRK' "$library" --include='*.cpp' --include='*.h' && ! grep -rqs 'QUIRK' "tests/$library"; then
    echo "$library has intended oddities, but no test of them is tagged"
    status=1
  fi
done
exit $status
