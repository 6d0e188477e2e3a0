#!/usr/bin/env bash
# The man page and the help list the same commands, arguments, options, values and version.
#     man_test.sh QVLMMS PAGE
set -euo pipefail
qvlmms=$1
page=$2
source "$(dirname "$0")/../support/script.sh"
sed 's/\\-/-/g; s/\\&//g' "$page" >"$work/page"

help_of() { # [COMMAND]: prints its help with one line per row
  "$qvlmms" help "$@" | sed -z 's/\n \{4,\}/ /g'
}
rows() { # COMMAND HELP: prints usage and options
  sed -nE "s/^Usage: //p; s/^  (-.*[^ ])  .*/$1 \1/p" <<<"$2" | sed 's/   *.*//'
}
commands=$(help_of | sed -n '/^Commands:/,/^$/s/^  \([a-z]*\) .*/\1/p')
[ "$(wc -w <<<"$commands")" -gt 2 ] || fail "the help lists no commands"
{
  rows qvlmms "$(help_of)"
  for command in $commands; do
    echo "$command"
    rows "$command" "$(help_of "$command")"
  done
} >"$work/from_help"
grep -q '^compose --text-size WORD$' "$work/from_help" || fail "no options were found in the help"

awk '
  function plain(line,    gap, text, token) { # the text of a macro
    gap = line ~ /^\.[BI] / ? " " : ""
    sub(/^\.[A-Z]+ /, "", line)
    while (match(line, /"[^"]*"|[^ ]+/)) {
      token = substr(line, RSTART, RLENGTH)
      line = substr(line, RSTART + RLENGTH)
      gsub(/"/, "", token)
      text = text (text == "" ? "" : gap) token
    }
    return text
  }
  /^\.PP/ || /^\.SH DESCRIPTION/ { if (in_usage) print usage; in_usage = 0 }
  /^\.S[HS]/ { command = $2; usage = "" }
  /^\.SS/ { print command }
  /^\.SH SYNOPSIS/ || /^\.SS/ { in_usage = 1; next }
  /^\.SH OPTIONS/ { command = "qvlmms" }
  in_usage { usage = usage (usage == "" ? "" : " ") plain($0) }
  after_tag && plain($0) ~ /^-/ { print command " " plain($0) }
  { after_tag = /^\.TP/ }
' "$work/page" >"$work/from_page"
diff -u <(sort "$work/from_help") <(sort "$work/from_page") || fail "the help (-) and the man page (+) differ"

while read -r option; do
  grep -qE " ${option}( |\$)" "$work/from_help" || fail "the man page mentions $option, which is not an option"
done < <(grep -oE -- '(^|[^a-z-])--[a-z-]+' "$work/page" | grep -oE -- '--.*' | sort -u)

for command in $commands; do
  while read -r word; do
    grep -qE -- "(^|[ .#])$word([ .,]|\$)" "$work/page" || fail "the man page lacks $word of $command"
  done < <(help_of "$command" | sed -nE 's/^  (--[a-z-]+ WORD|COLOR) +#?//p' | sed 's/,//g; s/ or / /' | tr ' ' '\n')
done

grep -qF "\"$("$qvlmms" --version)\"" <(head -n 1 "$page") || fail "the man page has another version"
