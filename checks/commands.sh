#!/usr/bin/env bash
# Runs the commands in the pages that users read, and fails where they print something else than the page shows.
# Usage: checks/commands.sh FOLDER [--renew] [PAGE ...]: FOLDER holds vor_kel_batch, a PAGE is one of this checkout (all
# of them without), and --renew writes into the pages what their commands print, and the files that they make.
#
# A block "sh" is run by bash. The block "text" behind it is what it prints, both streams together; without one it must
# succeed. A file that stands beside a page of the samples and is made by its commands is made as it is kept.
# Blocks of other names are left alone. The commands of a page run one after the other in a copy of its folder
# where that is one of the samples, above a copy of examples/ for a page at the root, and within it for all others.
set -euo pipefail
programs=$(cd "$1" && pwd)
shift
renew=
[ "${1:-}" != --renew ] || { renew=yes; shift; }
cd "$(dirname "$0")/.."
if [ $# -eq 0 ]; then
  shopt -s nullglob globstar
  set -- README*.md docs/manuale/*.md docs/man/*/*.md examples/**/*.md
fi
export PATH="$programs:$PATH" LC_ALL=C.UTF-8 PYTHONUTF8=1
made=$(mktemp -d)
trap 'rm -rf "$made"' EXIT
status=0

# Writes the blocks of a page as 1.sh, 1.text, 2.sh, ...
split() { # page, folder
  awk -v page="$1" -v into="$2" '
    function wrong(what) { print page ":" NR ": " what; failed = 1 }
    /^ *```/ && open { open = 0; to = ""; next }
    /^ *```/ {
      open = 1
      if ($0 == "```sh") { to = into "/" ++count ".sh"; waits = 1 }
      else if ($0 == "```text" && waits) { to = into "/" count ".text"; waits = 0 }
      else if ($0 == "```text") wrong("a text that no command prints")
      else if (/```(sh|text)/) wrong("commands and what they print stand at the margin")
      if (to != "") printf "" > to
      next
    }
    to != "" { print > to }
    END { if (open) wrong("a block that does not end"); exit failed }' "$1"
}

# Prints the page with what its commands have printed.
renewed() { # page, folder
  awk -v from="$2" '
    /^ *```/ && open { open = left_out = 0; print; next }
    /^ *```/ { open = 1; print }
    $0 == "```sh" { ++count }
    $0 == "```text" { left_out = 1; while ((getline line < (from "/" count ".printed")) > 0) print line }
    !/^ *```/ && !left_out { print }' "$1"
}

# Fails where commands have left another file than the one that is kept.
compare_files() { # folder, its copy in which the commands ran
  local name
  while IFS= read -r name; do
    cmp -s "$1/$name" "$2/$name" && continue
    [ -z "$renew" ] || { cp "$2/$name" "$1/$name"; continue; }
    echo "$1: the commands of the page leave another $name"
    status=1
  done < <(find "$1" -maxdepth 1 -type f -printf '%f\n')
}

run() { # page, folder for the work
  local page=$1 blocks=$2/blocks place=$2/examples count command stops
  mkdir -p "$blocks"
  cp -r examples "$2"
  split "$page" "$blocks" || { status=1; return; }
  case $page in
    examples/*) place=$2/$(dirname "$page") ;;
    */*) ;;
    *) place=$2 ;;
  esac
  for ((count = 1; ; count++)); do
    command=$blocks/$count
    [ -e "$command.sh" ] || break
    ran=yes
    stops=()
    [ -e "$command.text" ] || stops=(-e)
    (cd "$place" && timeout 60 bash "${stops[@]}" "$command.sh" < /dev/null > "$command.raw" 2>&1) ||
      [ -e "$command.text" ] || {
      echo "$page: a command fails:" && cat "$command.sh" "$command.raw"
      status=1
    }
    [ -e "$command.text" ] || continue
    echo "$(sed 's/\r$//' "$command.raw")" > "$command.printed"
    [ -z "$renew" ] && ! cmp -s "$command.text" "$command.printed" || continue
    echo "$page: the page shows (-) something else than is printed (+) by" && cat "$command.sh"
    diff -U1 "$command.text" "$command.printed" | tail -n +3 || true
    status=1
  done
  [[ $page != examples/* ]] || compare_files "$(dirname "$page")" "$place"
  [ -n "$renew" ] || return 0
  renewed "$page" "$blocks" > "$2/page"
  cat "$2/page" > "$page"
}

ran=
for page in "$@"; do
  run "$page" "$made/$page"
done
[ -n "$ran" ] || { echo "no page shows a command"; status=1; }
exit $status
