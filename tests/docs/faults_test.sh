#!/usr/bin/env bash
# The document test finds the problems of faulty.md that faulty.problems lists.
#     faults_test.sh SOURCE_DIR BUILD_DIR
set -euo pipefail
source "$(dirname "$0")/../support/script.sh"
here=$1/tests/docs
result=0
"$here/blocks_test.py" "$1" "$2" "$here/faulty.md" >"$work/printed" || result=$?
[ "$result" -ne 77 ] || { cat "$work/printed"; exit 77; }
grep '^tests/docs/faulty.md:' "$work/printed" | diff -u "$here/faulty.problems" - \
  || fail "the problems differ"
