#!/bin/sh
# Counts the lines of src/ that the ordinary tests run, without platform/qt and platform/desktop, prints
# the others, and fails below 95 %.
set -eu
cd "$(dirname "$0")/.."
unset TARNWICK_DEEP

cmake --preset coverage -DTARNWICK_TESTS=ON >/dev/null
cmake --build --preset coverage --target tarnwick_tests
cd build/coverage
rm -f ./*.profraw
LLVM_PROFILE_FILE=$PWD/%m.profraw ctest >/dev/null
llvm-profdata merge -o all.profdata ./*.profraw
set -- ./tarnwick_tests -instr-profile=all.profdata -ignore-filename-regex='/tests/|^/usr/'
llvm-cov show "$@" -show-line-counts | awk '/^\// { file = $0 } /^ +[0-9]+\| +0\|/ { print file $0 }'
llvm-cov report "$@" | awk 'NR < 3 || /^TOTAL/
  /^TOTAL/ { share = $10 + 0 }
  END { printf "Lines run: %.2f %%\n", share; exit share < 95 }'
