#!/usr/bin/env bash
# Edited messages decode to what was encoded; what cannot be edited is refused.
#     edit_test.sh EDIT_MESSAGE EDIT_SLIDES PICTURE FIXTURES
set -euo pipefail
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
for name in related mixed; do
  "$1" "$4/$name.mms" "$out/$name.mms" | grep -q '^decoded again: .* [45] parts'
  ! cmp -s "$4/$name.mms" "$out/$name.mms"
done
"$2" "$4/related.mms" "$3" "$out/slides.mms" | grep -q 'with 3 slides and 5 parts$'
if "$1" "$4/notification.mms" "$out/none.mms" >/dev/null; then
  echo "a message without parts was edited" >&2
  exit 1
fi
if "$2" "$4/mixed.mms" "$3" "$out/none.mms" >/dev/null; then
  echo "a message without slides was edited" >&2
  exit 1
fi
[ ! -e "$out/none.mms" ]
