#!/usr/bin/env bash
# `qvlmms render` needs no display, reports what it wrote, and refuses messages that it cannot render.
#     render_test.sh QVLMMS FIXTURES
set -euo pipefail
qvlmms=$1
source "$(dirname "$0")/../support/script.sh"
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM

size_in() { # FILE: prints the width and height in the header of the PNG
  printf '%dx%d' "0x$(od -An -tx1 -j16 -N4 "$1" | tr -d ' ')" "0x$(od -An -tx1 -j20 -N4 "$1" | tr -d ' ')"
}

"$qvlmms" render "$2/messages/related.mms" "$work/deep/pictures" >"$work/printed" 2>"$work/error"
[ ! -s "$work/error" ] || fail "printed on standard error: $(cat "$work/error")"
[ "$(ls "$work/deep/pictures")" = "$(printf 'contact-sheet.png\nslide-1.png\nslide-2.png')" ] || fail "wrong files"
for name in contact-sheet slide-1 slide-2; do
  file=$work/deep/pictures/$name.png
  [ "$(head -c 8 "$file" | od -An -tx1 | tr -d ' ')" = 89504e470d0a1a0a ] || fail "$name is not a PNG"
  grep -qxF "wrote $file ($(size_in "$file"))" "$work/printed" || fail "did not report $name"
done
[ "$(wc -l <"$work/printed")" -eq 3 ] || fail "reported more than the files"

cp "$work/deep/pictures/slide-1.png" "$work/double.png"
for scale in 1 4 8; do
  "$qvlmms" render --scale "$scale" - "$work/deep/pictures" <"$2/messages/related.mms" >/dev/null
  width=$(size_in "$work/deep/pictures/slide-1.png")
  [ "${width%x*}" -eq $((120 * scale)) ] || fail "scale $scale gives $width"
done
"$qvlmms" render "$2/messages/related.mms" "$work/deep/pictures" >/dev/null
cmp "$work/double.png" "$work/deep/pictures/slide-1.png" || fail "did not replace an existing picture"

thumbnail=$work/thumbnail.png
"$qvlmms" render --thumbnail 128 "$2/messages/related.mms" "$thumbnail" >"$work/printed"
grep -qxF "wrote $thumbnail ($(size_in "$thumbnail"))" "$work/printed" || fail "did not report the thumbnail"
[ "$(size_in "$thumbnail")" = 96x128 ] || fail "the thumbnail is as large as $(size_in "$thumbnail")"
"$qvlmms" render --thumbnail 128 "$2/messages/related.mms" - | cmp - "$thumbnail" || fail "standard output differs"

"$qvlmms" compose -o "$work/long.mms" --to 1 --text "$(printf 'word %.0s' {1..99})" >/dev/null
"$qvlmms" render --width 900 "$work/long.mms" "$work/long" >"$work/printed" 2>"$work/error"
grep -qxF 'qvlmms: slide 1: the text slide1.txt does not fit; see contact-sheet.png' "$work/error" \
  || fail "does not report a long text"
[[ "$(size_in "$work/long/contact-sheet.png")" == 900x* ]] || fail "the sheet has another width"
"$qvlmms" render --max-slides 1 "$2/messages/related.mms" "$work/long" 2>&1 >/dev/null \
  | grep -q '^qvlmms: slides that were not rendered: 1, from slide 2 on' || fail "does not report a limit"

refuse() { # CODE PATTERN ARGUMENT...
  local code=$1 pattern=$2 actual=0
  shift 2
  "$qvlmms" render "$@" >"$work/out" 2>"$work/error" || actual=$?
  [ "$actual" -eq "$code" ] && grep -qE -- "$pattern" "$work/error" || fail "$*: $actual, $(cat "$work/error")"
}
for scale in 0 9 -1 2.5 two '' 99999999999; do
  refuse 2 "^qvlmms: --scale $scale: a number from 1 to 8 is expected\$" "--scale=$scale" "$2/messages/related.mms" "$work/none"
done
for width in 99 3001 wide; do
  refuse 2 "^qvlmms: --width $width: a number from 100 to 3000 is expected\$" "--width=$width" "$2/messages/related.mms" "$work/none"
done
refuse 2 '^qvlmms: --thumbnail 0: a number from 1 to 1024 is expected$' --thumbnail 0 "$2/messages/related.mms" "$work/none"
refuse 2 '^qvlmms: --thumbnail determines the size; leave out --scale and --width$' \
  --thumbnail 9 --width 200 "$2/messages/related.mms" "$work/none"
refuse 1 'notification.mms: the message has no slides; ' --thumbnail 9 "$2/messages/notification.mms" "$work/none"
refuse 2 'too few arguments: DIR is missing$' "$2/messages/related.mms"
refuse 2 'cannot read .*/missing.mms: there is no such file' "$work/missing.mms" "$work/none"
refuse 1 'notification.mms: the message has no slides; qvlmms show lists its contents$' "$2/messages/notification.mms" "$work/none"
refuse 1 'REFUSED' "$2/show/smil-not-well-formed.mms" "$work/none"
refuse 1 'REFUSED' "$2/show/truncated-body.mms" "$work/none"
refuse 2 'cannot create the folder .*/none: .*/double.png is a file; name another folder$' "$2/messages/related.mms" "$work/double.png/none"
[ ! -e "$work/none" ] || fail "created a folder without a picture"
mkdir -p "$work/taken/slide-2.png"
refuse 2 'cannot write .*/slide-2.png: ' "$2/messages/related.mms" "$work/taken"
[ "$(ls "$work/taken")" = "$(printf 'slide-1.png\nslide-2.png')" ] || fail "left an incomplete file"
