#!/usr/bin/env bash
# FFmpeg is loaded for the first clip that needs it, only from the module beside the platform library.
# Without the module, clips are shown without a duration.
#     clip_module_test.sh QVLMMS PLATFORM_LIBRARY MODULE FIXTURES
set -euo pipefail
qvlmms=$1
platform_library=$2
module=$3
fixtures=$4
source "$(dirname "$0")/../support/script.sh"

quietly "$qvlmms" compose -o "$work/clip.mms" --to +4915112345678 --slide --audio "$fixtures/clips/sound.amr"

loaded() { # MESSAGE: prints the libraries of FFmpeg that are loaded
  LD_DEBUG=files "$qvlmms" show "$1" 2>&1 | grep -o 'calling init: .*libav[a-z]*\.so.*' || true
}
[ -z "$(loaded "$fixtures/show/related.mms")" ] || fail "a message without clips loads FFmpeg"
[ -n "$(loaded "$work/clip.mms")" ] || fail "a clip does not load FFmpeg, so this test cannot fail"

length() { # prints the clip's duration as the command shows it
  "$qvlmms" show --json "$work/clip.mms" | grep -o '"playDuration":[0-9]*' || echo unknown
}
known=$(length)
[ "$known" != unknown ] || fail "the clip is not measured"

# The module is found beside the library, also if the library was moved or has a relative path.
mkdir -p "$work/moved/$(basename "$(dirname "$module")")"
cp "$platform_library" "$work/moved/libqvlplatform.so.1"
moved_module=$work/moved/$(basename "$(dirname "$module")")/$(basename "$module")
cp "$module" "$moved_module"
cd "$work"
export LD_LIBRARY_PATH=moved
[ "$(length)" = "$known" ] || fail "the module beside the moved library is not found"

# The module is not loaded from the working directory.
mv "$moved_module" "$work"
mkdir "$work/qvlsmilparser"
cp "$work/$(basename "$module")" "$work/qvlsmilparser"
[ "$(length)" = unknown ] || fail "a clip is measured without the module"
env -u QT_FATAL_WARNINGS QT_LOGGING_RULES='qvl.platform.media.warning=true' \
  "$qvlmms" show "$work/clip.mms" 2>&1 >"$work/shown" \
  | grep -q 'clips are not measured: .*cannot open shared object file' || fail "the reason is not logged"
grep -q '^ *audio ' "$work/shown" || fail "the clip is not shown"
