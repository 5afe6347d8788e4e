#!/bin/sh
# check_includes.sh SOURCE-FOLDER: fails if a folder of src includes a folder that the list below does
# not allow, or if files include each other in a cycle. Each line: a folder and what it may include
# besides itself.
set -eu
cd "$1"

allowed='
platform            workspace/values
workspace/values
workspace/record    workspace/values platform
geo                 workspace/values workspace/record
sites/database      workspace/values workspace/record
pointing            workspace/values workspace/record geo
workspace/commands  workspace/values workspace/record geo sites/database pointing
sites/lookup        workspace/values workspace/record sites/database workspace/commands
sites/listing       workspace/values workspace/record platform geo sites/database workspace/commands sites/lookup
gps                 workspace/values workspace/record platform workspace/commands
workspace/events    workspace/values workspace/record platform geo sites/database pointing workspace/commands sites/lookup sites/listing gps
platform/headless   workspace/values platform
platform/desktop    workspace/values workspace/record platform
platform/qt         workspace/values workspace/record platform platform/desktop sites/lookup sites/listing pointing gps workspace/events
.                   platform/desktop platform/qt
'

# "FILE INCLUDED-FILE", one line for each include of a header of ours.
includes=$(find . -name '*.cpp' -o -name '*.h' | sed 's|^\./||' | sort | xargs grep -H '^#include "' |
  sed 's|^\([^:]*\):#include "\(.*\)".*|\1 \2|')

wrong=$(printf '%s\n--\n%s\n' "$allowed" "$includes" | awk '
  function folder(path) { return path ~ /\// ? substr(path, 1, match(path, /\/[^\/]*$/) - 1) : "." }
  /^--$/ { rules = 1; next }
  !rules { for (i = 2; i <= NF; ++i) may[$1, $i] = 1; known[$1] = 1; next }
  {
    from = folder($1); to = folder($2)
    sub(/\/(linux|windows)$/, "", from)
    if (!(from in known)) print $1 ": the folder " from " is not in the list"
    else if (from != to && !((from, to) in may)) print $1 " must not include " $2
  }')
cycles=$(printf '%s\n' "$includes" | tsort 2>&1 >/dev/null | grep -v 'input contains a loop' || true)
[ -z "$wrong" ] || printf '%s\n' "$wrong"
[ -z "$cycles" ] || printf 'These files include each other in a cycle:\n%s\n' "$cycles"
qt=$(grep -rlE '^#include <Q' . | grep -vE '^\./(platform/(qt|desktop)/|main\.cpp)' || true)
[ -z "$qt" ] || printf 'Qt is included outside platform/qt, platform/desktop and main.cpp:\n%s\n' "$qt"
[ -z "$wrong$cycles$qt" ]
