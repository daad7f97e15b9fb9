#!/usr/bin/env bash
# Intended oddities of the code are tagged QUIRK, and so are their tests, so that nobody "repairs" one
# unnoticed: a room that has tagged code has tagged tests.
set -euo pipefail
cd "$(dirname "$0")/.."
status=0
for room in session expr analysis gral grafile ui; do
  if grep -rqs 'QUIRK' "$room" --include='*.cpp' --include='*.h' && ! grep -rqs 'QUIRK' "tests/$room"; then
    echo "$room has intended oddities, but no test of them is tagged"
    status=1
  fi
done
exit $status
