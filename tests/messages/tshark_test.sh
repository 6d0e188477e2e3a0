#!/usr/bin/env bash
# tshark reads the messages of the library. Each message is the body of an HTTP response in a capture, and
# tshark must print every line of the .tshark file beside it, in this order.
#     tshark_test.sh FIXTURES
set -euo pipefail
if ! command -v tshark >/dev/null || ! command -v text2pcap >/dev/null; then
  echo "skipped: tshark is not installed"
  exit 77
fi
source "$(dirname "$0")/../support/script.sh"

http_response() {
  printf 'HTTP/1.1 200 OK\r\nContent-Type: application/vnd.wap.mms-message\r\n'
  printf 'Content-Length: %d\r\n\r\n' "$(stat -c %s "$1")"
  cat "$1"
}

failed=0
for expected in "$1"/*.tshark; do
  message=${expected%.tshark}.mms
  http_response "$message" | od -Ax -tx1 -v >"$work/hex"
  text2pcap -q -T 80,40000 "$work/hex" "$work/capture" 2>/dev/null
  LC_ALL=C.UTF-8 tshark -r "$work/capture" -V 2>/dev/null | sed 's/^ *//' >"$work/read"
  from=1
  while IFS= read -r line; do
    at=$(tail -n "+$from" "$work/read" | grep -nxF -- "$line" | head -n 1 | cut -d: -f1 || true)
    if [ -z "$at" ]; then
      printf '%s: tshark does not print, after line %d: %s\n' "$message" "$((from - 1))" "$line"
      failed=1
      continue
    fi
    from=$((from + at))
  done <"$expected"
done
[ "$failed" -eq 0 ] || { sed -n '/MMS/,$p' "$work/read"; exit 1; }
