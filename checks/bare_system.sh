#!/usr/bin/env bash
# Installs the Debian package in a bare system, which has only what the package asks for, works with its programs as an
# ordinary user, removes it, and fails when anything of it is left. Usage: checks/bare_system.sh FILE.deb
set -euo pipefail

fail() { echo "bare system: $*" >&2; exit 1; }

# What runs inside.

left() { # what the system has of the program
  find / -xdev \( -path /proc -o -path /sys -o -path /package \) -prune -o -iname '*vor[-_]*kel*' -print -o -iname '*tabulo*' -print
  grep -rslE 'vor[-_]kel|tabulo' /etc /usr/share/applications /usr/share/mime /var/lib/dpkg/status /var/lib/dpkg/info || true
}

opens() { # program that must live until it is ended
  local status=0
  timeout 5 "$1" > said 2>&1 || status=$?
  [ "$status" = 124 ] || fail "$1 ended with $status: $(cat said)"
  [ ! -s said ] || fail "$1 said: $(cat said)"
}

work() { # as an ordinary user, in a folder of his own
  cd "$(mktemp -d)"
  local examples=/usr/share/vor_kel/examples version ending figure
  version=$(dpkg-query -W -f '${Version}' vor-kel)
  [[ $(vor_kel_batch --version) == *"$version"* ]] || fail "vor_kel_batch is not of version $version"
  opens vor_kel
  opens tabulo
  vor_kel_batch fit $examples/decay.dat --file $examples/lab.fcn --entry 1 --par A=400 --par k=0.2 --par b=5 > report
  grep -qF 'A  │ 0.514130E+03 │' report || fail "another report: $(cat report)"
  cp -r $examples/* .
  for ending in png svg pdf; do
    vor_kel_batch draw decay_fun.gra -o "figure.$ending"
    [ "$(stat -c %s "figure.$ending")" -gt 5000 ] || fail "figure.$ending is empty"
  done
  # As their pages tell: in the folder of each.
  for figure in laboratorio/*/*.gra; do
    (cd "${figure%/*}" && vor_kel_batch draw "${figure##*/}" -o figure.pdf)
  done
  # shellcheck disable=SC1091
  source /usr/share/bash-completion/completions/vor_kel_batch
  complete -p vor_kel_batch > /dev/null
}

inside() {
  export DEBIAN_FRONTEND=noninteractive
  [ -z "$(left)" ] || fail "there before: $(left)"
  # Its triggers keep the lists of programs and of kinds of files.
  apt-get install -q -y --no-install-recommends desktop-file-utils shared-mime-info > /dev/null
  apt-get install -q -y --no-install-recommends /package/*.deb > log 2>&1 || { cat log; exit 1; }
  [[ $(left) == */usr/bin/vor_kel* ]] || fail "does not see what is there"
  useradd -m user
  mkdir -m 700 /run/user
  chown user /run/user
  setpriv --reuid user --regid user --clear-groups env HOME=/home/user XDG_RUNTIME_DIR=/run/user /package/bare_system.sh work
  grep -q 'text/x-vor-kel-figure=vor_kel.desktop' /usr/share/applications/mimeinfo.cache || fail "no list of programs"
  grep -q 'text/x-vor-kel-function:\*.fcn' /usr/share/mime/globs || fail "no list of kinds of files"
  userdel -r user 2> /dev/null
  apt-get purge -q -y vor-kel > log 2>&1 || { cat log; exit 1; }
  [ -z "$(left)" ] || fail "left: $(left)"
}

if [ -d /package ]; then
  "$1"
  exit
fi

# What runs outside.

deb=$(realpath "$1")
here=$(cd "$(dirname "$0")" && pwd)
sources=()
for list in /etc/apt/sources.list /etc/apt/sources.list.d/debian.sources; do
  [ ! -s "$list" ] || sources+=("$list")
done
work=$(mktemp -d)
trap 'kill $(jobs -p) 2> /dev/null || true; rm -rf "$work"' EXIT
# A screen outside, which those inside reach by its name alone; there their windows must be seen.
mkfifo "$work/screen"
Xvfb -displayfd 3 -screen 0 1000x760x24 3> "$work/screen" 2> /dev/null &
DISPLAY=$(head -n 1 "$work/screen")
[ -n "$DISPLAY" ] || fail "Xvfb opens no screen"
export DISPLAY=:$DISPLAY
titles=(VOR_KEL TABULO)
for title in "${titles[@]}"; do
  xdotool search --sync --onlyvisible --name "^$title" > "$work/$title" &
done
mmdebstrap --quiet --variant=minbase --format=null \
  --customize-hook="mkdir \"\$1/package\"" \
  --customize-hook="copy-in '$deb' '$here/bare_system.sh' /package" \
  --customize-hook="chroot \"\$1\" env DISPLAY=$DISPLAY /package/bare_system.sh inside" \
  bookworm /dev/null "${sources[@]}"
for title in "${titles[@]}"; do
  [ -s "$work/$title" ] || fail "no window $title"
done
echo "Installed, used and removed in a bare system: $(basename "$deb")"
