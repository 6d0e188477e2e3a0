#!/usr/bin/env bash
# Starts a virtual X server with a window manager, makes messages, and runs the test program there.
#     display_test.sh QVLMMS PROGRAM FOLDER [FUNCTION...]
# The program writes its screenshots to FOLDER. Without the X server, the window manager, xdotool or ffmpeg
# the test is skipped, or fails if CI is set in the environment.
set -euo pipefail
qvlmms=$(realpath "$1")
program=$(realpath "$2")
mkdir -p "$3"
shots=$(realpath "$3")
source_dir=$(realpath "$(dirname "$0")/../../..")
source "$source_dir/tests/support/script.sh"

for tool in Xvfb openbox xdotool xvfb-run ffmpeg sox; do
  command -v "$tool" >/dev/null && continue
  echo "not tested on a display, because $tool is missing" >&2
  [ -n "${CI:-}" ] && exit 1
  exit 77
done

export HOME=$work/home XDG_CONFIG_HOME=$work/home XDG_DATA_HOME=$work/home XDG_CACHE_HOME=$work/home
export XDG_RUNTIME_DIR=$work/runtime QT_QPA_PLATFORM=xcb QT_QUICK_BACKEND=software LC_ALL=C.UTF-8
mkdir -p -m 700 "$HOME" "$XDG_RUNTIME_DIR"
messages=$work/messages
mkdir "$messages" "$work/media"
"$source_dir/examples/data/make_media" "$work/media"
ffmpeg -nostdin -v error -f lavfi -i testsrc=size=176x144:rate=10:duration=2 -f lavfi -i sine=440:duration=2 \
  -c:v mpeg4 -c:a aac "$work/media/film.mp4"

cp "$source_dir"/tests/fixtures/messages/*.mms "$messages"
compose() {
  quietly "$qvlmms" compose -o "$messages/$1" --to +4915187654321 --subject "${@:2}"
}
media=$work/media
compose holiday.mms 'Holiday greetings' \
  --slide --image "$media/coast.jpg" --text 'Greetings from the coast!' --duration 4s \
  --slide --image "$media/night.png" --audio "$media/tune.amr" --text 'A tune for the night' --text-above \
  --slide --text $'See you soon!\nBis bald!\nまたね' --background navy --text-color white --text-size large
compose tune.mms 'A tune' --slide --image "$media/night.png" --audio "$media/tune.amr"
compose film.mms 'A film' --slide --video "$media/film.mp4" --text 'Two seconds'
head -c 70 "$messages/related.mms" >"$messages/truncated.mms"

# A screen of its own with the window manager, so that windows get the focus as on a desktop.
timeout -s KILL 280 xvfb-run --auto-servernum --server-args='-screen 0 1280x900x24' \
  bash -c 'openbox --sm-disable >/dev/null 2>&1 & manager=$!
    trap "kill $manager" EXIT
    for _ in {1..100}; do # until the window manager answers
      ! xdotool get_desktop >/dev/null 2>&1 || break
      sleep 0.1
    done
    "$0" "$@"' "$program" "$messages" "$media" "$shots" "${@:4}"
