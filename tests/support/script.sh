# Shared by the test scripts: a folder $work that is removed at the end, and functions that fail.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_RUNTIME_DIR=$work # otherwise Qt warns that it is missing

fail() {
  echo "$*" >&2
  exit 1
}
quietly() { # COMMAND...: prints its output only if it fails
  "$@" >"$work/log" 2>&1 || { cat "$work/log"; exit 1; }
}
