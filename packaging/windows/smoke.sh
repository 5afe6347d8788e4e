#!/bin/sh
# Tries the program for Windows under Wine, on a screen of its own and with a drive c: of its own,
# beside the one for Linux: all journeys, many places, a long listing, then the windows by keys and
# mouse. What the windows show is copied out of their fields and must be what the journey driver
# shows on Linux for the same actions. The pictures stay in build/smoke.
set -eu
cd "$(dirname "$0")/../.."
root=$PWD

packaging/install.sh run test windows wine
packaging/windows/build.sh
cmake --preset ci >/dev/null
cmake --build --preset ci

work=$root/build/smoke
rm -rf "$work"
mkdir -p "$work/home"
export HOME="$work/home" WINEPREFIX="$work/prefix" WINEDLLOVERRIDES='mscoree,mshtml=' WINEDEBUG=-all
export LC_ALL=C.UTF-8
unset WAYLAND_DISPLAY

fail() {
  import -window root "$work/failed.png" || true
  echo "FAILED: $*" >&2
  exit 1
}
same() {
  [ "$2" = "$3" ] || fail "$1: expected '$2', found '$3'"
  printf '%s: %s\n' "$1" "$3"
}
# Tries a command again until it succeeds, for half a minute at most.
wait_for() {
  for _ in $(seq 150); do
    "$@" >/dev/null 2>&1 && return
    sleep 0.2
  done
  fail "waited in vain for: $*"
}

# ---- a screen, a system, and what ends them

socat_id=
end() {
  [ -z "$socat_id" ] || kill "$socat_id" 2>/dev/null || true
  wineserver -k 2>/dev/null || true
  kill "$window_manager" "$screen" 2>/dev/null || true
}
Xvfb -displayfd 3 -screen 0 1280x900x24 -noreset -nolisten tcp 3>"$work/display" 2>/dev/null &
screen=$!
trap 'kill "$screen"' EXIT
wait_for test -s "$work/display"
DISPLAY=:$(cat "$work/display")
export DISPLAY
openbox >/dev/null 2>&1 &
window_manager=$!
trap end EXIT
trap 'exit 1' INT TERM
# One server from here to the end, so that each start is quick.
mkdir "$WINEPREFIX"
wineserver -p 2>/dev/null
wineboot -i 2>/dev/null
c=$WINEPREFIX/drive_c

# ---- the logic: every journey, and numbers to the last digit

# Runs the actions with both drivers, from the same contents of the folder, and prints the Windows output.
cat >"$work/both" <<TEXT
#!/bin/sh
set -eu
mkdir "$work/journey"
cat >"$work/journey/actions"
cp -a . "$work/journey/before"
"$root/build/ci/journey" <"$work/journey/actions" >"$work/journey/linux"
cp -a . "$work/journey/after"
find . -mindepth 1 -delete
cp -a "$work/journey/before/." .
wine "$root/build/windows/journey.exe" <"$work/journey/actions" >"$work/journey/windows"
cmp "$work/journey/linux" "$work/journey/windows" >&2
diff -r "$work/journey/after" . >&2
cat "$work/journey/windows"
rm -r "$work/journey"
TEXT
chmod +x "$work/both"
for journey in tests/journeys/*.journey; do
  wine build/windows/journey.exe <"$journey" | cmp - "$journey" || fail "$journey goes another way"
done

# 20,000 typed places in five forms, and a database of 100,000 sites.
mkdir -p "$work/places/geog"
awk -v folder="$work/places" 'function letter(n) { return substr("ABCDEFGHIJKLMNOPQRSTUVWX", 1 + int(rand() * n), 1) }
  function digits(n, text) { text = ""; while (n-- > 0) text = text int(rand() * 10); return text }
  function square() { return substr("SUTQNNNYSHSKHUTMSVNJ", 1 + 2 * int(rand() * 10), 2) }
  function locator(pairs, text) {
    text = letter(18) letter(18) digits(2) letter(24) letter(24)
    return pairs > 3 ? text digits(2) : text
  }
  BEGIN {
    srand(1)
    print "home " folder "\nstart\ntype io91wm\nenter\nclick SetHome"
    for (i = 0; i < 20000; ++i) {
      if (i % 5 == 0) place = locator(3)
      if (i % 5 == 1) place = locator(4)
      if (i % 5 == 2) place = square() digits(6 + 2 * int(rand() * 3))
      if (i % 5 == 3) place = sprintf("%.6fN %.6f%s", 49 + 12 * rand(), 0.01 + 8 * rand(), rand() < 0.5 ? "E" : "W")
      if (i % 5 == 4) place = sprintf("%d %02d %04.1fS %d %02d %04.1fE", 1 + 89 * rand(), 60 * rand(), 59.9 * rand(), 179 * rand(), 60 * rand(), 59.9 * rand())
      print "type " place "\nenter\nshow"
    }
    print "type NN166712\nenter\nclick SetHome\nclick GenList\nset ListFileName c:\\\\geog\\\\LIST.TXT\nclick MakeList\nshow"
    for (i = 0; i < 100000; ++i)
      printf "Site %d~%s~somewhere\r\n", i, rand() < 0.4 ? locator(3 + int(rand() * 2)) : square() digits(6 + 2 * int(rand() * 3)) >(folder "/geog/Sites.dat")
    printf "ENDENDEND\r\n" >(folder "/geog/Sites.dat")
  }' >"$work/actions"
(cd "$work/places" && "$work/both" <"$work/actions" >/dev/null) || fail "digits differ"
same "rows of the long listing" 100000 "$(grep -c '^Site' "$work/places/geog/LIST.TXT")"

# ---- the windows

main="Sites, Distances and Bearings"
window_of() {
  xdotool search --onlyvisible --name "^$1" | head -1
}
is_shown() { [ -n "$(window_of "$1")" ]; }
is_gone() { [ -z "$(window_of "$1")" ]; }
to_front() {
  wait_for is_shown "$1"
  xdotool windowactivate --sync "$(window_of "$1")"
  sleep 0.3
}
keys() {
  xdotool key --delay 60 "$@"
  sleep 0.3
}
type_text() { xdotool type --delay 40 "$1"; }
paste() {
  printf %s "$1" | xclip -selection clipboard >/dev/null
  sleep 0.5
  keys ctrl+v
}
# The positions of the controls in the main window, in pixels from its upper left corner, as measured in
# the picture 1-home; a change of the layout moves them.
place_of() {
  case $1 in
    LocDatabase) echo 579 41 ;;
    InputText) echo 299 67 ;;
    LocText) echo 346 114 ;;
    NGRText) echo 553 114 ;;
    EastNorth) echo 553 143 ;;
    Gmap) echo 346 170 ;;
    OSMap) echo 553 170 ;;
    UseNMEA) echo 64 200 ;;
    LLText) echo 449 200 ;;
    LLfmt) echo 713 200 ;;
    SaveOnExit) echo 648 271 ;;
  esac
}
click() {
  # shellcheck disable=SC2046
  xdotool mousemove --window "$(window_of "$main")" $(place_of "$1") click 1
  sleep 0.5
}
picture() {
  sleep 0.5
  import -window root "$work/$1.png"
}
# How many pixels of a window have a colour.
pixels() {
  import -window "$(window_of "$1")" -depth 8 txt:- | grep -ci "#$2" || true
}
# The text of the field that has the focus; "none" if it is empty.
copied() {
  echo none | xclip -selection clipboard >/dev/null
  xdotool key --delay 60 ctrl+a ctrl+c
  for _ in $(seq 15); do
    text=$(timeout 2 xclip -selection clipboard -o || echo none)
    [ "$text" = none ] || break
    sleep 0.2
  done
  printf '%s\n' "$text"
}
# The same steps are journey actions; on_linux NAME is the value that a field or setting has then.
echo "home $work/twin" >"$work/actions"
step() { printf '%s\n' "$1" >>"$work/actions"; }
on_linux() {
  (cat "$work/actions" && echo show) | build/ci/journey |
    awk -v name="$1 " 'index(tolower($0), tolower(name)) == 1 { value = substr($0, length(name) + 1) }
      END { gsub(/\\\\/, "\\", value); print value }'
}
# Compares fields, each by a click in it, with the same ones on Linux.
check() {
  for name in "$@"; do
    click "$name"
    expected=$(on_linux "Tarnwick.$name.text")
    same "$name" "${expected:-none}" "$(copied)"
  done
}
setting() {
  wine reg query "HKCU\\Software\\Tarnwick\\$1" /v "$2" 2>/dev/null | tr -d '\r' |
    sed -n "s/^ *$2 *REG_SZ    //p"
}
check_setting() {
  same "Setting $1 $2" "$(on_linux "Setting $1 $2")" "$(setting "$1" "$2")"
}
start() {
  wine build/windows/tarnwick.exe 2>/dev/null &
  program=$!
  to_front "$main"
  sleep 1
}
has_ended() { ! kill -0 "$program" 2>/dev/null; }
# The fonts that Windows has and Wine lacks.
for font in Tahoma 'Segoe UI' 'Lucida Console'; do
  like='DejaVu Sans'
  [ "$font" != 'Lucida Console' ] || like='DejaVu Sans Mono'
  wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /f /v "$font" /d "$like" >/dev/null 2>&1
done
# The viewers of images and web addresses record their arguments.
for kind in jpegfile https; do
  wine reg add "HKLM\\Software\\Classes\\$kind\\shell\\open\\command" /f /ve \
    /d "cmd /c echo %1>>c:\\opened.txt" >/dev/null 2>&1
  wine reg delete "HKLM\\Software\\Classes\\$kind\\shell\\open\\ddeexec" /f >/dev/null 2>&1 || true
done
wine reg add 'HKLM\Software\Classes\.jpg' /f /ve /d jpegfile >/dev/null 2>&1
for drive in "$c" "$work/twin"; do
  mkdir -p "$drive/geog" "$drive/OS_Maps"
  cp data/Sites.dat "$drive/geog/Sites.dat"
  touch "$drive/OS_Maps/NN17.jpg"
done

# A first place, a home station, a bearing.
start
step start
same "Setting of a fresh drive" "" "$(setting Home Lat)"
same "red in a fresh window" 0 "$(pixels "$main" FF0000)"
type_text io91wm
keys Return
step 'type io91wm'
step enter
check LocText NGRText EastNorth LLText
[ "$(pixels "$main" FF0000)" -gt 20 ] || fail "what was calculated is not red"
is_gone "Home Station" || fail "the Pointing window came too early"
keys alt+s
step 'click SetHome'
wait_for is_shown "Home Station"
[ "$(pixels "$main" FFC0FF)" -gt 1000 ] || fail "the banner of the home station is not pink"
picture 1-home
to_front "$main"
click InputText
step 'click InputText'
same "the input box after a click" none "$(copied)"
type_text NN166712
keys Return
step 'type NN166712'
step enter
check LocText NGRText EastNorth LLText
to_front "Home Station"
xdotool mousemove --window "$(window_of 'Home Station')" 160 57 click 1
same BearText "$(on_linux BearingCalc.BearText.text)" "$(copied)"
picture 2-bearing

# Texts with letters beyond ASCII, in both directions, and the formats.
to_front "$main"
click InputText
step 'click InputText'
paste "51°30'15\"N, 1°15'30\"W"
keys Return
step "type 51°30'15\"N, 1°15'30\"W"
step enter
check LocText NGRText EastNorth LLText
click LLfmt
step 'click LLfmt'
check LLText

# Sites: the first that matches, the list, a pick from it.
click InputText
step 'click InputText'
type_text 'ben nevis'
keys Return
step 'type ben nevis'
step enter
check LocText NGRText EastNorth LLText
click InputText
step 'click InputText'
type_text snowdon
keys alt+l
step 'type snowdon'
step 'click Lookup'
to_front 'Tarnwick$'
picture 3-results
keys Down Return
step 'pick 0'
to_front 'Tarnwick$'
keys alt+F4
step 'frame ShowList'
wait_for is_gone 'Tarnwick$'
to_front "$main"
check LocText NGRText EastNorth LLText

# Maps: the sheet of the place, and the address.
click InputText
step 'click InputText'
type_text NN166712
keys Return
step 'type NN166712'
step enter
opened() { tr -d '\r"' <"$c/opened.txt" 2>/dev/null | tail -1 | sed 's/ *$//'; }
holds_opened() { [ "$(opened)" = "$1" ]; }
shelled() { on_linux Shell | sed 's/^cmd \/c  start //'; }
click Gmap
step 'click Gmap'
map=$(shelled)
wait_for holds_opened "$map"
same "the web map" "$map" "$(opened)"
click OSMap
step 'click OSMap'
map=$(shelled)
wait_for holds_opened "$map"
same "the map sheet" "$map" "$(opened)"

# A listing with the limits, and the viewer.
keys alt+m
step 'click GenList'
picture 4-listing
keys Return
step 'click MakeList'
wait_for is_shown 'SITELIST.TXT - Notepad'
picture 5-viewer
same "what Linux starts" 'Notepad.exe c:\geog\SITELIST.TXT' "$(on_linux Shell)"  # and writes it
cmp "$work/twin/geog/SITELIST.TXT" "$c/geog/SITELIST.TXT" || fail "the listings differ"
echo "the listing: $(wc -l <"$c/geog/SITELIST.TXT") lines, the same"
to_front SITELIST
keys alt+F4

# A missing database: the message box, and the run goes on.
to_front "$main"
click LocDatabase
keys ctrl+a
type_text 'c:\nowhere\Sites.dat'
step 'set LocDatabase c:\\nowhere\\Sites.dat'
click InputText
step 'click InputText'
type_text moor
keys Return
step 'type moor'
step enter
wait_for is_shown 'Tarnwick$'
picture 6-message
same "the message" 'MsgBox Site datbase not found' "MsgBox $(on_linux MsgBox)"
keys Return
wait_for is_gone 'Tarnwick$'
check LocText NGRText EastNorth LLText

# The end by the frame, with the home station kept; the next start brings it back.
to_front "$main"
click SaveOnExit
step 'tick SaveOnExit'
keys alt+F4
step close
wait_for has_ended
for name in 'Home Lat' 'Home Long' 'LocDB DB' 'CPort Baud' 'CPort CP'; do
  check_setting ${name% *} ${name#* }
done
setting FormPLace Left | grep -qx -- ' *-\{0,1\}[0-9.]*' || fail "no place was stored"
start
step start
wait_for is_shown "Home Station"
check LocText NGRText EastNorth LLText
check LocDatabase
picture 7-restored

# A receiver at COM9, over a pseudo terminal.
mkfifo "$work/line"
socat -u "PIPE:$work/line" "PTY,link=$work/receiver,rawer" 2>/dev/null &
socat_id=$!
exec 4>"$work/line"
wait_for test -e "$work/receiver"
ln -sfn "$work/receiver" "$WINEPREFIX/dosdevices/com9"
to_front "$main"
click InputText
click UseNMEA
wait_for is_shown 'GPS / NMEA'
to_front 'GPS / NMEA'
keys ctrl+a
type_text COM9
keys Tab ctrl+a
type_text 4800
keys Tab
picture 8-set-up
keys space
wait_for is_gone 'GPS / NMEA'
printf '$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A\r\n' >&4
sleep 2
to_front "$main"
same "the receiver's place" '48 07.038N 011 31.000E [ 12:35:19 UTC ]' "$(copied)"
picture 9-receiver
kill "$socat_id"
socat_id=
sleep 1
click UseNMEA
wait_for is_shown 'GPS / NMEA'

# The end of the session stores as the frame does.
to_front "$main"
click LocDatabase
keys ctrl+a
type_text 'c:\geog\Sites.dat'
timeout 60 wine wineboot -e 2>/dev/null || true
wait_for has_ended
same "the database at the end of the session" 'c:\geog\Sites.dat' "$(setting LocDB DB)"

echo "All is well; the pictures are in build/smoke."
