#!/usr/bin/env bash
# Fails when a source is not laid out as .clang-format says. With --fix it lays it out.
set -euo pipefail
cd "$(dirname "$0")/.."
mode=(--dry-run --Werror)
[ "${1:-}" = --fix ] && mode=(-i)
find . \( -path './build*' -o -path './.?*' \) -prune -o \( -name '*.cpp' -o -name '*.h' \) -print0 |
  xargs -0 clang-format "${mode[@]}"
