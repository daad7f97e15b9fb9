#!/usr/bin/env bash
# Makes the pictures of this folder: walks through the windows with the samples, on a screen of its own.
# Usage: docs/screenshots/make.sh [folder with the program, build/run/bin by default [folder for the pictures]]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
"$root/packaging/install.sh" tools
program=$(cd "${1:-$root/build/run/bin}" && pwd)/vor_kel
out=${2:-$here}
mkdir -p "$out"
place=/tmp/laboratorio # windows show it
mkdir "$place" || { echo "move away $place"; exit 1; }
work=$(mktemp -d)
trap 'kill $(jobs -p) 2> /dev/null || true; rm -rf "$work" "$place"' EXIT
cp "$program" "$root"/examples/*.{dat,fcn,gra} "$root/tests/files/it-csv-utf8.csv" "$place"
printf '%s\n' 'Massa (g)' 'Allungamento (mm)' 5 '50 20,5 1' '100 39.0 1' '150 61.5' '200 80.0 1' '250 101.5 1' \
  > "$place/sbagliato.dat"

source "$root/checks/screen.sh"
open_screen "$work"

start() { # files: the program anew, behind its box of welcome
  (cd "$place" && exec ./vor_kel "$@" &> /dev/null) &
  running=$!
  window 'VOR_KEL Versione Windows 98' > /dev/null
  keys Return
}
end() {
  kill "$running"
  wait "$running" 2> /dev/null || true
}
window() { timeout 60 xdotool search --sync --onlyvisible --name "^$1\$" | head -n 1; }
picture() { # file, name of the window
  sleep 1
  import -window "$(window "$2")" -frame "$out/$1.png"
}
keys() { xdotool key --delay 150 "$@"; }
menu() { # keys of a menu and its entries
  sleep 1
  keys "$@"
}
file() { # name for a file dialog, title of the dialog
  window "$2" > /dev/null
  xdotool type "$place/$1"
  keys Return
}
fields() { # texts of an input form, each on to the next field
  local text
  for text in "$@"; do
    xdotool type -- "$text"
    keys Return
  done
}

# From data to the figure of a fit.
start
menu alt+d l
file pendulum.dat 'VOR_KEL: Lettura File Dati'
menu alt+f s
window 'VOR_KEL: Selezione Funzione' > /dev/null
keys End Tab Down
picture select 'VOR_KEL: Selezione Funzione'
keys alt+a
picture main 'VOR_KEL'
keys alt+a p
window 'VOR_KEL: Parametri Iniziali' > /dev/null
fields 2.5 0.5 30 0.1 1 1 1 1
picture input 'VOR_KEL: Parametri Iniziali'
keys alt+e
menu alt+a a
picture fit 'VOR_KEL: Adattamento Funzione Dati'
keys F2
picture diagnosis "VOR_KEL: Diagnosi dell'Adattamento"
keys Escape
keys alt+c
menu alt+g f Return
picture figure 'VOR_KEL: Grafico Dati e Funzione'
end

# A function of a file, and what else is done with it.
start decay.dat lab.fcn
menu alt+f c
picture load 'VOR_KEL: Carica Funzione'
keys alt+a
menu alt+f s
window 'VOR_KEL: Selezione Funzione' > /dev/null
keys Home Tab End alt+a
menu alt+a p
window 'VOR_KEL: Parametri Iniziali' > /dev/null
fields 400 0.2 5 1 1 1
keys alt+e
menu alt+a a
window 'VOR_KEL: Adattamento Funzione Dati' > /dev/null
menu alt+c
menu alt+d s
window 'VOR_KEL: Simulazione Dati' > /dev/null
fields 0 20 40 3
picture simulation 'VOR_KEL: Simulazione Dati'
keys alt+r
menu alt+d t
window 'VOR_KEL: Trasformazione Dati' > /dev/null
keys Return
fields 'ln N' x 'LOG(y)' 'dy/y'
picture transformation 'VOR_KEL: Trasformazione Dati'
keys alt+r
menu alt+s p
picture propagation 'VOR_KEL: Propagazione Errori'
keys alt+e
sleep 2
picture monte-carlo 'VOR_KEL: Propagazione Errori'
keys alt+c
menu alt+f m
file lab.fcn 'VOR_KEL: Modifica File Funzioni'
picture editor 'VOR_KEL: Modifica File Funzioni.*'
end

# What is chosen once, and a file with errors.
start
menu alt+s o d
picture folders 'VOR_KEL: Selezione Directory di Lavoro'
keys alt+r
menu alt+s o g
picture settings 'VOR_KEL: Impostazioni Grafiche'
keys alt+r
menu alt+s o v
menu alt+d l
file sbagliato.dat 'VOR_KEL: Lettura File Dati'
picture errors 'VOR_KEL: Lettura File Dati - ERRORI'
end

# The calculator, which is a program of its own.
"${program%/*}/tabulo" &> /dev/null &
running=$!
window TABULO > /dev/null
fields 'R=47.2' 'U=4.81' 'U/R' 'ris^2*R'
picture calculator TABULO
end

# A table of another program.
start it-csv-utf8.csv
picture import 'VOR_KEL: Importazione Tabella'
end
echo "Made $(ls "$out"/*.png | wc -l) pictures in $out"
