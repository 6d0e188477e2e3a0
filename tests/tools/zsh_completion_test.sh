#!/usr/bin/env bash
# The completion for zsh is valid, and passes zsh the commands, options, values and files that are valid at
# the cursor.
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
expect() { # LINE WORD...: expects this line in what zsh is passed for the last word
  local line=$1
  shift
  zsh -f "$work/asked.zsh" "$completion" "$qvlmms" "$@" >"$work/asked" 2>&1
  grep -qxF -- "$line" "$work/asked" || fail "$*: no $line in: $(cat "$work/asked")"
}
expect 'extract:write the parts of a message to files' ''
expect 'show:show the header, checks, parts and slides of messages' help s
expect '*--version[print the version]' -
expect '--help[print the help]' show -
expect '*--json[print one JSON object per line]' show ''
expect '*:file:_files' show ''
expect '*-o[file to write; - is standard output]:OUT:_files' compose ''
expect '*--text-size[small, normal or large]:WORD:(small normal large)' compose --text-size ''
expect '*--to[recipient; --to, --cc and --bcc may be repeated]:ADDRESS: ' compose ''
colors='aqua black blue fuchsia gray green lime maroon navy olive purple red silver teal white yellow'
expect "*--background[color of the page]:COLOR:( $colors)" compose ''
