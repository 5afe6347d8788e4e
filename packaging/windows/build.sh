#!/bin/sh
# Installs what is missing and builds, for 64-bit Windows, build/windows/tarnwick.exe (one file, Qt
# in it), journey.exe and the zip to give away. The first run builds Qt into a cache; with another
# static Qt: TARNWICK_QT=FOLDER build.sh
set -eu
cd "$(dirname "$0")/../.."

packaging/install.sh windows
qt=${TARNWICK_QT:-${XDG_CACHE_HOME:-$HOME/.cache}/tarnwick/qt-windows}
[ -n "${TARNWICK_QT:-}" ] || packaging/windows/qt.sh "$qt"

cmake -S . -B build/windows -G Ninja -DCMAKE_TOOLCHAIN_FILE="$qt/lib/cmake/Qt6/qt.toolchain.cmake" \
  -DCMAKE_BUILD_TYPE=Release
cmake --build build/windows
(cd build/windows && cpack)
