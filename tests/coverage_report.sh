#!/usr/bin/env bash
# Prints line and branch coverage of the library from the profiles in BUILD/profiles. The full
# report, with the lines and branches that were not executed, is written to BUILD/report.txt.
#     tests/coverage_report.sh BUILD
set -euo pipefail
cd "$(dirname "$0")/.."

build=$1
libraries=("$build"/src/libqvlsmilparser-xscale-r.so -object "$build"/src/platform/libqvlplatform.so
  -object "$build"/src/platform/qvlsmilparser/clips.so.*)
llvm-profdata merge -o "$build"/all.profdata "$build"/profiles/*.profraw
llvm-cov show "${libraries[@]}" -instr-profile="$build"/all.profdata --show-branches=count src >"$build"/report.txt
llvm-cov report "${libraries[@]}" -instr-profile="$build"/all.profdata --show-region-summary=false src
