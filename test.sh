#!/bin/sh
# Installs what is missing, builds with warnings as errors and runs the tests. With --deep instead
# the long ones too, under the sanitizers and without Qt, with the fuzz targets, the coverage, the
# Debian package and the checks of style.
set -eu
cd "$(dirname "$0")"

purposes="run test"
deep=
if [ "${1:-}" = --deep ]; then
  deep=yes
  purposes="$purposes deep package bench"
fi
# shellcheck disable=SC2086
packaging/install.sh $purposes

# build_and_test PRESET [WHICH-TESTS]
build_and_test() {
  cmake --preset "$1" -DTARNWICK_TESTS=ON
  cmake --build --preset "$1"
  ctest --preset "$@"
}

if [ -z "$deep" ]; then
  build_and_test release
  exit
fi

# Leaks are not looked for: the libraries under Qt keep some at the exit.
export ASAN_OPTIONS=detect_leaks=0 TARNWICK_DEEP=yes
build_and_test release
build_and_test sanitize
build_and_test logic
build_and_test fuzz -R fuzz_
tests/coverage.sh
cmake --preset bench && cmake --build --preset bench
packaging/check.sh
sources=$(git ls-files '*.cpp' '*.h')
# shellcheck disable=SC2086
clang-format --dry-run --Werror $sources
git ls-files 'src/*.cpp' ':!src/platform/qt/windows' |
  xargs -P 2 -n 4 clang-tidy --quiet -p build/sanitize --extra-arg=-Wno-unknown-warning-option
