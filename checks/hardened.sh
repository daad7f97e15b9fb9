#!/usr/bin/env bash
# Fails when a program is built without the guards against faults of memory: anywhere in memory, no address that can be
# overwritten, no stack that can be run, and returns that are watched.
# Usage: checks/hardened.sh <program> ...
set -euo pipefail
export LC_ALL=C # what readelf says is looked through
status=0
require() { # what, pattern, text to look in
  grep -qE "$2" <<< "$3" || { echo "$program: no $1"; status=1; }
}
for program in "$@"; do
  head=$(readelf --wide --file-header --program-headers --dynamic "$program")
  taken=$(nm --dynamic --undefined-only "$program")
  require 'code that can lie anywhere' 'Flags:.*PIE' "$head"
  require 'addresses that are read-only' 'GNU_RELRO' "$head"
  require 'addresses that are taken at the start' 'BIND_NOW|Flags:.*NOW' "$head"
  require 'stack of data only' 'GNU_STACK .* RW ' "$head"
  require 'watch over returns' '__stack_chk_fail' "$taken"
done
exit $status
