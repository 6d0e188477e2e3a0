#!/usr/bin/env bash
# Edited messages decode to what was encoded; what cannot be edited is refused.
#     edit_test.sh EDIT_MESSAGE EDIT_SLIDES PICTURE FIXTURES
set -euo pipefail
source "$(dirname "$0")/../support/script.sh"
for name in related mixed; do
  "$1" "$4/$name.mms" "$work/$name.mms" | grep -q '^decoded again: .* [45] parts'
  ! cmp -s "$4/$name.mms" "$work/$name.mms"
done
"$2" "$4/related.mms" "$3" "$work/slides.mms" | grep -q 'with 3 slides and 5 parts$'
if "$1" "$4/notification.mms" "$work/none.mms" >/dev/null; then
  fail "a message without parts was edited"
fi
if "$2" "$4/mixed.mms" "$3" "$work/none.mms" >/dev/null; then
  fail "a message without slides was edited"
fi
[ ! -e "$work/none.mms" ]
