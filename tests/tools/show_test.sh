#!/usr/bin/env bash
# `qvlmms show` prints the .txt and the .json beside each message, except for the time of decoding, and
# with --strict the .strict. Its exit code is 1 if the expected text has a refusal, else 0.
#
# The messages of versions/ are annotated .octets: texts with the escapes of printf and a comment in each
# line.
#     show_test.sh QVLMMS FIXTURES
#     show_test.sh QVLMMS FIXTURES --write     rewrites the expected files; check every change
set -euo pipefail
qvlmms=$(realpath "$1")
mode=${3:-}
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
  [ "$mode" != --write ] || cp "$work/$name" "$expected/$name"
  diff -u "$expected/$name" "$work/$name" || failed=1
  local refused=0
  ! grep -qE '^  REFUSED|"refused":true' "$expected/$name" || refused=1
  [ "$code" -eq "$refused" ] || { echo "$name: exit code $code"; failed=1; }
}

show_message() { # FILE: as text and as JSON
  local name=${1%.mms}
  show "$name.txt" "$1"
  show "$name.json" --json "$1"
  if LC_ALL=C grep -qP '[\x00-\x09\x0b-\x1f\x7f]|\xc2[\x80-\x9f]|\xe2\x80[\xaa-\xae]' "$work/$name".{txt,json}; then
    echo "$1: a control character reached the terminal"
    failed=1
  fi
}
octets() { # FILE: prints the octets of an annotated file
  printf '%b' "$(sed -E 's/(^| +)# .*//' "$1" | tr -d '\n')"
}

fixtures=$(realpath "$2")
expected=$fixtures/versions
mkdir "$work/messages"
cd "$work/messages"
for file in "$expected"/*.octets; do
  name=$(basename "$file" .octets)
  octets "$file" >"$name.mms"
  show_message "$name.mms"
  show "$name.strict" --strict "$name.mms"
done
"$qvlmms" show --strict --json every-form.mms >"$work/strict" && failed=1
grep -qF '"refusedField":{"code":25,"name":"Retrieve-Status","offset":59,' "$work/strict" || failed=1

expected=$fixtures/show
cd "$expected"
for message in *.mms; do
  show_message "$message"
done
"$qvlmms" show - <related.mms | without_now | tail -n +2 | diff - <(tail -n +2 related.txt) || failed=1

# Files that are processed in parallel are printed in their order.
for format in "" --json; do
  "$qvlmms" show $format --jobs 1 *.mms | without_now >"$work/one" || true
  "$qvlmms" show $format --jobs 3 *.mms | without_now >"$work/three" || true
  diff "$work/one" "$work/three" || failed=1
done
for jobs in 0 257 two; do
  code=0
  "$qvlmms" show --jobs "$jobs" related.mms 2>"$work/error" || code=$?
  [ "$code" -eq 2 ] && grep -q -- "--jobs $jobs: a number from 1 to 256 is expected" "$work/error" || { echo "--jobs $jobs: exit code $code"; failed=1; }
done
exit "$failed"
