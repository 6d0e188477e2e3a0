#!/usr/bin/env bash
# The commands print and write the same with every release of Qt and FFmpeg. The expected transcripts are
# the .commands beside each message, every-document.commands for the documents of smil/, and
# every-option.commands for `qvlmms compose`. They contain standard output and standard error, exit codes,
# and the sizes and checksums of files. NOW replaces the time of decoding. Only the sizes of pictures are
# compared, because text depends on the fonts.
#     transcripts_test.sh QVLMMS FIXTURES PICTURE
#     transcripts_test.sh QVLMMS FIXTURES PICTURE --write     rewrites the .commands; check every change
set -euo pipefail
qvlmms=$(realpath "$1")
fixtures=$(realpath "$2")
picture=$(realpath "$3")
mode=${4:-}
source "$(dirname "$0")/../support/script.sh"
export TZ=UTC LC_ALL=C.UTF-8
cp "$fixtures"/show/*.mms "$fixtures"/clips/* "$picture" "$work"
cd "$work"
failed=0

run() { # ARGUMENT...: prints the command as typed, its output, and its exit code unless it is 0
  local code=0
  printf '$ qvlmms'
  printf ' %s' "${@@Q}" | sed "s/'\([A-Za-z0-9.,:+/=-]*\)'/\1/g"
  printf '\n'
  "$qvlmms" "$@" 2>&1 || code=$?
  [ "$code" -eq 0 ] || printf 'exit code %s\n' "$code"
}
files() { # FOLDER: prints size, checksum and name of each file in it
  [ ! -d "$1" ] || (cd "$1" && find . -type f -exec cksum {} + | LC_ALL=C sort -k 3)
}
body() { # FILE: prints the body; the header has the time of decoding
  local octets
  octets=$("$qvlmms" show "$1" | sed -n 's/^  Body  *\([0-9]*\) octets.*/\1/p' || true)
  tail -c "${octets:-0}" "$1"
}
documents_transcript() {
  cp "$fixtures"/smil/*.smil .
  for document in *.smil; do
    run smil "$document"
    run smil --model "$document"
  done
}
message_transcript() { # NAME
  run extract "$1.mms" parts
  files parts
  run smil "$1.mms"
  run smil --model "$1.mms"
  run render "$1.mms" pictures
  run rewrite "$1.mms" written.mms
  [ ! -e written.mms ] || { run show written.mms && body written.mms | cksum; }
  rm -rf parts pictures written.mms
}
composed_transcript() {
  run compose -o composed.mms --to +4915112345678 --cc anna@example.org --bcc 22000 --from 22001 \
    --subject 'Grüße 港口 ⚓' --priority high --class auto --expiry 7d --delivery-time 2026-05-01T12:00:00Z \
    --delivery-report --read-reply --hide-sender --transaction-id T-1 --date 2026-04-01T12:00:00Z \
    --max-size 300 --slide --text Hafen --image harbour.jpg --duration 4s --text-above --text-below \
    --slide --text 'See you' --background navy --text-color white --text-size large \
    --slide --video video.3gp --slide --audio sound.amr --slide --audio sound.mp3 --slide --audio sound.wav \
    --attach sound.ogg
  cksum composed.mms
  run show composed.mms
  run smil composed.mms
  run render composed.mms pictures
}
compare() { # EXPECTED COMMAND...
  local expected=$1
  "${@:2}" | sed -E 's/[0-9-]{10}T[0-9:]{8}Z( \(when it was decoded\))/NOW\1/' >transcript
  if [ "$mode" = --write ]; then
    cp transcript "$expected"
  else
    diff -u "$expected" transcript || failed=1
  fi
}

for message in "$fixtures"/show/*.mms; do
  name=$(basename "$message" .mms)
  compare "$fixtures/show/$name.commands" message_transcript "$name"
done
compare "$fixtures/smil/every-document.commands" documents_transcript
compare "$fixtures/compose/every-option.commands" composed_transcript
exit "$failed"
