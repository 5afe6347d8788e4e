#!/bin/sh
# Makes the Debian package, has Debian's own tools judge it, and starts what it holds by the command of
# the menu entry, in an empty home.
set -eu
cd "$(dirname "$0")/.."

packaging/install.sh run test package
cmake --workflow --preset release
package=$(echo build/release/tarnwick_*.deb)
root=$(mktemp -d)
trap 'rm -r "$root"' EXIT
dpkg-deb -x "$package" "$root"
dpkg-deb -f "$package" Depends | grep -q libqt6widgets6

lintian --allow-root --fail-on error "$package"
desktop-file-validate "$root/usr/share/applications/tarnwick.desktop"
appstreamcli validate --no-net "$root/usr/share/metainfo/tarnwick.metainfo.xml"

# It runs until it is asked to end, and then stores its settings.
export HOME="$root/home" QT_QPA_PLATFORM=offscreen
unset XDG_CONFIG_HOME XDG_DATA_HOME
mkdir "$HOME"
command=$(sed -n 's/^Exec=//p' "$root/usr/share/applications/tarnwick.desktop")
ended=0
PATH="$root/usr/bin:$PATH" timeout 5 "$command" || ended=$?
[ "$ended" = 124 ]
[ -s "$HOME/.config/Tarnwick/Tarnwick.ini" ]
echo "$package is in order"
