#!/usr/bin/env bash
# Completion in zsh is valid, and asks zsh to complete the commands, options, values and files that can
# follow.
#     zsh_completion_test.sh QVLMMS COMPLETION
set -euo pipefail
qvlmms=$1
completion=$2
source "$(dirname "$0")/../support/script.sh"
command -v zsh >/dev/null || { echo "zsh is not installed"; exit 77; }

zsh -n "$completion"
cat >"$work/asked.zsh" <<'ZSH'
_arguments() { print -rl -- "$@" }
_describe() { print -rl -- "${(P@)2}" }
completion=$1
shift
words=("$@")
CURRENT=$#words
PREFIX=$words[-1]
source $completion
ZSH
expect() { # LINE WORD...: what zsh is asked for the last word has this line
  local line=$1
  shift
  zsh -f "$work/asked.zsh" "$completion" "$qvlmms" "$@" >"$work/asked" 2>&1
  grep -qxF -- "$line" "$work/asked" || fail "$*: no $line in: $(cat "$work/asked")"
}
expect 'extract:write the parts of a message to files' ''
expect 'show:show header, checks, parts and slides of messages' help s
expect '*--version[print the version]' -
expect '--help[print what help tells]' show -
expect '*--json[print one JSON object a line]' show ''
expect '*:file:_files' show ''
expect '*-o[file to write; - is standard output]:OUT:_files' compose ''
expect '*--text-size[small, normal or large]:WORD:(small normal large)' compose --text-size ''
expect '*--to[recipient; like --cc and --bcc as often as needed]:ADDRESS: ' compose ''
colours='aqua black blue fuchsia gray green lime maroon navy olive purple red silver teal white yellow'
expect "*--background[colour of the page]:COLOUR:( $colours)" compose ''
