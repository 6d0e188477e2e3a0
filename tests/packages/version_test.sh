#!/usr/bin/env bash
# The changelogs begin with the version of the CMakeLists.txt.
#     version_test.sh SOURCE_DIR VERSION
set -euo pipefail
source_dir=$1
version=$2
source "$(dirname "$0")/../support/script.sh"

first() { # FILE EXPRESSION
  sed -nE "s/$2/\1/p" "$source_dir/$1" | head -n 1
}
agrees() { # FILE EXPRESSION
  [ "$(first "$1" "$2")" = "$version" ] || fail "$1 begins with version $(first "$1" "$2"), not $version"
}
agrees CHANGELOG.md '^## \[([0-9.]+)\] - [0-9]{4}-[0-9]{2}-[0-9]{2}$'
agrees debian/changelog '^qvlsmilparser \((.*)\) .*'
