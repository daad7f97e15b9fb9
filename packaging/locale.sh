#!/usr/bin/env bash
# Makes sure of the Italian locale, whose decimal comma the tests need.
set -euo pipefail
locale -a | grep -qi '^it_IT\.utf-\?8$' && exit 0
as_root=()
[ "$(id -u)" -eq 0 ] || as_root=(sudo)
"${as_root[@]}" localedef -i it_IT -f UTF-8 it_IT.UTF-8
