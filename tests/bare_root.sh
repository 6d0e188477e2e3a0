#!/usr/bin/env bash
# Runs the demo and the checks as on a fresh machine: a Debian 12 of nothing but its smallest set of
# packages, and in it a clone of what is committed. Says how long each took.
#     tests/bare_root.sh            ./demo, then what CI runs
#     tests/bare_root.sh --demo     ./demo alone
# Takes root, the Debian packages git and mmdebstrap, and some gigabytes in $TMPDIR.
set -euo pipefail
source_dir=$(realpath "$(dirname "$0")/..")
case ${1:-} in
  --demo) commands=(./demo) ;;
  '') commands=(./demo .ci/run) ;;
  *)
    echo "usage: tests/bare_root.sh [--demo]" >&2
    exit 2
    ;;
esac
source "$source_dir/tests/support/script.sh"
source "$source_dir/tests/support/fresh_root.sh"
root=$work/root

timed() { # NAME COMMAND...
  local name=$1 begin=$SECONDS
  shift
  "$@" || fail "$name failed after $((SECONDS - begin)) s"
  echo "== $name: $((SECONDS - begin)) s"
}

timed "the root" fresh_root "$root"
quietly git clone "$source_dir" "$root/project"
for command in "${commands[@]}"; do
  timed "$command" in_root "$root" sh -c "cd /project && exec $command"
done
