#!/usr/bin/env bash
# The programs that format man pages print no warnings for the man page.
#     man_lint_test.sh PAGE
set -euo pipefail
source "$(dirname "$0")/../support/script.sh"

formatted=no
clean() { # PROGRAM ARGUMENT...
  command -v "$1" >/dev/null || return 0
  formatted=yes
  "$@" >"$work/out" 2>&1 || fail "$1 fails: $(cat "$work/out")"
  [ ! -s "$work/out" ] || fail "$1 prints: $(cat "$work/out")"
}
clean groff -ww -mandoc -Tutf8 -z "$1"
clean mandoc -T lint "$1"
[ "$formatted" = yes ] || { echo "neither groff nor mandoc is installed"; exit 77; }
