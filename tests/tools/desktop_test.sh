#!/usr/bin/env bash
# The desktop recognizes messages by content and by name, and makes thumbnails of them.
#     desktop_test.sh QVLMMS DESKTOP_FOLDER FIXTURES
set -euo pipefail
qvlmms=$1
desktop=$2
message=$3/messages/related.mms
source "$(dirname "$0")/../support/script.sh"
for tool in update-mime-database gio; do
  command -v "$tool" >/dev/null || { echo "$tool is missing; it recognizes file types"; exit 77; }
done
export XDG_DATA_HOME=$work/data HOME=$work
mkdir -p "$XDG_DATA_HOME/mime/packages"
cp "$desktop/qvlmms.xml" "$XDG_DATA_HOME/mime/packages"
update-mime-database "$XDG_DATA_HOME/mime" >"$work/out" 2>&1 || fail "$(cat "$work/out")"
[ ! -s "$work/out" ] || fail "warnings: $(cat "$work/out")"

is_message() { # FILE
  gio info -a standard::content-type "$1" | grep -q ' application/vnd.wap.mms-message$'
}
for type in 80 87 8F 90 97; do
  printf "\x8C\x$type" >"$work/octets"
  is_message "$work/octets" || fail "a message of the type 0x$type is not recognized by its content"
done
for octets in '\x8C\x7F' '\x8C\x98' '\x8B\x80'; do
  printf "$octets" >"$work/octets"
  ! is_message "$work/octets" || fail "$octets is recognized as a message"
done
cp "$message" "$work/octets"
is_message "$work/octets" || fail "a message without a name is not recognized"
printf 'text' >"$work/a.mms"
is_message "$work/a.mms" || fail "*.mms is not recognized"

# A file manager replaces %s by the size, %i by the message and %o by the picture, which it created.
cp "$message" "$work/a message.mms"
touch "$work/thumbnail.png"
read -ra words <<<"$(sed -n 's/^Exec=qvlmms //p' "$desktop/qvlmms.thumbnailer")"
words=("${words[@]/#%s/128}")
words=("${words[@]/#%i/$work/a message.mms}")
words=("${words[@]/#%o/$work/thumbnail.png}")
env -u DISPLAY -u WAYLAND_DISPLAY "$qvlmms" "${words[@]}" >/dev/null
[ "$(od -An -tx1 -j16 -N8 "$work/thumbnail.png" | tr -d ' ')" = 0000006000000080 ] \
  || fail "the thumbnail is not 96x128 pixels large"
grep -qx "MimeType=$(sed -n 's/.*mime-type type="\([^"]*\)".*/\1/p' "$desktop/qvlmms.xml");" \
  "$desktop/qvlmms.thumbnailer" || fail "the thumbnailer has another type"
