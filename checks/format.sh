#!/usr/bin/env bash
# Fails when a source is not laid out as .clang-format says. With --fix it lays it out.
set -euo pipefail
cd "$(dirname "$0")/.."
mode=(--dry-run --Werror)
[ "${1:-}" = --fix ] && mode=(-i)
git ls-files -co --exclude-standard '*.cpp' '*.h' | xargs clang-format "${mode[@]}"
