#!/usr/bin/env bash
# Draws the figures of figures/ anew with gnuplot, as NAME-gnuplot.png beside ours and as large. Needs gnuplot-nox and file.
set -euo pipefail
cd "$(dirname "$0")/figures"
for script in *.gp; do
  name=${script%.gp}
  [[ $(file -b "$name.png") =~ ([0-9]+)\ x\ ([0-9]+) ]]
  gnuplot -e "set terminal pngcairo size ${BASH_REMATCH[1]},${BASH_REMATCH[2]} font 'Liberation Sans,15'; set output '$name-gnuplot.png'" \
    "$script"
done
