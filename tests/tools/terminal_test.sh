#!/usr/bin/env bash
# `qvlmms show` uses colors only on a terminal that supports them. It prints no other control characters,
# not even those in a message.
#     terminal_test.sh QVLMMS FIXTURES
set -euo pipefail
qvlmms=$1
cd "$2/show"
source "$(dirname "$0")/../support/script.sh"
command -v script >/dev/null || { echo "script of bsdutils is not installed"; exit 77; }
unset NO_COLOR
export TERM=xterm TZ=UTC

on_terminal() { # COMMAND_LINE: prints what the terminal receives
  script -qc "$1" /dev/null </dev/null | tr -d '\r'
}
without_colors() {
  sed -E 's/\x1b\[(0|1|2|1;31)m//g'
}
same() { # WHAT EXPECTED ACTUAL
  diff -u <(printf '%s\n' "$2") <(printf '%s\n' "$3") >&2 || fail "$1"
}
colored() { # LINE: expects it in the output of show
  grep -qF -- "$1" <<<"$shown" || fail "no such line: $1"
}

message=smil-second-body.mms # refused, has slides, and has no time of decoding
plain=$("$qvlmms" show "$message") || true
shown=$(on_terminal "'$qvlmms' show $message")
colored $'\e[1msmil-second-body.mms: m-send-req (128), 218 octets\e[0m'
colored $'  \e[1mChecks\e[0m             version ok'
colored $'    \e[2m#  Content type'
colored $'    \e[1mslide 1:\e[0m 1000 ms'
colored $'  \e[1;31mREFUSED            SMIL: there is a second body (result -11)\e[0m'
colored '  Transaction-Id     T-6'
same "the text changes with its colors" "$plain" "$(without_colors <<<"$shown")"

shown=$(on_terminal "NO_COLOR= '$qvlmms' show $message")
colored $'\e[1;31mREFUSED'
for setting in NO_COLOR=1 NO_COLOR=0 TERM=dumb TERM=; do
  same "colors with $setting" "$plain" "$(on_terminal "$setting '$qvlmms' show $message")"
done
same "colors without TERM" "$plain" "$(on_terminal "env -u TERM '$qvlmms' show $message")"
same "colors in a pipe" "$plain" "$(on_terminal "'$qvlmms' show $message | cat")"
on_terminal "'$qvlmms' show $message >'$work/file'" >/dev/null
same "colors in a file" "$plain" "$(cat "$work/file")"
same "colors in JSON" "$("$qvlmms" show --json "$message")" \
  "$(on_terminal "'$qvlmms' show --json $message")"

# A command prints a refused message on standard error.
shown=$(on_terminal "'$qvlmms' rewrite $message '$work/out.mms'")
colored $'\e[1;31mREFUSED'
on_terminal "'$qvlmms' rewrite $message '$work/out.mms' 2>'$work/file'" >/dev/null
same "colors in a file of errors" "$plain" "$(cat "$work/file")"

# A message with control characters and changes of the writing direction in the SMIL, in a media type and
# in locations. TAIL follows the body of the SMIL.
two_octets() { # NUMBER: prints it as a uintvar
  # shellcheck disable=SC2059
  printf "\\x$(printf %02x $((128 + $1 / 128)))\\x$(printf %02x $(($1 % 128)))"
}
part() { # HEADERS DATA: both as printf takes them; prints a part of a body
  # shellcheck disable=SC2059
  two_octets "$(printf "$1" | wc -c)" && two_octets "$(printf "$2" | wc -c)" && printf "$1$2"
}
hostile_message() { # TAIL
  local smil='<smil><head><meta name="n" content="\xc2\x9b31m"/></head><body><par dur="1s">'
  smil+='<text src="t.txt" alt="\xe2\x80\xae\x7f\xc2\x9b"/></par></body>'$1'</smil>'
  printf '\x8c\x84\x8d\x90\x84\xb3\x03'
  part 'application/smil\x00\xc0"<s>\x00' "$smil"
  part '\x83\x8et.txt\x00' 'text'
  part 'text/\x1b]0;x\x07\x00\x8e\x1b[2J\xe2\x81\xa6.\xc2\x9b\x00' '\x1b[2J'
}
hostile_message '' >"$work/hostile.mms"
hostile_message '<body/>' >"$work/refused.mms"

visible() { # FILE WHAT: expects no character that acts on a terminal
  local acting='[\x00-\x09\x0b-\x1f\x7f]|\xc2[\x80-\x9f]|\xe2\x80[\xaa-\xae]|\xe2\x81[\xa6-\xa9]'
  ! LC_ALL=C grep -qP "$acting" "$1" || fail "$2: a control character reached the terminal"
}
for message in *.mms "$work"/{hostile,refused}.mms; do
  for command in show smil 'smil --model' extract; do
    folder=
    [ "$command" != extract ] || folder="$work/parts of ${message##*/}"
    on_terminal "'$qvlmms' $command '$message' ${folder:+'$folder'}" | without_colors >"$work/shown"
    visible "$work/shown" "$command $message"
  done
  find "$folder" -printf '%f\n' >"$work/shown" 2>/dev/null || continue # it has no part
  visible "$work/shown" "the names of extracted files of $message"
done
on_terminal "'$qvlmms' smil '$work/hostile.mms'" >"$work/shown"
grep -qF 'alt="\u{202e}\u{7f}\u{9b}"' "$work/shown" || fail "smil does not show the characters"
on_terminal "'$qvlmms' smil --model '$work/refused.mms'" >"$work/shown"
grep -qF 'alt "\u{202e}\u{7f}\u{9b}"' "$work/shown" || fail "smil --model does not show the characters"
on_terminal "'$qvlmms' extract '$work/hostile.mms' '$work/folder'" >"$work/shown"
grep -qF 'text/\u{1b}]0' "$work/shown" || fail "extract does not show the characters"
