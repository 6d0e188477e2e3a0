#!/usr/bin/env bash
# Runs the demo and the checks on a new system: a Debian with only its smallest set of packages and a
# clone of the last commit. Prints the time of each.
#     tests/bare_root.sh RELEASE            ./demo, then what CI runs, on trixie or bookworm
#     tests/bare_root.sh RELEASE --demo     only ./demo
# Needs root, the Debian packages git and mmdebstrap, and some gigabytes in $TMPDIR.
set -euo pipefail
source_dir=$(realpath "$(dirname "$0")/..")
source "$source_dir/tests/support/script.sh"
source "$source_dir/tests/support/fresh_root.sh"
commands=(./demo .ci/run)
[ "${2:-}" != --demo ] || commands=(./demo)
if ! is_release "${1:-}" || [ "${2:---demo}" != --demo ] || [ $# -gt 2 ]; then
  echo "usage: tests/bare_root.sh RELEASE [--demo], with one of these releases: ${releases[*]}" >&2
  exit 2
fi
release=$1
root=$work/root

timed() { # NAME COMMAND...
  local name=$1 begin=$SECONDS
  shift
  "$@" || fail "$name failed on $release after $((SECONDS - begin)) s"
  echo "== $release, $name: $((SECONDS - begin)) s"
}

timed "the root" fresh_root "$release" "$root"
quietly git clone "$source_dir" "$root/project"
for command in "${commands[@]}"; do
  timed "$command" in_root "$root" sh -c "cd /project && exec $command"
done
