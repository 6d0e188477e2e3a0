#!/usr/bin/env bash
# Installs to an empty prefix and uses the result like an application: the tests of debian/tests pass, the
# examples and the command build with find_package, the library has its soname and is hardened, and it links
# with a platform library of the caller.
#     install_test.sh SOURCE_DIR BUILD_DIR MESSAGE
set -euo pipefail
source_dir=$1
build_dir=$2
message=$3
source "$(dirname "$0")/../support/script.sh"
prefix=$work/prefix

quietly cmake --install "$build_dir" --prefix "$prefix"
libdir=$(dirname "$(find "$prefix" -name 'libqvlsmilparser-xscale-r.so.1')")

for project in examples tools; do
  quietly cmake -S "$source_dir/$project" -B "$work/$project" -G Ninja \
    -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_STANDARD=20
  quietly cmake --build "$work/$project"
done
"$work/examples/receive" "$message" | grep -q '^subject: Grüße' || fail "the example does not print the subject"
"$work/tools/qvlmms" show "$message" | grep -q 'm-send-req (128)' || fail "the command does not show the message"
PATH=$prefix/bin:$PATH "$source_dir/debian/tests/command"
[ "$("$work/tools/qvlmms" --version)" = "$("$prefix/bin/qvlmms" --version)" ] || fail "versions differ"

export PKG_CONFIG_PATH=$libdir/pkgconfig LD_LIBRARY_PATH=$libdir
read -ra flags <<<"$(pkg-config --cflags --libs qvlsmilparser)"
CMAKE_PREFIX_PATH=$prefix "$source_dir/debian/tests/program"

# An application may have folders and headers of any name, in any order of the include folders.
while read -r header; do
  name=${header%.h}
  name=${name^^}
  mkdir -p "$work/own/$(dirname "$header")"
  echo "#define OWN_${name//\//_}" >"$work/own/$header"
done < <(cd "$source_dir/src" && find . -name '*.h' ! -name qvlsmilparser.h ! -path './platform/host/*' -printf '%P\n')
quietly cmake -S "$source_dir/tests/install/own_headers" -B "$work/own_headers" -G Ninja \
  -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_STANDARD=20 -DHEADERS="$work/own"
quietly cmake --build "$work/own_headers"
"$work/own_headers/own_headers" || fail "a program with headers of its own does not run"
for order in "-I$work/own -I$work/own/base ${flags[*]}" "${flags[*]} -I$work/own -I$work/own/base"; do
  read -ra ordered <<<"$order"
  quietly g++ -std=c++20 -fPIC "$source_dir/tests/install/own_headers/main.cpp" -o "$work/own_program" "${ordered[@]}"
done
[ -z "$(find "$prefix/include" -mindepth 1 -maxdepth 1 ! -name qvlsmilparser)" ] \
  || fail "headers are installed outside of qvlsmilparser/"

library=$libdir/libqvlsmilparser-xscale-r.so.1
readelf -d "$library" | grep -q 'SONAME.*\[libqvlsmilparser-xscale-r.so.1\]' || fail "wrong soname"

# Hardening ends attacks that exploit remaining bugs.
holds() { # PATTERN READELF_ARGUMENT...
  local pattern=$1
  shift
  readelf -W "$@" | grep -E "$pattern" >/dev/null
}
for hardened in "$library" "$libdir/libqvlplatform.so.1" "$libdir"/qvlsmilparser/clips.so.* \
  "$libdir/qvlmms/decoder.so"; do
  holds GNU_RELRO -l "$hardened" || fail "$hardened has no RELRO segment"
  holds 'FLAGS_1.*NOW' -d "$hardened" || fail "$hardened is not bound at load time"
  holds __stack_chk_fail -s "$hardened" || fail "$hardened has no stack protector"
done
# The optimizer decides which functions are fortified, so the libraries do not show it.
grep -F '/src/smil/reader.cpp' "$build_dir/compile_commands.json" | grep -F -- '-D_FORTIFY_SOURCE=3' >/dev/null \
  || fail "functions are not fortified"

quietly cmake -S "$source_dir" -B "$work/external" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DQVL_PRECOMPILE=ON \
  -DQVL_PLATFORM=external \
  -DQVL_PLATFORM_LIBRARY="$libdir/libqvlplatform.so" -DQVL_BUILD_TESTS=OFF
quietly cmake --build "$work/external" --target qvlsmilparser
readelf -d "$work/external/src/libqvlsmilparser-xscale-r.so.1" | grep -q 'NEEDED.*libqvlplatform' \
  || fail "the caller's platform library is not used"
