#!/usr/bin/env bash
# The install components are what the packages are made of: runtime, dev and qvlmms have the files that
# are listed beside this script, and together they are the plain installation.
#     components_test.sh BUILD_DIR VERSION
set -euo pipefail
build_dir=$1
version=$2
here=$(dirname "$0")
source "$here/../support/script.sh"
libdir=$(sed -n 's/^CMAKE_INSTALL_LIBDIR:[A-Z]*=//p' "$build_dir/CMakeCache.txt")

files() { # PREFIX
  (cd "$1" && find . ! -type d -printf '%P\n' | LC_ALL=C sort)
}
# Where libraries go, their version, the build's type and each header are not the list's matter.
generally() {
  sed -E "s:^$libdir/:LIBDIR/:; s:\.${version//./\\.}$:.VERSION:; s:Targets-[a-z]+\.cmake$:Targets-TYPE.cmake:
    s:^(include/qvlsmilparser/).*\.h$:\1HEADERS:" | uniq
}

quietly cmake --install "$build_dir" --prefix "$work/all"
for component in runtime dev qvlmms; do
  quietly cmake --install "$build_dir" --prefix "$work/$component" --component "$component"
  files "$work/$component" >>"$work/parts"
  files "$work/$component" | generally | diff -u "$here/$component.files" - \
    || fail "the component $component has other files than tests/install/$component.files"
done
LC_ALL=C sort "$work/parts" | diff -u <(files "$work/all") - \
  || fail "the components are not the plain installation"
