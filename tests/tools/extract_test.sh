#!/usr/bin/env bash
# `qvlmms extract` writes and reports every part. It changes no existing file, and nothing outside the
# folder.
#     extract_test.sh QVLMMS FIXTURES
set -euo pipefail
qvlmms=$1
source "$(dirname "$0")/../support/script.sh"

"$qvlmms" extract "$2/messages/mixed.mms" "$work/parts" >"$work/printed"
[ "$(ls "$work/parts")" = "$(printf 'anna.vcf\nharbour.jpg\nnotes.txt')" ] || fail "wrong files"
[ "$(cat "$work/parts/notes.txt")" = 'Two files for you.' ] || fail "wrong octets"
[ "$(grep -c '^wrote ' "$work/printed")" -eq 3 ] || fail "did not report what it wrote"

printf 'mine' >"$work/parts/notes.txt"
ln -s "$work/elsewhere" "$work/parts/notes_1.txt"
"$qvlmms" extract "$2/messages/mixed.mms" "$work/parts" >/dev/null
[ "$(cat "$work/parts/notes.txt")" = mine ] || fail "overwrote a file"
[ ! -e "$work/elsewhere" ] || fail "followed a link"
[ "$(cat "$work/parts/notes_2.txt")" = 'Two files for you.' ] || fail "did not number the name"

"$qvlmms" extract "$2/show/hostile-names.mms" "$work/deep/down" >"$work/printed"
[ "$(find "$work/deep" -type f | wc -l)" -eq "$(grep -c '^wrote ' "$work/printed")" ] || fail "lost a part"
[ "$(find "$work/deep" -type f | wc -l)" -eq "$(find "$work/deep/down" -type f | wc -l)" ] \
  || fail "left the folder"
[ -z "$(find "$work/deep" -name '.*')" ] || fail "hid a file"
