#!/usr/bin/env bash
# Exit codes and messages for what is no message, no file and no command.
#     usage_test.sh QVLMMS FIXTURES
set -uo pipefail
qvlmms=$1
message=$2/messages/related.mms
source "$(dirname "$0")/../support/script.sh"
printf '\x8c\x80\xff' >"$work/refused"
failed=0

expect() { # CODE PATTERN COMMAND...: exit code, and a pattern in standard output and error together
  local code=$1 pattern=$2 actual=0
  shift 2
  "$@" >"$work/out" 2>&1 </dev/null || actual=$?
  if [ "$actual" -ne "$code" ] || ! grep -qE -- "$pattern" "$work/out"; then
    echo "$*: exit code $actual instead of $code, or no \"$pattern\" in:"
    cat "$work/out"
    failed=1
  fi
}

expect 0 '^Usage: qvlmms COMMAND' "$qvlmms" --help
expect 0 '^qvlmms [0-9]+\.[0-9]+\.[0-9]+$' "$qvlmms" --version
expect 0 'one JSON object a line' "$qvlmms" show --help
expect 0 'Folder for the parts' "$qvlmms" extract --help
expect 2 '^Usage: qvlmms COMMAND' "$qvlmms"
expect 2 'there is no command shew' "$qvlmms" shew
expect 2 'too few arguments' "$qvlmms" show
expect 2 "Unknown option 'jsno'" "$qvlmms" show --jsno "$message"
expect 0 '^  --text-file FILE +the same' "$qvlmms" compose --help
expect 2 'there is no file to write: -o OUT' "$qvlmms" compose --to 1
expect 2 'too many arguments' "$qvlmms" compose -o "$work/out.mms" --to 1 --attach a b
expect 0 'normalised SMIL text' "$qvlmms" smil --help
expect 2 'too few arguments' "$qvlmms" smil
expect 2 'missing.smil: No such file' "$qvlmms" smil "$work/missing.smil"
expect 1 'the message has no presentation' "$qvlmms" smil "$2/messages/notification.mms"
expect 1 'the message was refused' "$qvlmms" smil "$work/refused"
expect 1 'there is nothing to read \(result -6\)' "$qvlmms" smil -
expect 2 'too few arguments' "$qvlmms" extract "$message"
expect 2 'too many arguments' "$qvlmms" extract "$message" a b
expect 2 'missing.mms: No such file' "$qvlmms" show "$work/missing.mms"
expect 2 ': .*irectory' "$qvlmms" show "$work"
expect 1 'REFUSED.*unknown header field \(result 3\)' "$qvlmms" show "$work/refused"
expect 0 ', 0 octets' "$qvlmms" show -
expect 1 '3 messages: 2 decoded, 1 refused, 0 not readable' "$qvlmms" show "$message" "$work/refused" "$message"
expect 2 '3 messages: 1 decoded, 1 refused, 1 not readable' "$qvlmms" show "$work/missing" "$work/refused" "$message"
expect 2 'cannot (make|write)' "$qvlmms" extract "$message" "$work/refused"
expect 0 'the message has no parts' "$qvlmms" extract "$2/messages/notification.mms" "$work/none"
expect 1 'REFUSED' "$qvlmms" extract "$work/refused" "$work/none"
exit "$failed"
