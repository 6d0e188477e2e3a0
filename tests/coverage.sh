#!/usr/bin/env bash
# Line and branch coverage of the library by the tests, see coverage_report.sh.
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
exec tests/coverage_report.sh "$build"
