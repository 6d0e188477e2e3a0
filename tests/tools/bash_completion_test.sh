#!/usr/bin/env bash
# Completion in bash offers the commands, options, values and files that are valid at the cursor.
#     bash_completion_test.sh QVLMMS COMPLETION
set -euo pipefail
qvlmms=$1
source "$(dirname "$0")/../support/script.sh"
# shellcheck source=../../tools/completions/qvlmms.bash
source "$2"
failed=0

mkdir "$work/files" "$work/files/folder"
touch "$work/files/a.mms" "$work/files/a b.jpg"
cd "$work/files"

offered() { # WORD...: prints what is offered for the last word
  COMP_WORDS=("$qvlmms" "$@")
  COMP_CWORD=$#
  _qvlmms "$qvlmms" "${COMP_WORDS[$#]}" "${COMP_WORDS[$# - 1]}"
  ((${#COMPREPLY[@]} == 0)) || printf '%s\n' "${COMPREPLY[@]}" | sort
}
expect() { # OFFERED WORD...
  local expected=$1 actual
  shift
  actual=$(offered "$@" | paste -sd ' ')
  [ "$actual" = "$expected" ] || { echo "$*: $actual, not $expected"; failed=1; }
}

while IFS='|' read -r words expected; do
  eval "expect '$expected' $words"
done <<'ROWS'
''|check compose extract help html list render rewrite show smil
r|render rewrite
-|--help --version
help ''|check compose extract help html list render rewrite show smil
help e|extract
help -|
show ''|a b.jpg a.mms folder
show a.|a.mms
show -|--files-from --help --jobs --json --max-size --strict -0
show --js|--json
show --jobs ''|
show --json a|a b.jpg a.mms
check a.|a.mms
list a.|a.mms
list --sort s|size subject
list --files-from a.|a.mms
check --fail-on ''|error note warning
html -o a.|a.mms
extract a.mms f|folder
extract -|--help --max-size
smil -|--help --max-size --model
render -|--help --max-decoded --max-drawn --max-size --max-slides --scale --thumbnail --width
compose -o a.|a.mms
compose --image a|a b.jpg a.mms
compose --to ''|
compose --text ''|
compose --date ''|
compose --priority ''|high low normal
compose --class a|advertisement auto
compose --text-size l|large
compose --background b|black blue
compose --text-color ''|aqua black blue fuchsia gray green lime maroon navy olive purple red silver teal white yellow
compose --slide --text|--text --text-above --text-below --text-color --text-file --text-size
ROWS

# Every option of a help text is offered.
for command in $("$qvlmms" help | sed -n '/^Commands:/,/^$/s/^  \([a-z]*\) .*/\1/p' | grep -vx help); do
  expect "$({ echo --help; "$qvlmms" help "$command" | sed -nE 's/^  (--?[a-z0-9-]+) .*/\1/p'; } | sort | paste -sd ' ')" \
    "$command" -
done
exit "$failed"
