#!/usr/bin/env bash
# The German texts of the window, and its English plurals, are complete and up to date.
#     translations_test.sh LUPDATE LRELEASE
set -euo pipefail
lupdate=$1
lrelease=$2
source_dir=$(realpath "$(dirname "$0")/../..")
source "$source_dir/tests/support/script.sh"
if [ ! -x "$lupdate" ] || [ ! -x "$lrelease" ]; then
  echo "translations are not tested, because Qt's linguist tools are missing" >&2
  exit 77
fi

update() { # LANGUAGE OPTION...
  local file=qvlmms-gui_$1.ts
  cp "$source_dir/gui/translations/$file" "$work"
  quietly "$lupdate" -no-obsolete -locations none "${@:2}" "$source_dir/gui" -ts "$work/$file"
  "$lrelease" "$work/$file" -qm "$work/$1.qm" >"$work/$1.log" 2>&1
  ! grep -q 'type="unfinished"' "$work/$file" || fail "$file lacks texts: $(grep -B3 unfinished "$work/$file")"
  grep -q 'finished and 0 unfinished)' "$work/$1.log" || fail "$(cat "$work/$1.log")"
  diff <(grep '<source>' "$source_dir/gui/translations/$file") <(grep '<source>' "$work/$file") \
    || fail "$file has other texts than the window"
}
update de
update en -pluralonly
