#!/bin/sh
# test.sh          builds with warnings as errors and runs the tests.
# test.sh --deep   runs the long tests as well, then everything under the sanitizers, the logic without
#                  Qt, the fuzz targets, the coverage, the packages and the checks of style.
# test.sh --cross  builds and tests the program for small boards with 64-bit and 32-bit ARM processors.
# Each form first installs missing Debian packages with apt-get.
set -eu
cd "$(dirname "$0")"

# step DESCRIPTION COMMAND...: prints one line, runs the command and prints how long it took.
step() {
  printf '\n== %s\n' "$1"
  shift
  begin=$(date +%s)
  "$@"
  echo "== done in $(($(date +%s) - begin)) s"
}

# build_and_test PRESET [CMAKE-OPTION...]
build_and_test() {
  preset=$1
  cmake --preset "$@" >/dev/null
  cmake --build --preset "$preset"
  ctest --preset "$preset"
}

check_scripts() {
  git ls-files -z '*.sh' .ci/run | xargs -0 shellcheck --severity=warning
}
check_format() {
  git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format --dry-run --Werror
}
check_with_clang_tidy() {
  git ls-files -z 'src/*.cpp' ':!src/platform/desktop/windows' |
    xargs -0 -P 2 -n 4 clang-tidy --quiet -p build/sanitize --extra-arg=-Wno-unknown-warning-option
}

case ${1:-} in
  '')
    step "Packages: what a build with tests needs" packaging/install.sh run test
    step "ci: release build with warnings as errors, all ordinary tests" build_and_test ci
    ;;
  --deep)
    export TARNWICK_DEEP=yes
    step "Packages: what the deep run needs" packaging/install.sh run test deep package bench
    step "ci: release build with warnings as errors, the programs of bench, all tests, the long ones too" \
      build_and_test ci -DTARNWICK_BENCH=ON
    step "package: the Debian package of that build, judged by Debian's tools, installed and started" \
      packaging/check.sh ci
    step "sanitize: the same tests under the address and undefined-behaviour sanitizers" \
      build_and_test sanitize
    step "logic: no Qt, no code for one processor, the logic tests" build_and_test logic
    step "fuzz: clang, sanitizers and leak checks, the logic tests and the fuzz targets" \
      build_and_test fuzz
    step "coverage: the lines that the ordinary tests run" tests/coverage.sh
    step "style: shellcheck" check_scripts
    step "style: clang-format" check_format
    step "style: clang-tidy" check_with_clang_tidy
    ;;
  --cross)
    # Status 77: Qt for the architecture cannot be installed here, so only the logic was tested.
    for architecture in arm64 armhf; do
      step "cross: build, package and tests for $architecture under emulation" \
        sh -c "packaging/cross.sh $architecture || [ \$? = 77 ]"
    done
    ;;
  *)
    echo "test.sh [--deep | --cross]" >&2
    exit 1
    ;;
esac
