# shellcheck shell=bash
# For scripts that open windows, which source it.

open_screen() { # folder for its files: a screen of the script's own, whose processes are jobs of the script
  Xvfb -displayfd 3 -screen 0 1000x760x24 3> "$1/display" &> /dev/null &
  until [ -s "$1/display" ]; do
    kill -0 $! # the server has not failed
    sleep 0.2
  done
  DISPLAY=:$(< "$1/display")
  export DISPLAY XDG_RUNTIME_DIR=$1
  openbox &> /dev/null & # windows get the focus, and menus open by key, only under a window manager
  sleep 1
}
