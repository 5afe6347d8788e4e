#!/bin/sh
# check_package.sh PACKAGE [EMULATOR]: checks the Debian package with lintian and other tools, where
# a warning is a failure, and starts its program by the menu entry with an empty home folder.
# EMULATOR runs a program of another architecture.
set -eu
cd "$(dirname "$0")/.."
package=$1
emulator=${2:-}
root=$(mktemp -d)
trap 'rm -r "$root"' EXIT
dpkg-deb -x "$package" "$root"
dpkg-deb -f "$package" Depends | grep -q libqt6widgets6

lintian --allow-root --fail-on error,warning "$package"
id=org.tarnwick.tarnwick
entry=$root/usr/share/applications/$id.desktop
metainfo=$root/usr/share/metainfo/$id.metainfo.xml
desktop-file-validate "$entry"
grep -q "<id>$id</id>" "$metainfo"
# Check the metainfo without a web address, and with one as a publisher would set it.
appstreamcli validate --no-net --pedantic "$metainfo"
with_address=$root/with_address
cmake -DTARNWICK_HOMEPAGE=https://host.example/tarnwick -G Ninja -S . -B "$with_address" \
  >/dev/null
appstreamcli validate --no-net --pedantic "$with_address/texts/$id.metainfo.xml"
man --warnings -l "$root/usr/share/man/man1/tarnwick.1.gz" 2>&1 >/dev/null | (! grep .)
[ -s "$root/usr/share/tarnwick/drive_c/geog/Sites.dat" ]

# Each link of the manual must lead to a heading of the page, and each picture must exist.
manual=$root/usr/share/doc/tarnwick/html
for link in $(grep -o 'href="#[^"]*"' "$manual/index.html" | cut -d'"' -f2 | sort -u); do
  grep -q "id=\"${link#\#}\"" "$manual/index.html" || { echo "Dead link in the manual: $link"; exit 1; }
done
for picture in $(grep -o 'src="[^"]*"' "$manual/index.html" | cut -d'"' -f2); do
  [ -s "$manual/$picture" ] || { echo "Missing picture: $picture"; exit 1; }
done
(! grep -o 'href="[^"#]*\.md[^"]*"' "$manual/index.html")

# The program must run until `timeout` ends it, print nothing, and store its settings at the end.
export HOME="$root/home" QT_QPA_PLATFORM=offscreen XDG_DATA_DIRS="$root/usr/share:/usr/share"
export XDG_RUNTIME_DIR="$root/run"
unset XDG_CONFIG_HOME XDG_DATA_HOME
mkdir "$HOME"
mkdir -m 700 "$XDG_RUNTIME_DIR"
command=$(sed -n 's/^Exec=//p' "$entry")
ended=0
PATH="$root/usr/bin:$PATH" timeout 10 ${emulator:+"$emulator"} "$root/usr/bin/$command" \
  2>"$root/messages" || ended=$?
[ "$ended" = 124 ]
(! grep . "$root/messages")
[ -s "$HOME/.config/Tarnwick/Tarnwick.ini" ]
echo "$package is in order"
