# What the test scripts share: a folder $work that goes with the script, and how to fail.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_RUNTIME_DIR=$work # or Qt remarks that there is none

fail() {
  echo "$*" >&2
  exit 1
}
quietly() { # COMMAND...: its output is shown only when it fails
  "$@" >"$work/log" 2>&1 || { cat "$work/log"; exit 1; }
}
