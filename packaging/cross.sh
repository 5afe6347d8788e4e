#!/bin/sh
# Builds the program and its Debian package for small boards on another machine, in build/ARCH, and
# runs the tests under emulation: cross.sh ARCH, where ARCH is arm64 (64-bit systems) or armhf
# (32-bit systems on ARMv7 and later processors). Exits with 77 where the packages for ARCH cannot be
# installed.
set -eu
cd "$(dirname "$0")/.."

arch=${1:-}
case $arch in
  arm64) emulator=qemu-aarch64-static ;;
  armhf) emulator=qemu-arm-static ;;
  *) echo "usage: cross.sh arm64|armhf" >&2; exit 2 ;;
esac
build=build/$arch

packaging/install.sh --target "$arch" run test package cross || {
  echo "The packages for $arch cannot be installed here; nothing was built or tested for it." >&2
  exit 77
}
rm -f "$build"/tarnwick_*.deb
cmake -S . -B "$build" -G Ninja --toolchain "$PWD/packaging/cross/$arch.cmake" \
  -DCMAKE_CROSSCOMPILING_EMULATOR="$emulator" -DCMAKE_BUILD_TYPE=Release \
  -DTARNWICK_TESTS=ON -DTARNWICK_WERROR=ON
cmake --build "$build"
# The long tests are for the machine itself.
env -u TARNWICK_DEEP ctest --test-dir "$build" --output-on-failure --parallel "$(nproc)" --timeout 600

(cd "$build" && cpack)
packaging/check_package.sh "$build"/tarnwick_*_"$arch".deb "$emulator"
