#!/usr/bin/env bash
# Edited messages decode to what was encoded; what is no message is refused.
#     edit_test.sh EDIT_MESSAGE FIXTURES
set -euo pipefail
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
for name in related mixed; do
  "$1" "$2/$name.mms" "$out/$name.mms" | grep -q '^decoded again: .* 4 parts'
  ! cmp -s "$2/$name.mms" "$out/$name.mms"
done
if "$1" "$2/notification.mms" "$out/none.mms" >/dev/null; then
  echo "a message without parts was edited" >&2
  exit 1
fi
[ ! -e "$out/none.mms" ]
