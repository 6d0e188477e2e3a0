#!/usr/bin/env bash
# Line and branch coverage of the library by the tests. The full report goes to
# build/coverage/report.txt, with the lines and branches that no test takes.
#     tests/coverage.sh [CTEST_ARGUMENT...]
set -euo pipefail
cd "$(dirname "$0")/.."

build=build/coverage
cmake --preset coverage --log-level=WARNING >/dev/null
cmake --build --preset coverage -- --quiet
rm -rf "$build"/profiles
LLVM_PROFILE_FILE="$PWD/$build/profiles/%8m.profraw" ctest --preset coverage "$@" >"$build"/tests.log 2>&1 || {
  grep -v ' Passed ' "$build"/tests.log
  exit 1
}
llvm-profdata merge -o "$build"/tests.profdata "$build"/profiles/*.profraw
libraries=("$build"/src/libqvlsmilparser-xscale-r.so -object "$build"/src/platform/libqvlplatform.so)
llvm-cov show "${libraries[@]}" -instr-profile="$build"/tests.profdata --show-branches=count src >"$build"/report.txt
llvm-cov report "${libraries[@]}" -instr-profile="$build"/tests.profdata --show-region-summary=false src
