#!/usr/bin/env bash
# Commands print no warnings of Qt, such as those about the locale (Qt 6.8) or a missing XDG_RUNTIME_DIR
# (Qt 6.4). QT_LOGGING_RULES turns Qt's warnings on again. The other tests of the command do that and make
# warnings fatal: they fail if the command itself causes a warning.
#     quiet_test.sh QVLMMS FIXTURES
set -euo pipefail
qvlmms=$1
fixtures=$2
source "$(dirname "$0")/../support/script.sh"
unset XDG_RUNTIME_DIR QT_LOGGING_RULES QT_FATAL_WARNINGS
export LC_ALL=C

quiet() { # ARGUMENT...
  "$qvlmms" "$@" >"$work/printed" 2>"$work/error" || fail "$*: exit code $?"
  [ ! -s "$work/error" ] || fail "$*: $(cat "$work/error")"
}
quiet --version
quiet help
quiet show "$fixtures/messages/related.mms"
quiet extract "$fixtures/messages/related.mms" "$work/parts"
quiet smil "$fixtures/messages/related.mms"
quiet render "$fixtures/messages/related.mms" "$work/pictures"
quiet compose -o "$work/composed.mms" --to 22000 --slide --text x
quiet rewrite "$fixtures/messages/related.mms" "$work/written.mms"

export QT_LOGGING_RULES=default.warning=true
"$qvlmms" render --help 2>"$work/error" >/dev/null
[ -s "$work/error" ] || fail "Qt's warnings cannot be turned on"
! { QT_FATAL_WARNINGS=1 "$qvlmms" render --help || false; } >/dev/null 2>&1 || fail "no warning is fatal"
