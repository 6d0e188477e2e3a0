#!/usr/bin/env bash
# What the documentation prints is what happens: the README's first program builds, with the
# CMakeLists.txt printed beside it, against an installed library and lists the parts that the README
# says; the lines of `qvlmms show` in the README and the JSON in docs/json.md are the command's own; and
# the README's picture is what its commands draw.
#     readme_test.sh SOURCE_DIR BUILD_DIR MESSAGE
set -euo pipefail
source_dir=$1
build_dir=$2
message=$3
source "$(dirname "$0")/../support/script.sh"
prefix=$work/prefix

block() { # FILE LANGUAGE NUMBER: what stands in that fenced block of that language
  local text
  text=$(awk -v fence='```'"$2" -v wanted="$3" '
    $0 == "```" { inside = 0 }
    inside { print }
    $0 == fence { inside = ++count == wanted }' "$source_dir/$1")
  [ -n "$text" ] || fail "$1 has no block $3 of $2"
  printf '%s\n' "$text"
}
shown() { # FILE NUMBER: what a console block says that its one command prints
  block "$1" console "$2" | tail -n +2
}
command_line() { # FILE NUMBER
  block "$1" console "$2" | head -n 1 | sed -n 's/^\$ //p' | grep . || fail "$1: block $2 runs nothing"
}

quietly cmake --install "$build_dir" --prefix "$prefix"
LD_LIBRARY_PATH=$(dirname "$(find "$prefix" -name 'libqvlsmilparser-xscale-r.so.1')")
export LD_LIBRARY_PATH PATH="$prefix/bin:$PATH" TZ=UTC

mkdir -p "$work/project/build/demo"
cd "$work/project"
cp "$message" related.mms
cp "$message" "$(dirname "$message")/notification.mms" build/demo
block README.md cpp 1 >main.cpp
block README.md cmake 1 >CMakeLists.txt
quietly cmake -G Ninja -B build -DCMAKE_PREFIX_PATH="$prefix" \
  -DCMAKE_CXX_FLAGS='-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror'
quietly cmake --build build

bash -c "$(command_line README.md 2)" >said || fail "the first program fails on $message"
diff -u <(shown README.md 2) said || fail "the first program prints something else"

bash -c "$(command_line README.md 1)" >said
shown README.md 1 | grep -vxF '  ...' | diff -u - <(grep -xF -f <(shown README.md 1) said) \
  || fail "qvlmms show prints something else"

bash -c "$(command_line docs/json.md 1)" >said
diff -u <(shown docs/json.md 1) said || fail "qvlmms show --json prints something else"

if command -v ffmpeg >/dev/null && command -v sox >/dev/null; then
  "$source_dir/examples/data/make_media" build/demo
  block README.md sh 2 >picture.sh
  quietly bash -e picture.sh
  # Fonts and their drawing may differ a little from one machine to the next.
  similarity=$(ffmpeg -nostdin -i build/demo/contact-sheet.png -i "$source_dir/docs/contact-sheet.png" \
    -lavfi ssim -f null - 2>&1 | sed -n 's/.*SSIM.* All:\([0-9.]*\).*/\1/p')
  awk -v similarity="${similarity:-0}" 'BEGIN { exit !(similarity > 0.97) }' \
    || fail "the picture in the README is not what its commands draw (similarity ${similarity:-none})"
else
  echo "the picture is not compared: ffmpeg or sox is not installed"
fi
