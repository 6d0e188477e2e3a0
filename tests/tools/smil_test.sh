#!/usr/bin/env bash
# `qvlmms smil` on messages and on SMIL documents: the normalized text does not change when normalized
# again, --model prints the model, and a refusal reports the place of the error.
#     smil_test.sh QVLMMS FIXTURES
set -euo pipefail
qvlmms=$1
source "$(dirname "$0")/../support/script.sh"

"$qvlmms" smil "$2/messages/related.mms" >"$work/once.smil"
grep -qxF '<region id="text"  height="160"  width="120" left="0" top="0" />' "$work/once.smil" \
  || fail "the layout is not the handset's"
"$qvlmms" smil "$work/once.smil" >"$work/twice.smil"
cmp "$work/once.smil" "$work/twice.smil" || fail "the normalized text changes when normalized again"
"$qvlmms" smil - <"$work/once.smil" | cmp - "$work/once.smil" || fail "standard input differs"

"$qvlmms" smil --model "$2/messages/related.mms" >"$work/model"
grep -q '^  text src "cid:soon.txt" region "text".* part "soon.txt" text/plain 12$' "$work/model" \
  || fail "the model lacks the second text"

printf '<smil><body><par><img src="%s"/></par><par><img src="%s"/></par></body></smil>' sea.jpg SEA.JPG \
  >"$work/cases.smil"
"$qvlmms" smil --model "$work/cases.smil" >"$work/model"
[ "$(grep -c ' part "sea.jpg" image/jpeg 0$' "$work/model")" -eq 2 ] \
  || fail "sources that differ only in case do not show the same part"

refuse() { # CODE PATTERN FILE
  local code=0
  "$qvlmms" smil "$3" >"$work/out" 2>"$work/error" || code=$?
  [ "$code" -eq "$1" ] && grep -q "$2" "$work/error" || fail "$3: $code, $(cat "$work/error")"
  [ ! -s "$work/out" ] || fail "$3: printed a text although the input was refused"
}
refuse 1 'result -8), line 3, column [0-9]*: ' "$2/show/smil-not-well-formed.mms"
refuse 1 'there is a second body (result -11)' "$2/show/smil-second-body.mms"
printf '<smil>%s' "$(printf '<a>%.0s' {1..300})" >"$work/deep.smil"
refuse 1 'nested more than 256 levels deep' "$work/deep.smil"

# The model of a refused presentation has what was read before the error.
two_bodies='<smil><body><par dur="1s"><text src="a.txt"/></par></body><body><par/></body></smil>'
printf '%s' "$two_bodies" >"$work/two-bodies.smil"
for refused in "$2/show/smil-second-body.mms" "$work/two-bodies.smil"; do
  code=0
  "$qvlmms" smil --model "$refused" >"$work/model" 2>"$work/error" || code=$?
  [ "$code" -eq 1 ] && grep -q 'there is a second body (result -11)' "$work/error" \
    || fail "$refused: $code, $(cat "$work/error")"
  [ "$(grep -c '^slide ' "$work/model")" -eq 1 ] || fail "$refused: the model is $(cat "$work/model")"
done
grep -qx '  text src "a.txt" .* part "a.txt" text/plain 0' "$work/model" || fail "the model lacks its text"
