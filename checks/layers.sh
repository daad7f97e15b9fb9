#!/usr/bin/env bash
# Fails when a source includes a header from a library that does not lie below its own (checks/layers.txt), and when a
# library has no line there.
set -euo pipefail
cd "$(dirname "$0")/.."

status=0
for build in {.,*,*/*,*/*/*}/CMakeLists.txt; do
  library=$(dirname "$build")
  if grep -qs '^vor_library(' "$build" && ! grep -q "^$library:" checks/layers.txt; then
    echo "checks/layers.txt: no line of $library"
    status=1
  fi
done

folders=$(sed -n 's/^\([a-z]*\):.*/\1/p' checks/layers.txt)
# shellcheck disable=SC2086
includes=$(grep -rHE --include='*.cpp' --include='*.h' '^[[:space:]]*#[[:space:]]*include' \
  $folders 2> /dev/null || true)
awk '
    # The longest library of the table that a path lies in.
    function library_of(path,   r, best) {
      best = ""
      for (r in allowed) if (index(path, r "/") == 1 && length(r) > length(best)) best = r
      return best
    }
    # True when the target is named in the list.
    function permits(names, target,   n, list, i) {
      n = split(names, list, " ")
      for (i = 1; i <= n; i++) if (list[i] == target) return 1
      return 0
    }
    FNR == NR {
      if ($0 ~ /^#/ || NF == 0) next
      split($0, parts, ":"); allowed[parts[1]] = parts[2]
      next
    }
    {
      file = $0; sub(/:.*/, "", file)
      header = $0; sub(/^[^<"]*[<"]/, "", header); sub(/[>"].*/, "", header)
      own = library_of(file)
      if ($0 ~ /include[[:space:]]*"/) target = library_of(header)
      else if (header ~ /^Q[A-Zt]/) target = "Qt"
      else if (header ~ /^CLI\//) target = "CLI"
      else if (header ~ /^qpdf\//) target = "PDF"
      else if (header ~ /^nlohmann\//) target = "JSON"
      else if (header == "sleef.h") target = "SLEEF"
      else if (header == "cminpack.h") target = "MINPACK"
      else if (header ~ /\.h$/) target = "System"
      else next
      if (own == "" || target == own || permits(allowed[own], target)) next
      print file ": " own " must not include " header; bad = 1
    }
    END { exit bad }
  ' checks/layers.txt - <<< "$includes" || status=1
exit $status
