#!/usr/bin/env bash
# Makes the manual, and fails when a link or an anchor of its pages leads nowhere (without looking at the network), or
# when words of its PDF stand beyond the margin. Usage: checks/manual.sh [FOLDER, build/manual by default]
set -euo pipefail
cd "$(dirname "$0")/.."
packaging/install.sh full
out=${1:-build/manual}
mkdir -p "$out"

docs/manuale/make.sh "$out/pages" "$out/manuale.pdf"
echo '[AnchorCheck]' > "$out/linkchecker.ini"
linkchecker --no-status --config "$out/linkchecker.ini" "$out/pages/indice.html"

# A4 is 595 points wide, and its margin has 51.
pdftotext -bbox "$out/manuale.pdf" - | awk -F'"' '
  /<page / { page++ }
  /<word / && $6 > 595 - 51 + 1 { print "page " page " of the PDF: beyond the margin: " $0; failed = 1 }
  END { if (!page) print "the PDF has no page"; exit failed || !page }'
