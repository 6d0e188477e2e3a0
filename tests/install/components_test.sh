#!/usr/bin/env bash
# The packages are built from the install components runtime, dev, qvlmms and, if the window is built,
# qvlmms-gui. Each has the files of the list
# beside this script, and together they have the same files as a complete installation.
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
# The lists do not depend on the library folder, the version, the build type and single headers.
generally() {
  sed -E "s:^$libdir/:LIBDIR/:; s:\.${version//./\\.}$:.VERSION:; s:Targets-[a-z]+\.cmake$:Targets-TYPE.cmake:
    s:^(include/qvlsmilparser/).*\.h$:\1HEADERS:" | uniq
}

quietly cmake --install "$build_dir" --prefix "$work/all"
components=(runtime dev qvlmms)
[ ! -e "$build_dir/gui/qvlmms-gui" ] || components+=(qvlmms-gui)
for component in "${components[@]}"; do
  quietly cmake --install "$build_dir" --prefix "$work/$component" --component "$component"
  files "$work/$component" >>"$work/parts"
  files "$work/$component" | generally | diff -u "$here/$component.files" - \
    || fail "the component $component has other files than tests/install/$component.files"
done
LC_ALL=C sort "$work/parts" | diff -u <(files "$work/all") - \
  || fail "the components differ from a complete installation"
