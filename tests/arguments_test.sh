#!/usr/bin/env bash
# Each script of the root explains itself with --help, and refuses unknown arguments before it does
# anything.
#     arguments_test.sh SOURCE_DIR
set -euo pipefail
source "$(dirname "$0")/support/script.sh"
for script in setup demo check .ci/run; do
  "$1/$script" --help >"$work/help"
  grep -q "\./$(sed 's/.*run/check/' <<<"$script") " "$work/help" || fail "$script --help does not show its usage"
  for arguments in --nonsense '--help --nonsense' nonsense; do
    code=0
    # shellcheck disable=SC2086
    "$1/$script" $arguments >"$work/printed" 2>"$work/error" || code=$?
    [ "$code" -eq 2 ] && [ ! -s "$work/printed" ] && grep -q '^usage: ' "$work/error" \
      || fail "$script $arguments: exit code $code"
  done
done
