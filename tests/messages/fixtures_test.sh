#!/usr/bin/env bash
# The library writes the messages of the fixtures octet for octet, in every time zone.
#     fixtures_test.sh MAKE_MESSAGES PICTURE FIXTURES
set -euo pipefail
source "$(dirname "$0")/../support/script.sh"
mkdir "$work/made"
for zone in UTC CST-8 EST5EDT,M3.2.0,M11.1.0; do
  TZ=$zone "$1" "$2" "$work/made" >/dev/null
  diff -r --exclude='*.tshark' "$3" "$work/made"
done
