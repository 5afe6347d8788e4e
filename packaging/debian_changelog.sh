#!/bin/sh
# debian_changelog.sh CHANGELOG.md: prints the file in the format of a Debian changelog. In
# CHANGELOG.md each heading is "## VERSION - YYYY-MM-DD" and each entry is a list item.
set -eu
awk '
  function end() {
    if (date == "") return
    command = "LC_ALL=C date -u -R -d \"" date " 12:00\""
    command | getline stamp
    close(command)
    print "\n -- The Tarnwick authors <tarnwick@example.org>  " stamp
  }
  /^## / {
    end()
    if (date != "") print ""
    date = $4
    print "tarnwick (" $2 ") bookworm; urgency=medium\n"
  }
  date != "" && /^(\*|  )/ { print "  " $0 }
  END { end() }' "$1"
