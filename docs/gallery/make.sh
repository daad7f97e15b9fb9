#!/usr/bin/env bash
# Draws the figures and sheets of this folder anew: figures by the commands of README.md, sheets as PNG, SVG and PDF.
# Usage: docs/gallery/make.sh [BUILD FOLDER]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$(realpath "${1:-$here/../../build/run}")
cmake --build "$build" --target gallery vor_kel_batch vor_kel_figures
QT_QPA_PLATFORM=offscreen "$build/docs/gallery/gallery" "$here"
cd "$here/figures"
PATH=$build/batch:$PATH bash -e <(awk '/^```/ { inside = $0 == "```sh"; next } inside' ../README.md) > /dev/null
