#!/usr/bin/env bash
# Fails on a function of more than 60 lines, a file of more than 400, or a function of more than 7 parameters that is
# not one of the calls whose parameters are given (they are part of the drawing library's and the fit's own language).
set -euo pipefail
cd "$(dirname "$0")/.."
command -v ctags > /dev/null || { echo "ctags is not installed"; exit 1; }

given=" Frame3D GralContour GralFrame3d GralLego3d GralOaxis GralVaxis LineSearch Minimise Minimiser ParseFields "
given+="PlotData Surf3D "

folders=$(find . -mindepth 1 -maxdepth 1 -type d ! -name '.*' ! -name build)
# shellcheck disable=SC2086
sources=$(find $folders -name '*.cpp' -o -name '*.h' | sort)

# shellcheck disable=SC2086
long_files=$(wc -l $sources | awk '$2 != "total" && $1 > 400 { print $2 ": " $1 " lines" }')

# shellcheck disable=SC2086
functions=$(ctags -x --languages=C++ --c++-kinds=fp --fields=+neS \
  --_xformat=$'%{line}\t%{end}\t%{input}\t%{name}\t%{signature}' $sources 2> /dev/null |
  awk -F '\t' -v given="$given" '
    # Parameters of a signature: the commas outside all brackets, and one more.
    function parameters(signature,   i, c, depth, count) {
      signature = substr(signature, 2)
      if (signature ~ /^(void)?\)/) return 0
      count = 1
      for (i = 1; i <= length(signature); i++) {
        c = substr(signature, i, 1)
        if (c ~ /[(<{[]/) depth++
        else if (c ~ /[>}\])]/ && --depth < 0) break
        else if (c == "," && depth == 0) count++
      }
      return count
    }
    $2 - $1 + 1 > 60 { print $3 ":" $1 ": " $4 " has " $2 - $1 + 1 " lines" }
    parameters($5) > 7 && $4 !~ /^__anon/ && !index(given, " " $4 " ") {
      print $3 ":" $1 ": " $4 " has " parameters($5) " parameters"
    }
  ')

if [ -n "$long_files$functions" ]; then
  printf '%s\n' "$long_files" "$functions" | sed '/^$/d'
  exit 1
fi
echo "sizes hold"
