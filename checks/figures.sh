#!/usr/bin/env bash
# Fails unless the figures that tests compare with are those that their generators print: each line of what
# tests/**/<Name>Test.py prints stands in <Name>Test.cpp.
set -euo pipefail
cd "$(dirname "$0")/.."
export PYTHONDONTWRITEBYTECODE=1 PYTHONUTF8=1
status=0
while IFS= read -r generator; do
  test=${generator%.py}.cpp
  lines=$(python3 "$generator")
  [ -n "$lines" ] || { echo "$generator prints nothing"; status=1; }
  while IFS= read -r line; do
    grep -qF -- "$line" "$test" && continue
    echo "$test has no: $line"
    status=1
  done <<< "$lines"
done < <(find tests -name '*Test.py' | LC_ALL=C sort)
exit $status
