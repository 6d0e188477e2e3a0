#!/usr/bin/env bash
# qvlmms show prints the same for 2,000 messages with eight threads as with one.
#     show_jobs_test.sh QVLMMS FIXTURES
set -euo pipefail
source "$(dirname "$0")/../support/script.sh"
qvlmms=$1 fixtures=$2
export QT_LOGGING_RULES='*=false'

mkdir "$work/messages"
sources=("$fixtures"/messages/*.mms "$fixtures"/show/*.mms)
for number in $(seq 2000); do
  source=${sources[number % ${#sources[@]}]}
  ln -s "$source" "$work/messages/$(printf %04d "$number").mms"
done

# Some of the messages are refused, which gives exit code 1.
show() { # OUTPUT OPTION...
  local output=$1 code=0
  shift
  "$qvlmms" show "$@" "$work"/messages/*.mms >"$output" 2>"$output.error" || code=$?
  [ "$code" -eq 1 ] || { head -n 100 "$output.error" >&2; fail "show $*: exit code $code"; }
  # The moment of decoding is the only difference between two runs.
  sed -i -E "s/$(date -u +%Y)-[0-9T:-]+Z/NOW/g" "$output"
}
for format in '' --json; do
  # shellcheck disable=SC2086
  show "$work/one" $format --jobs 1
  # shellcheck disable=SC2086
  show "$work/eight" $format --jobs 8
  for output in '' .error; do
    cmp "$work/one$output" "$work/eight$output" || fail "show $format --jobs 8 prints something else"
  done
done
