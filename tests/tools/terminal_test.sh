#!/usr/bin/env bash
# `qvlmms show` uses colours on a terminal that takes them and nowhere else, and they are all that it
# adds: nothing of a message acts on the terminal.
#     terminal_test.sh QVLMMS FIXTURES
set -euo pipefail
qvlmms=$1
cd "$2/show"
source "$(dirname "$0")/../support/script.sh"
command -v script >/dev/null || { echo "script of bsdutils is not installed"; exit 77; }
unset NO_COLOR
export TERM=xterm TZ=UTC

on_terminal() { # COMMAND_LINE: what the terminal gets
  script -qc "$1" /dev/null </dev/null | tr -d '\r'
}
without_colours() {
  sed -E 's/\x1b\[(0|1|2|1;31)m//g'
}
same() { # WHAT EXPECTED ACTUAL
  diff -u <(printf '%s\n' "$2") <(printf '%s\n' "$3") >&2 || fail "$1"
}
coloured() { # LINE: in what show prints of the message
  grep -qF -- "$1" <<<"$shown" || fail "no such line: $1"
}

message=smil-second-body.mms # refused, with slides, and without the moment of decoding
plain=$("$qvlmms" show "$message") || true
shown=$(on_terminal "'$qvlmms' show $message")
coloured $'\e[1msmil-second-body.mms: m-send-req (128), 218 octets\e[0m'
coloured $'  \e[1mChecks\e[0m             version ok'
coloured $'    \e[2m#  Content type'
coloured $'    \e[1mslide 1:\e[0m 1000 ms'
coloured $'  \e[1;31mREFUSED            SMIL: there is a second body (result -11)\e[0m'
coloured '  Transaction-Id     T-6'
same "the text changes with its colours" "$plain" "$(without_colours <<<"$shown")"

shown=$(on_terminal "NO_COLOR= '$qvlmms' show $message")
coloured $'\e[1;31mREFUSED'
for setting in NO_COLOR=1 NO_COLOR=0 TERM=dumb TERM=; do
  same "colours with $setting" "$plain" "$(on_terminal "$setting '$qvlmms' show $message")"
done
same "colours without TERM" "$plain" "$(on_terminal "env -u TERM '$qvlmms' show $message")"
same "colours in a pipe" "$plain" "$(on_terminal "'$qvlmms' show $message | cat")"
on_terminal "'$qvlmms' show $message >'$work/file'" >/dev/null
same "colours in a file" "$plain" "$(cat "$work/file")"
same "colours in JSON" "$("$qvlmms" show --json "$message")" \
  "$(on_terminal "'$qvlmms' show --json $message")"

# What a command says of a refused message goes to standard error.
shown=$(on_terminal "'$qvlmms' rewrite $message '$work/out.mms'")
coloured $'\e[1;31mREFUSED'
on_terminal "'$qvlmms' rewrite $message '$work/out.mms' 2>'$work/file'" >/dev/null
same "colours in a file of errors" "$plain" "$(cat "$work/file")"

for message in *.mms; do
  on_terminal "'$qvlmms' show $message" | without_colours >"$work/shown"
  if LC_ALL=C grep -qP '[\x00-\x09\x0b-\x1f\x7f]|\xc2[\x80-\x9f]|\xe2\x80[\xaa-\xae]' "$work/shown"; then
    fail "$message: a control character reached the terminal"
  fi
done
