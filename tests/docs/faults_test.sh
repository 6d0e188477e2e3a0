#!/usr/bin/env bash
# What is wrong with a document is found: the problems of faulty.md are those in faulty.problems.
#     faults_test.sh SOURCE_DIR BUILD_DIR
set -euo pipefail
source "$(dirname "$0")/../support/script.sh"
here=$1/tests/docs
result=0
"$here/blocks_test.py" "$1" "$2" "$here/faulty.md" >"$work/said" || result=$?
[ "$result" -ne 77 ] || { cat "$work/said"; exit 77; }
grep '^tests/docs/faulty.md:' "$work/said" | diff -u "$here/faulty.problems" - \
  || fail "other problems are found"
