#!/bin/sh
# run.sh [PLACE]: builds the program and starts it. It first installs missing Debian packages with
# apt-get.
set -eu
cd "$(dirname "$0")"

packaging/install.sh run
echo "Building; the first time takes a minute or two."
cmake --preset release >/dev/null
cmake --build --preset release
# Installs the sample database and the manual beside the program, as the package does.
cmake --install build/release --prefix build/run >/dev/null

if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-}" ]; then
  cat <<'TEXT'
There is no display here, so the program shows its windows over VNC, to this machine alone.
Look at them with a VNC viewer at 127.0.0.1:5900. From another machine, tunnel there first:
  ssh -L 5900:127.0.0.1:5900 THIS-MACHINE
Ctrl+C ends the program.
TEXT
  export QT_QPA_PLATFORM=vnc:port=5900:size=1280x800
  export LD_PRELOAD="$PWD/build/release/libloopback_only.so"
fi
exec build/run/bin/tarnwick "$@"
