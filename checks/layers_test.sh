#!/usr/bin/env bash
# The layer check passes on this checkout and fails on each kind of wrong include.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
"$root/checks/layers.sh" "$root"

verdict_on() { # file, include line: "held" or "refused"
  local dir verdict=held
  dir=$(mktemp -d)
  mkdir -p "$dir/checks" "$dir/$(dirname "$1")"
  cp "$root/checks/layers.txt" "$dir/checks/"
  printf '%s\n' "$2" > "$dir/$1"
  "$root/checks/layers.sh" "$dir" > /dev/null || verdict=refused
  rm -r "$dir"
  echo "$verdict"
}
expect() { # verdict, file, include line
  [ "$(verdict_on "$2" "$3")" = "$1" ] || { echo "not $1: $2 with $3"; exit 1; }
}
expect refused base/A.h '#include "session/Session.h"'
expect refused gral/A.cpp '#include "session/Session.h"'
expect refused session/A.h '#include <QString>'
expect refused session/A.cpp '#include "platform/system/SystemFiles.h"'
expect refused expr/A.cpp '#include <unistd.h>'
expect refused analysis/A.cpp '#include "ui/Editor.h"'
expect refused ui/A.cpp '#include <QtWidgets>'
expect refused batch/A.cpp '#include "ui/qt/forms/MessageForm.h"'
expect refused ui/qt/widgets/A.cpp '#include "ui/qt/forms/A.h"'
expect refused ui/qt/widgets/A.cpp '#include "session/Session.h"'
expect refused ui/qt/forms/A.cpp '#include "ui/qt/ports/A.h"'
expect refused tabulo/A.cpp '#include "ui/qt/forms/A.h"'
expect refused base/A.cpp '#include "nowhere/A.h"'
expect refused expr/A.cpp '#include "session/Session.h"'
expect refused gral/A.cpp '#include "gral/sinks/A.h"'
expect held commands/A.cpp '#include "session/Session.h"'
expect held ui/qt/widgets/A.cpp '#include <QtWidgets>'
expect held batch/A.cpp '#include "ui/qt/devices/A.h"'
expect held base/A.cpp '#include <vector>'
echo "layers hold"
