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

for message in *.mms; do
  on_terminal "'$qvlmms' show $message" | without_colors >"$work/shown"
  if LC_ALL=C grep -qP '[\x00-\x09\x0b-\x1f\x7f]|\xc2[\x80-\x9f]|\xe2\x80[\xaa-\xae]' "$work/shown"; then
    fail "$message: a control character reached the terminal"
  fi
done
