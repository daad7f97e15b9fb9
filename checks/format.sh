#!/usr/bin/env bash
# Fails when a source is not laid out as .clang-format says. With --fix it lays it out. Comments, which clang-format
# leaves as they are, have lines of at most 120 characters.
set -euo pipefail
cd "$(dirname "$0")/.."
mode=(--dry-run --Werror)
[ "${1:-}" = --fix ] && mode=(-i)
sources() {
  find . \( -path './build*' -o -path './.?*' \) -prune -o \( -name '*.cpp' -o -name '*.h' \) -print0
}
sources | xargs -0 clang-format "${mode[@]}"
long=$(sources | LC_ALL=C.UTF-8 xargs -0 grep -nHE '.{121}' || true)
[ -z "$long" ] || { echo "More than 120 characters:"; echo "$long"; exit 1; }
