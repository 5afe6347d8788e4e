#!/bin/sh
# build.sh [CMAKE-OPTION...]: builds for 64-bit Windows, in build/windows: tarnwick.exe (one file that
# contains Qt) and the zip for users. The first run builds Qt into a cache folder. With another static Qt:
# TARNWICK_QT=FOLDER build.sh. Missing Debian packages are installed first, with apt-get.
set -eu
cd "$(dirname "$0")/../.."

packaging/install.sh windows
qt=${TARNWICK_QT:-${XDG_CACHE_HOME:-$HOME/.cache}/tarnwick/qt-windows}
[ -n "${TARNWICK_QT:-}" ] || packaging/windows/qt.sh "$qt"

cmake -S . -B build/windows -G Ninja -DCMAKE_TOOLCHAIN_FILE="$qt/lib/cmake/Qt6/qt.toolchain.cmake" \
  -DCMAKE_BUILD_TYPE=Release -DTARNWICK_WERROR=ON "$@"
cmake --build build/windows
(cd build/windows && cpack)
