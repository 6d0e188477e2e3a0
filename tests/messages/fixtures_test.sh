#!/usr/bin/env bash
# The messages that the library makes are, octet for octet, the fixtures, in whatever time zone.
#     fixtures_test.sh MAKE_MESSAGES PICTURE FIXTURES
set -euo pipefail
source "$(dirname "$0")/../support/script.sh"
for zone in UTC CST-8 EST5EDT,M3.2.0,M11.1.0; do
  TZ=$zone "$1" "$2" "$work" >/dev/null
  for name in notification related mixed; do
    cmp "$3/$name.mms" "$work/$name.mms"
  done
done
