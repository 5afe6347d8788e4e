#!/bin/sh
# cross.sh ARCH: cross-compiles the program and its Debian package for small boards in build/ARCH
# and runs the tests under emulation. ARCH is arm64 (64-bit systems) or armhf (32-bit systems on ARMv7
# and later processors).
# If Qt for ARCH cannot be installed, builds and tests only the logic, makes no package, and exits
# with status 77.
set -eu
cd "$(dirname "$0")/.."

arch=${1:-}
case $arch in
  arm64) emulator=qemu-aarch64-static libraries=/usr/aarch64-linux-gnu ;;
  armhf) emulator=qemu-arm-static libraries=/usr/arm-linux-gnueabihf ;;
  *) echo "usage: cross.sh arm64|armhf" >&2; exit 2 ;;
esac
build=build/$arch

desktop=ON
packaging/install.sh --target "$arch" run test package cross || {
  desktop=OFF
  # The libraries that come with the cross compiler.
  export QEMU_LD_PREFIX=$libraries
  packaging/install.sh run test
  packaging/install.sh --target "$arch" cross
}

rm -f "$build"/tarnwick_*.deb
cmake -S . -B "$build" -G Ninja --toolchain "$PWD/packaging/cross/$arch.cmake" \
  -DCMAKE_BUILD_TYPE=Release -DTARNWICK_DESKTOP="$desktop" -DTARNWICK_TESTS=ON -DTARNWICK_WERROR=ON \
  -DCMAKE_CROSSCOMPILING_EMULATOR="$emulator"
cmake --build "$build"
# No long tests under emulation. A test that needs a system call that the emulator lacks is skipped
# with a message.
env -u TARNWICK_DEEP TARNWICK_EMULATED=yes \
  ctest --test-dir "$build" --output-on-failure --parallel "$(nproc)" --timeout 600

if [ "$desktop" = OFF ]; then
  echo "Qt for $arch cannot be installed here: the logic alone was tested, no package was made." >&2
  exit 77
fi
(cd "$build" && cpack)
packaging/check_package.sh "$build"/tarnwick_*_"$arch".deb "$emulator"
