#!/bin/sh
# check.sh [PRESET]: makes the Debian package from the build of a preset (`release` if none is named)
# and checks it.
set -eu
cd "$(dirname "$0")/.."
preset=${1:-release}

packaging/install.sh run package
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset"
rm -f build/"$preset"/tarnwick_*.deb
(cd build/"$preset" && cpack)
package=$(echo build/"$preset"/tarnwick_*.deb)
packaging/check_package.sh "$package"
