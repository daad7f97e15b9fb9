#!/usr/bin/env bash
# Fails when the kernels of an instruction set have code that the linker might take for all of the program, and when a
# library takes an elementary function from the C library, whose last bits differ between its releases.
# Usage: checks/symbols.sh <kernels of the instruction sets> <library> ...
set -euo pipefail
kernels=$1
shift
status=0
defined=$(nm -C --defined-only -g "$kernels")
shared=$(grep -E ' [TWVui] ' <<< "$defined" || true)
[ -z "$shared" ] || { echo "$kernels shares"; echo "$shared"; status=1; }
functions='a?(sin|cos|tan)h?|sincos|atan2|exp|exp2|exp10|expm1|log|log2|log10|log1p|pow|cbrt|[lt]gamma(_r)?|erfc?'
wanted=$(nm -A -u "$@")
foreign=$(grep -E " U ($functions)(@.*)?$" <<< "$wanted" || true)
[ -z "$foreign" ] || { echo "$foreign"; status=1; }
exit $status
