#!/bin/sh
# Tests the program for Windows under Wine, on a screen and with a drive c: of its own: the tests of the
# logic and of the windows, printed numbers beside those of Linux, then the zip as a user starts it.
# Pictures of the windows stay in build/smoke.
set -eu
cd "$(dirname "$0")/../.."
root=$PWD

packaging/install.sh windows wine
packaging/windows/build.sh -DTARNWICK_TESTS=ON
cmake --preset logic >/dev/null
cmake --build --preset logic --target journey

work=$root/build/smoke
rm -rf "$work"
mkdir -p "$work/home"
export HOME="$work/home" WINEPREFIX="$work/prefix" WINEDLLOVERRIDES='mscoree,mshtml=' WINEDEBUG=-all

fail() {
  import -window root "$work/failed.png" || true
  echo "FAILED: $*" >&2
  exit 1
}
# Tries a command again until it succeeds, for a minute at most.
wait_for() {
  for _ in $(seq 300); do
    "$@" >/dev/null 2>&1 && return
    sleep 0.2
  done
  fail "waited in vain for: $*"
}

# ---- a screen and a Wine of their own

Xvfb -displayfd 3 -screen 0 800x800x24 -noreset -nolisten tcp 3>"$work/display" 2>/dev/null &
screen=$!
line=
end() {
  wineserver -k 2>/dev/null || true
  kill $line "$screen"
}
trap end EXIT
trap 'exit 1' INT TERM
wait_for test -s "$work/display"
DISPLAY=:$(cat "$work/display")
export DISPLAY
openbox >/dev/null 2>&1 &
mkdir "$WINEPREFIX"
wineserver -p  # stays between the programs, so that each starts quickly
wineboot -i 2>/dev/null
c=$WINEPREFIX/drive_c
# Windows has these fonts; Wine does not.
for font in Tahoma 'Segoe UI' 'Lucida Console Mono'; do
  wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /f /v "${font% Mono}" \
    /d "DejaVu Sans${font#"${font% Mono}"}" >/dev/null 2>&1
done

# ---- the tests, and 20,000 places whose numbers must be those of Linux

tests() { timeout 120 wine "build/windows/$1.exe" --gtest_brief=1 --gtest_filter="$2" 2>&1; }
tests tarnwick_tests '*' || fail tarnwick_tests
# Each test of the windows is a process of its own, so that one that hangs fails alone. With an X
# window manager Wine reports places of windows late and a pixel off, which Windows doesn't do.
# Without one it activates no other window, which the keys need.
wine build/windows/qt_tests.exe --gtest_list_tests 2>/dev/null | tr -d '\r' |
  awk '/^[^ ]/ { suite = $1 } /^ / { print suite $1 }' >"$work/tests"
grep -q . "$work/tests" || fail "qt_tests"
failed=
while read -r name; do
  case $name in WindowsPlaces.*) managed=n ;; *) managed=y ;; esac
  wine reg add 'HKCU\Software\Wine\AppDefaults\qt_tests.exe\X11 Driver' /f /v Managed \
    /d $managed >/dev/null 2>&1
  tests qt_tests "$name" </dev/null >"$work/output" || { cat "$work/output"; failed="$failed $name"; }
done <"$work/tests"
[ -z "$failed" ] || fail "$failed"
echo "$(wc -l <"$work/tests") tests of the windows passed."

awk 'function letter() { return substr("abcdefghijklmnopqrstuvwx", 1 + int(24 * rand()), 1) }
  BEGIN {
    srand(1)
    print "start\ntype io91wm\nenter\nclick SetHome"
    for (i = 0; i < 20000; ++i) {
      if (i % 3 == 0) printf "type %.6fN %.6fW\n", 49 + 12 * rand(), 8 * rand()
      if (i % 3 == 1)
        printf "type %s%05d%05d\n", substr("SUTQNNNYSHSKHUTMSVNJ", 1 + 2 * int(10 * rand()), 2),
          100000 * rand(), 100000 * rand()
      if (i % 3 == 2)
        printf "type io%02d%s%s%02d\n", 100 * rand(), letter(), letter(), 100 * rand()
      print "enter\nshow"
    }
  }' >"$work/actions"
build/logic/journey <"$work/actions" >"$work/linux"
wine build/windows/journey.exe <"$work/actions" >"$work/windows"
cmp "$work/linux" "$work/windows" || fail "printed numbers differ"
echo "The same $(wc -l <"$work/linux") lines as on Linux."

# ---- the zip

# Remove what the tests left: open viewers, files and settings.
wineserver -k
rm -rf "$c/geog"
wineserver -p
wine reg delete 'HKCU\Software\Tarnwick' /f >/dev/null 2>&1 || true

(cd "$c" && cmake -E tar xf "$root"/build/windows/tarnwick-*-windows.zip)
folder=$(echo "$c"/tarnwick-*)
for file in README.txt geog/Sites.dat licences/Tarnwick.txt licences/Qt/LGPL-3.0-only.txt manual/index.html; do
  test -s "$folder/$file" || fail "missing in the zip: $file"
done
# Each picture of the manual and each of its own pages.
grep -oE '(src|href)="[^"#:]+' "$folder/manual/index.html" | cut -d'"' -f2 | while read -r file; do
  test -s "$folder/manual/$file" || fail "missing in the manual: $file"
done
main="Sites, Distances and Bearings"
windows() { xdotool search --onlyvisible --name "^$1"; }
is_gone() { ! windows "$1"; }
to_front() {
  wait_for windows "$1"
  xdotool windowactivate --sync "$(windows "$1" | head -1)"
  sleep 1
}
keys() { xdotool key --delay 100 "$@"; }
type_text() { xdotool type --delay 50 "$1"; }
picture() {
  sleep 1
  import -window root "$work/$1.png"
}
start() {
  wine "$folder/tarnwick.exe" 2>/dev/null &
  program=$!
  to_front "$main"
}
has_ended() { ! kill -0 "$program" 2>/dev/null; }
# From the input box back to Save Base on Exit, which is ticked.
tick_save() { keys shift+Tab shift+Tab space; }
# expect_setting SECTION NAME PATTERN: checks a value in the registry.
expect_setting() {
  value=$(wine reg query "HKCU\\Software\\Tarnwick\\$1" /v "$2" 2>/dev/null | tr -d '\r' |
    sed -n "s/^ *$2 *REG_SZ *//p")
  printf '%s\n' "$value" | grep -qx -- "$3" || fail "setting $1 $2 is '$value', not '$3'"
}

# Without a console the version is in a message box.
wine "$folder/tarnwick.exe" --version 2>/dev/null &
program=$!
to_front tarnwick
picture 0-version
keys Return
wait_for has_ended

# The first start: a site of the sample database as the home station, the manual, a listing.
wine reg add 'HKLM\Software\Classes\.html' /f /ve /d htmlfile >/dev/null 2>&1
wine reg add 'HKLM\Software\Classes\htmlfile\shell\open\command' /f /ve \
  /d 'cmd /c echo %1>c:\opened.txt' >/dev/null 2>&1
mkdir "$c/geog"  # for the listing
start
picture 1-start
type_text 'ben nevis'
keys Return alt+s
wait_for windows "Home Station"
to_front "$main"
tick_save
picture 2-home
keys F1
wait_for grep -q 'manual.index.html' "$c/opened.txt"
to_front "$main"
keys alt+m Return
to_front 'SITELIST.TXT - Notepad'
picture 3-listing
keys alt+F4
to_front "$main"
keys alt+F4
wait_for has_ended
expect_setting Home Lat '56\.79.*'
expect_setting Home Long '-5\.00.*'
expect_setting LocDB DB 'c:\\geog\\Sites.dat'
expect_setting FormPLace Left '-\{0,1\}[0-9][0-9.]*'

# The next start brings the home station back. A receiver at COM9 leads to another one, which the end of
# the session stores as the end of the program does.
start
wait_for windows "Home Station"
mkfifo "$work/line"
socat -u "PIPE:$work/line" "PTY,link=$work/receiver,rawer" 2>/dev/null &
line=$!
exec 4>"$work/line"
wait_for test -e "$work/receiver"
ln -sfn "$work/receiver" "$WINEPREFIX/dosdevices/com9"
to_front "$main"
tick_save
keys shift+Tab shift+Tab shift+Tab shift+Tab space  # back to Real Time GPS
to_front 'GPS / NMEA'
keys ctrl+a
type_text COM9
keys Tab ctrl+a
type_text 4800
picture 4-port
keys Return
wait_for is_gone 'GPS / NMEA'
# shellcheck disable=SC2016
printf '$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A\r\n' >&4
picture 5-receiver
to_front "$main"
keys alt+s
picture 6-home
timeout 60 wine wineboot -e 2>/dev/null || true
wait_for has_ended
expect_setting CPort CP COM9
expect_setting CPort Baud 4800
expect_setting Home Lat '48\.117.*'

echo "All is well; the pictures are in build/smoke."
