#!/usr/bin/env bash
# Makes the pictures of this folder: walks the road from a data file to a fit on a screen of its own.
# Usage: docs/screenshots/make.sh [folder with the program, build/run/bin by default]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
"$root/packaging/install.sh" tools
program=$(cd "${1:-$root/build/run/bin}" && pwd)/vor_kel
work=$(mktemp -d)
trap 'kill $(jobs -p) 2> /dev/null; rm -rf "$work"' EXIT

export DISPLAY=:57 XDG_RUNTIME_DIR=$work
Xvfb "$DISPLAY" -screen 0 1000x760x24 &> /dev/null &
sleep 1
openbox &> /dev/null & # windows get the focus, and menus open by key, only under a window manager
sleep 1
"$program" &> /dev/null &
first=$!

window() { xdotool search --sync --onlyvisible --name "^$1\$" | head -n 1; }
picture() { # file, name of the window
  sleep 1
  import -window "$(window "$2")" -frame "$here/$1.png"
}
keys() { xdotool key --delay 150 "$@"; }
field() { # text of a field of the input form, and on to the next
  xdotool type "$1"
  keys Return
}

window 'VOR_KEL Versione Windows 98' > /dev/null
keys Return
keys alt+d l
window 'VOR_KEL: Lettura File Dati' > /dev/null
xdotool type "$root/examples/pendulum.dat"
keys Return
sleep 1
keys alt+f s
window 'VOR_KEL: Selezione Funzione' > /dev/null
keys End Tab Down
picture select 'VOR_KEL: Selezione Funzione'
keys alt+a
sleep 1
picture main 'VOR_KEL'
keys alt+a p
window 'VOR_KEL: Parametri Iniziali' > /dev/null
for value in 2.5 0.5 30 0.1 1 1 1 1; do field "$value"; done
picture input 'VOR_KEL: Parametri Iniziali'
keys alt+e
sleep 1
keys alt+a a
picture fit 'VOR_KEL: Adattamento Funzione Dati'
keys F2
picture diagnosis "VOR_KEL: Diagnosi dell'Adattamento"
keys Escape
keys alt+c
sleep 1
keys alt+g f Return
picture figure 'VOR_KEL: Grafico Dati e Funzione'
kill "$first"
"$program" "$root/tests/files/it-csv-utf8.csv" &> /dev/null &
window 'VOR_KEL Versione Windows 98' > /dev/null
keys Return
picture import 'VOR_KEL: Importazione Tabella'
echo "Made $(ls "$here"/*.png | wc -l) pictures in $here"
