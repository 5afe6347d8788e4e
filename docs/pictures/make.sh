#!/bin/sh
# Takes the manual's pictures anew, from the program on a screen of its own.
set -eu
cd "$(dirname "$0")/../.."

packaging/install.sh run pictures
cmake --preset release >/dev/null
cmake --build --preset release --target tarnwick

home=$(mktemp -d)
started=
# shellcheck disable=SC2086
trap 'kill $started; rm -r "$home"' EXIT

Xvfb -wr -screen 0 1280x1024x24 -displayfd 3 3>"$home/display" 2>/dev/null &
started="$!"
until [ -s "$home/display" ]; do sleep 0.1; done
DISPLAY=:$(cat "$home/display")
export DISPLAY HOME="$home" XDG_CONFIG_HOME="$home/config" XDG_DATA_HOME="$home/data"
unset QT_QPA_PLATFORM QT_SCALE_FACTOR WAYLAND_DISPLAY
mkdir -p "$XDG_DATA_HOME/tarnwick/drive_c/geog"
cp data/Sites.dat "$XDG_DATA_HOME/tarnwick/drive_c/geog"
openbox 2>/dev/null &
started="$! $started"
build/release/tarnwick &
started="$! $started"

window() {
  xdotool search --sync --onlyvisible --name "$1" | tail -n 1
}
# Waits, because a window is moved and painted a little after it appears.
settle() {
  sleep "${PAUSE:-2}"
}
in_window() {
  xdotool windowactivate --sync "$1"
  settle
}
keys() {
  xdotool key "$@"
  settle
}
place() {
  keys alt+i
  xdotool type --delay 30 "$1"
  keys Return
}
# The whole screen, or one window with its frame.
picture() {
  settle
  import ${2:+-frame} -window "${2:-root}" -trim png:- |
    pngquant --strip --speed 1 64 - >"docs/pictures/$1.png"
}

main=$(window 'Sites, Distances and Bearings')
in_window "$main"
place io91wm
picture place "$main"
keys alt+s
place 'ben nevis'
picture home
keys alt+i
xdotool type --delay 30 'cairn'
keys alt+l
picture lookup "$(xdotool getactivewindow)"
keys alt+F4
in_window "$main"
keys alt+m
picture listing "$main"
keys alt+i
for _ in 1 2 3 4 5 6 7; do xdotool key Tab; done
keys space
picture receiver "$(xdotool getactivewindow)"
