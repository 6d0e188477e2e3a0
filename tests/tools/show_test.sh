#!/usr/bin/env bash
# `qvlmms show` prints the .txt and the .json beside each message, except for the time of decoding. Its
# exit code is 1 if the expected text has a refusal, else 0.
#     show_test.sh QVLMMS FIXTURES
set -euo pipefail
qvlmms=$1
source "$(dirname "$0")/../support/script.sh"
export TZ=UTC
without_now() {
  sed -E 's/[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9:]{8}Z( \(when it was decoded\))/NOW\1/; s/("Date":)"[^"]*"/\1"NOW"/'
}

failed=0
show() { # NAME ARGUMENT...: compares with the fixture of that name
  local name=$1 code=0
  shift
  "$qvlmms" show "$@" >"$work/shown" || code=$?
  without_now <"$work/shown" >"$work/$name"
  diff -u "$name" "$work/$name" || failed=1
  local refused=0
  ! grep -qE '^  REFUSED|"refused":true' "$name" || refused=1
  [ "$code" -eq "$refused" ] || { echo "$name: exit code $code"; failed=1; }
}

cd "$2/show"
for message in *.mms; do
  show "${message%.mms}.txt" "$message"
  show "${message%.mms}.json" --json "$message"
  if LC_ALL=C grep -qP '[\x00-\x09\x0b-\x1f\x7f]|\xc2[\x80-\x9f]|\xe2\x80[\xaa-\xae]' "$work/shown"; then
    echo "$message: a control character reached the terminal"
    failed=1
  fi
done
"$qvlmms" show - <related.mms | without_now | tail -n +2 | diff - <(tail -n +2 related.txt) || failed=1

# Files that are processed in parallel are printed in their order.
for format in "" --json; do
  "$qvlmms" show $format *.mms | without_now >"$work/one" || true
  "$qvlmms" show $format --jobs 3 *.mms | without_now >"$work/three" || true
  diff "$work/one" "$work/three" || failed=1
done
for jobs in 0 257 two; do
  code=0
  "$qvlmms" show --jobs "$jobs" related.mms 2>"$work/error" || code=$?
  [ "$code" -eq 2 ] && grep -q -- "--jobs $jobs: a number from 1 to 256 is expected" "$work/error" || { echo "--jobs $jobs: exit code $code"; failed=1; }
done
exit "$failed"
