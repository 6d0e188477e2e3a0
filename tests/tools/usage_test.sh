#!/usr/bin/env bash
# Exit codes and error messages of wrong usage, unreadable files and files that are not messages.
#     usage_test.sh QVLMMS FIXTURES
set -uo pipefail
qvlmms=$1
message=$2/messages/related.mms
source "$(dirname "$0")/../support/script.sh"
printf '\x8c\x80\xff' >"$work/refused"
# A text with an octet above 7F and without a charset.
printf '\x8c\x84\x98T\0\x8d\x90\x85\x04\x40\xf8\0\0\x89\x01\x81\x84\xa3\x01\x08\x01\x83\x8ea.txt\0\xe9' \
  >"$work/warning"
declare -A last=([extract]=$work/none [render]=$work/none [rewrite]=$work/none [html]="-o $work/none") # arguments after FILE
failed=0

expect() { # CODE PATTERN COMMAND...: expects this exit code, and the pattern in the output or the errors
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
expect 0 '^  --json  +print one JSON object per line$' "$qvlmms" show --help
expect 0 '^Usage: qvlmms show \[OPTION\.\.\.\] FILE\.\.\.$' "$qvlmms" show -h
expect 0 '^  DIR  +folder for the parts;' "$qvlmms" extract --help
expect 0 '^Usage: qvlmms compose \[OPTION\.\.\.\] -o OUT$' "$qvlmms" compose --help
expect 0 '^  --text-file FILE +text of the slide, from a file' "$qvlmms" compose --help
expect 0 'normalized SMIL text' "$qvlmms" smil --help
expect 2 '^Usage: qvlmms COMMAND' "$qvlmms"

diff <("$qvlmms" help) <("$qvlmms" --help) || failed=1
for command in $("$qvlmms" help | sed -n '/^Commands:/,/^$/s/^  \([a-z]*\) .*/\1/p'); do
  expect 0 "^Usage: qvlmms $command( |\$)" "$qvlmms" help "$command"
  diff <("$qvlmms" help "$command") <("$qvlmms" "$command" --help) || failed=1
  if "$qvlmms" help "$command" | grep -E '.{81}'; then
    echo "the help of $command has lines longer than 80 columns"
    failed=1
  fi
done

expect 2 '^qvlmms: there is no command shew; did you mean show\?$' "$qvlmms" shew
expect 2 '^qvlmms: there is no command display$' "$qvlmms" display
expect 2 '^qvlmms help lists the commands\.$' "$qvlmms" display
expect 2 '^qvlmms: there is no command extrat; did you mean extract\?$' "$qvlmms" help extrat
expect 2 'too many arguments: "smil" is superfluous' "$qvlmms" help show smil
expect 2 '^qvlmms: too few arguments: FILE is missing$' "$qvlmms" show
expect 2 '^Usage: qvlmms show ' "$qvlmms" show
expect 2 '^See qvlmms help show\.$' "$qvlmms" show
expect 2 '^qvlmms: show has no option --jsno; did you mean --json\?$' "$qvlmms" show --jsno "$message"
expect 2 '^qvlmms: smil has no option --display$' "$qvlmms" smil --display "$message"
expect 2 '^qvlmms: rewrite has no option -x$' "$qvlmms" rewrite -x "$message"
expect 2 "Missing value after '--jobs'" "$qvlmms" show "$message" --jobs
expect 2 '^qvlmms: too few arguments: -o OUT is missing$' "$qvlmms" compose --to 1
expect 2 '^qvlmms: the name of the file to write is empty; name a file, or - for standard output$' \
  "$qvlmms" compose -o '' --to 1 --text x
expect 2 '^qvlmms: too many arguments: "you!" is superfluous; quote a text with blanks$' \
  "$qvlmms" compose -o "$work/out.mms" --to 1 --subject See you!
expect 2 'too few arguments: FILE is missing' "$qvlmms" smil
expect 2 'too few arguments: FILE is missing' "$qvlmms" check
expect 2 '^qvlmms: --fail-on all: error, warning or note is expected$' "$qvlmms" check --fail-on all "$message"
expect 2 '^qvlmms: there is no rule no-slide; did you mean no-slides\?$' "$qvlmms" check --explain no-slide
expect 0 '^no-slides \(note\): ' "$qvlmms" check --explain all
expect 3 ': 1 warning, 1 note$' "$qvlmms" check "$work/warning"
expect 1 ': 1 warning, 1 note$' "$qvlmms" check --fail-on warning "$work/warning"
expect 2 'no such file' "$qvlmms" check "$work/warning" "$work/refused" "$work/missing.mms"
expect 1 ': 1 error$' "$qvlmms" check "$work/refused"
expect 2 '^qvlmms: --sort age: one of date, ' "$qvlmms" list --sort age "$message"
expect 2 '^qvlmms: --json and --csv exclude each other$' "$qvlmms" list --json --csv "$message"
expect 2 '^qvlmms: --where larger=all: ' "$qvlmms" list --where larger=all "$message"
expect 2 '^qvlmms: too few arguments: -o OUT is missing$' "$qvlmms" html "$message"
expect 2 '^qvlmms: the name of the file to write is empty; ' "$qvlmms" html -o '' "$message"
expect 2 '^qvlmms: no page was written$' "$qvlmms" html -o "$work/none" "$work/missing.mms"
expect 2 'cannot create the folder .*/refused/: .*/refused is a file; ' "$qvlmms" html -o "$work/refused/" "$message"
expect 2 '^qvlmms: --limit 0: a number from 1 to 1000000 is expected$' "$qvlmms" html --limit 0 -o "$work/none" "$message"
expect 2 'too few arguments: DIR is missing' "$qvlmms" extract "$message"
expect 2 'too many arguments: "b" is superfluous' "$qvlmms" extract "$message" a b

expect 2 'cannot read .*/missing.mms: there is no such file; check its name$' "$qvlmms" show "$work/missing.mms"
expect 2 'cannot read .*/missing.smil: there is no such file' "$qvlmms" smil "$work/missing.smil"
expect 2 'cannot read .*: it is a folder; name the files in it$' "$qvlmms" smil "$work"
expect 1 'REFUSED.*octet 2' "$qvlmms" show "$work"
expect 2 '^qvlmms: cannot read standard input: ' bash -c '"$1" show - <"$2"' - "$qvlmms" "$work"
expect 1 'the message has no presentation; qvlmms show lists its contents$' "$qvlmms" smil "$2/messages/notification.mms"
expect 1 'the message was refused; qvlmms show prints the reason$' "$qvlmms" smil "$work/refused"
expect 1 'there is nothing to read \(result -6\)' "$qvlmms" smil -
expect 1 'REFUSED.*octet 2: field 127 \(FF\): the data ends before a value \(result 3\)' "$qvlmms" show "$work/refused"
: >"$work/empty"
for arguments in "show -" "show --json -" "show --strict -" "extract - $work/none" "rewrite - $work/none" "render - $work/none"; do
  # shellcheck disable=SC2086
  expect 1 '^qvlmms: -: the file is empty$|"refused":true' "$qvlmms" $arguments
done
"$qvlmms" show --json "$work/empty" >"$work/json" || true
! grep -q '"decoded"\|"checks"' "$work/json" || fail "an empty file counts as decoded: $(cat "$work/json")"
for closed in 'show "$0" >&-' 'show "$0" >&- 2>&-' 'extract "$0" "$1" <&- >&-'; do
  code=0
  mkdir -p "$work/apart"
  bash -c "\"$qvlmms\" $closed" "$message" "$work/apart" 2>"$work/error" || code=$?
  [ "$code" -eq 2 ] || fail "$closed: exit code $code"
  [[ $closed == *2* ]] || grep -q 'cannot write to standard output: Bad file descriptor$' "$work/error" \
    || fail "$closed: $(cat "$work/error")"
done
expect 1 '1 decoded, 1 refused, 0 not readable' "$qvlmms" show "$message" "$work/empty"
for command in check list html show smil extract render rewrite; do
  expect 2 '^qvlmms: the name of the file to read is empty; name a file$' "$qvlmms" "$command" '' ${last[$command]-}
done
expect 2 '^qvlmms: the name of the file to read is empty; name a file$' "$qvlmms" compose -o "$work/none" --to 1 --attach ''
for command in extract render; do
  expect 2 '^qvlmms: the name of the folder is empty; name a folder$' "$qvlmms" "$command" "$message" ''
done
expect 2 '^qvlmms: the name of the file to write is empty; ' "$qvlmms" rewrite "$message" ''
printf 'HTTP/1.1 200 OK' >"$work/response"
for command in show smil; do
  expect 1 '/response: a message begins with the octet 8C and this file does not; ' \
    "$qvlmms" "$command" "$work/response"
done
[ -z "$("$qvlmms" show --json "$work/response" 2>&1 >/dev/null)" ] || { echo "advice in addition to JSON"; failed=1; }
expect 1 '/response: a message begins with the octet 8C' "$qvlmms" extract "$work/response" "$work/none"
expect 1 '3 messages: 2 decoded, 1 refused, 0 not readable' "$qvlmms" show "$message" "$work/refused" "$message"
expect 2 '3 messages: 1 decoded, 1 refused, 1 not readable' "$qvlmms" show "$work/missing" "$work/refused" "$message"
expect 2 'cannot create the folder .*/refused: .*/refused is a file; name another folder$' \
  "$qvlmms" extract "$message" "$work/refused"
ln -s "$work/missing" "$work/link"
expect 2 '/link is a link to no folder; name a folder$' "$qvlmms" extract "$message" "$work/link"
ln -s loop "$work/loop"
expect 2 'cannot create the folder .*/loop/a: Too many levels of symbolic links$' "$qvlmms" extract "$message" "$work/loop/a"
expect 2 'cannot create the folder /proc/none: /proc does not allow creating a folder in it$' "$qvlmms" extract "$message" /proc/none
expect 0 'the message has no parts' "$qvlmms" extract "$2/messages/notification.mms" "$work/none"
expect 1 'REFUSED' "$qvlmms" extract "$work/refused" "$work/none"
[ ! -e "$work/none" ] || { echo "created a folder without a part"; failed=1; }
expect 2 '^qvlmms: cannot write to standard output: No space left on device$' bash -c '"$1" show "$2" >/dev/full' - "$qvlmms" "$message"
exit "$failed"
