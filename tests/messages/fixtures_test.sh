#!/usr/bin/env bash
# The messages that the example makes are, octet for octet, the fixtures, in whatever time zone.
#     fixtures_test.sh MAKE_MESSAGES PICTURE FIXTURES
set -euo pipefail
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
for zone in UTC CST-8 EST5EDT,M3.2.0,M11.1.0; do
  TZ=$zone "$1" "$2" "$out" >/dev/null
  for name in notification related mixed; do
    cmp "$3/$name.mms" "$out/$name.mms"
  done
done
