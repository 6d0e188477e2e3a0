#!/usr/bin/env bash
# The libraries export exactly the listed names, and only declarations of public headers.
#     abi_test.sh SOURCE_DIR BUILD_DIR
set -euo pipefail
source_dir=$1
build_dir=$2
source "$(dirname "$0")/../support/script.sh"
list=$source_dir/debian/libqvlsmilparser1.symbols

"$source_dir/tests/abi/update" "$build_dir" "$work/exported"
diff -u "$list" "$work/exported" || fail "The libraries export other names than before.
To publish new names, run tests/abi/update $build_dir; otherwise remove QVL_EXPORT from them.
Without removed names, programs built before no longer start: keep the names, or begin a new major version."

quietly cmake --install "$build_dir" --prefix "$work/prefix" --component dev
cd "$source_dir/src"
grep -rlE 'QVL_EXPORT|Q_DECL_EXPORT|visibility\(' --include='*.h' --include='*.cpp' | while read -r file; do
  [ -e "$work/prefix/include/qvlsmilparser/qvlsmilparser/$file" ] || fail "src/$file exports a name but is not a public header"
done
