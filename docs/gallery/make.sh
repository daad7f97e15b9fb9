#!/usr/bin/env bash
# Draws the sheets of this folder anew, as PNG, SVG and PDF. Usage: docs/gallery/make.sh [BUILD FOLDER]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=${1:-$here/../../build/run}
cmake --build "$build" --target gallery
QT_QPA_PLATFORM=offscreen "$build/docs/gallery/gallery" "$here"
