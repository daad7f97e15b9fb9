#!/usr/bin/env bash
# Draws the figures of figures/ anew with gnuplot, as NAME-gnuplot.png beside ours and as large.
set -euo pipefail
cd "$(dirname "$0")/figures"
../../../packaging/install.sh gallery
for script in *.gp; do
  name=${script%.gp}
  [[ $(file -b "$name.png") =~ ([0-9]+)\ x\ ([0-9]+) ]]
  size=${BASH_REMATCH[1]},${BASH_REMATCH[2]}
  gnuplot -e "set terminal pngcairo size $size font 'Liberation Sans,15'; set output '$name-gnuplot.png'" "$script"
done
