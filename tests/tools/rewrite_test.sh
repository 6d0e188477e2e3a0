#!/usr/bin/env bash
# `qvlmms rewrite` preserves the content of a message. A mixed message gets a presentation. The writer
# cannot write the color of a root layout, so the color moves to the slides.
#     rewrite_test.sh QVLMMS FIXTURES
set -euo pipefail
qvlmms=$1
fixtures=$2
source "$(dirname "$0")/../support/script.sh"
failed=0

complain() {
  echo "$*" >&2
  failed=1
}
# All that show prints, except what rewriting changes: sizes, type of the body, SMIL part, colors.
content() { # FILE
  "$qvlmms" show "$1" | sed -E -e 1d -e '/^  (Date|Content-Type|Body) /d' -e '/application\/smil/d' \
    -e 's/^    +[0-9#]+ +//; s/, page #[0-9a-f]+//; s/, text size normal//; s/ \([a-z ]*\)(,|$)/\1/' \
    -e 's/ (shown|attachment)$//' | tr -s ' ' | sed -n '/^ Checks/,$!p; /^ Presentation/,$p'
}
rewritten() { # NAME FILE
  "$qvlmms" rewrite "$2" "$work/$1.mms" >"$work/printed" || complain "$1 is not rewritten"
  [ "$(cat "$work/printed")" = "wrote $work/$1.mms ($(stat -c %s "$work/$1.mms") octets)" ] \
    || complain "printed for $1: $(cat "$work/printed")"
  "$qvlmms" show "$work/$1.mms" >"$work/$1.txt" || complain "the rewritten $1 is refused"
}

rewritten related "$fixtures/messages/related.mms"
diff <(content "$fixtures/messages/related.mms" | grep -v ' [0-9]* shown') <(content "$work/related.mms") \
  || complain "related changes"

rewritten mixed "$fixtures/messages/mixed.mms"
grep -q '^  Content-Type .*related; type=application/smil;start=<qvlsmil.smil>$' "$work/mixed.txt" \
  || complain "a mixed message does not become a related message"
grep -q '^  Presentation *2 slides$' "$work/mixed.txt" || complain "a mixed message does not get slides"
grep -qE '^    3  text/x-vCard .* attachment$' "$work/mixed.txt" || complain "the attachment is lost"

rewritten colored "$fixtures/show/colored-root.mms"
grep -q '^    slide 1: 1000 ms (from the document), page #0000ff' "$work/colored.txt" \
  || complain "the color of the root layout is lost"
grep -q '^    slide 2: 2000 ms (from the document), page #0000ff, text #ffffff' "$work/colored.txt" \
  || complain "a slide loses its text color"

without_date() { # FILE: prints JSON without Date, which is the time of decoding
  "$qvlmms" show --json - <"$1" | sed 's/"Date":"[^"]*",//'
}
for name in related mixed colored; do
  rewritten "$name-again" "$work/$name.mms"
  cmp <(without_date "$work/$name.mms") <(without_date "$work/$name-again.mms") \
    || complain "$name changes when it is rewritten again"
done
"$qvlmms" rewrite - - <"$work/colored.mms" | cmp - "$work/colored.mms" || complain "standard streams differ"

# A message without a body; an Expiry of 7 days stays one.
printf '\x8c\x82\x98T\x00\x8d\x90\x8e\x01\x80\x88\x05\x81\x03\x09\x3a\x80\x83h\x00' >"$work/notification.mms"
"$qvlmms" rewrite "$work/notification.mms" - 2>"$work/error" | cmp - <(
  printf '\x8c\x82\x98T\x00\x8d\x90\x89\x01\x81\x8e\x01\x80\x88\x05\x81\x03\x09\x3a\x80\x83h\x00') \
  || complain "a notification is not rewritten"

# Fields of later versions and unknown headers of parts are not written, and said so.
{
  printf '\x8c\x80\x98T\x00\x8d\x92\x89\x01\x81\x9c\x80\x84\xa3\x01'
  printf '\x0d\x02\x06\x83\x81\xea\x85a\x00\xae\x02\x80\x00\xb0\x80\xc3\xbc'
} >"$work/later.mms"
"$qvlmms" rewrite "$work/later.mms" "$work/written.mms" >/dev/null 2>"$work/error"
[ "$(cat "$work/error")" = "qvlmms: $work/later.mms: not written: Reply-Charging, the header Content-Disposition of parts, the header X-Wap-Content-URI of parts" ] \
  || complain "not said to be dropped: $(cat "$work/error")"
printf '\x8c\x84\x8d\x90\x85\x01\x05\xc0\x80\x84\x83text' >"$work/text.mms" # a text alone
"$qvlmms" rewrite "$work/text.mms" "$work/text-written.mms" >/dev/null 2>"$work/error"
[ "$(cat "$work/error")" = "qvlmms: $work/text.mms: not written: field C0" ] \
  || complain "not said to be dropped: $(cat "$work/error")"
"$qvlmms" show "$work/written.mms" | grep -qE '^    1  text/plain +2 +UTF-8 +a +shown' || complain "the text is lost"

# A sender who hides stays hidden.
"$qvlmms" show "$fixtures/show/colored-root.mms" >"$work/colored-before.txt"
diff <(grep Sender-Visibility "$work/colored-before.txt") <(grep Sender-Visibility "$work/colored.txt") \
  || complain "the sender's visibility changes"

refuse() { # CODE PATTERN ARGUMENT...
  local expected=$1 pattern=$2 code=0
  shift 2
  "$qvlmms" rewrite "$@" >"$work/out" 2>"$work/error" || code=$?
  [ "$code" -eq "$expected" ] && grep -q "$pattern" "$work/error" \
    || complain "$*: $code, $(cat "$work/error")"
}
printf '\x8c\x80\x8d\x90\x84\xa3' >"$work/no-parts.mms"
refuse 1 'the message has no parts, so there is nothing to write$' "$work/no-parts.mms" "$work/none.mms"
printf '\x8d\x90' >"$work/no-type.mms"
refuse 1 'the message has no type, so there is nothing to write$' "$work/no-type.mms" "$work/none.mms"
printf '\x8c\x87\x8d\x91' >"$work/read-report.mms"
refuse 1 'messages of this type cannot be written, only those of MMS 1.0: m-read-rec-ind (135)$' "$work/read-report.mms" "$work/none.mms"
{
  printf '\x8c\x80\x8d\x90\x84\xa3\x81\x00'
  for _ in $(seq 128); do printf '\x01\x01\x9dG'; done
} >"$work/many.mms"
refuse 1 'the message would have more than 127 parts, and other software reads no more$' "$work/many.mms" "$work/none.mms"
refuse 1 'REFUSED' "$fixtures/show/truncated-body.mms" "$work/none.mms"
refuse 2 'there is no such file; check its name$' "$work/missing.mms" "$work/none.mms"
refuse 2 'cannot write .*/folder/none.mms: there is no folder .*/folder; create it first$' "$work/mixed.mms" "$work/folder/none.mms"
refuse 2 'too few arguments: OUT is missing' "$work/mixed.mms"
[ ! -e "$work/none.mms" ] || complain "a file is left behind"
exit "$failed"
