#!/usr/bin/env bash
# tshark finds in a message from `qvlmms compose` what the options set.
#     compose_tshark_test.sh QVLMMS PICTURE
set -euo pipefail
qvlmms=$1
source "$(dirname "$0")/../support/script.sh"
tshark_test=$(cd "$(dirname "$0")/../messages" && pwd)/tshark_test.sh
export TZ=UTC LC_ALL=C.UTF-8
cp "$2" "$work/harbour.jpg"
cd "$work"
printf 'BEGIN:VCARD' >anna.vcf
mkdir seen
"$qvlmms" compose -o seen/message.mms --to +4915112345678 --cc a@b --bcc c@d --from +49151 --subject Sea \
  --priority high --class auto --expiry 1h --delivery-time 2026-05-01T12:00:00Z --delivery-report \
  --read-reply --hide-sender --transaction-id T-9 --date 2026-04-01T08:30:00+02:00 \
  --slide --image harbour.jpg --text 'By the sea' --background navy --attach anna.vcf
cat >seen/message.tshark <<'LINES'
MMS Message Encapsulation, Type: m-send-req
X-Mms-Transaction-ID: T-9
X-Mms-MMS-Version: 1.0
Date: Apr  1, 2026 06:30:00.000000000 UTC
From: +49151/TYPE=PLMN
To: +4915112345678/TYPE=PLMN
Cc: a@b
Bcc: c@d
Subject: Sea
X-Mms-Message-Class: Auto (0x83)
X-Mms-Expiry: 3600.000000000 seconds
X-Mms-Delivery-Time: May  1, 2026 12:00:00.000000000 UTC
X-Mms-Priority: High (0x82)
Sender-Visibility: Hide (0x80)
X-Mms-Delivery-Report: Yes (0x80)
X-Mms-Read-Report: Yes (0x80)
Content-Type: application/vnd.wap.multipart.related; Start=<slides.smil>; type=application/smil
Part: 1, content-type: application/smil
Content-Id: "<slides.smil>"
src="harbour.jpg"
name="background-color"
value="#000080"/>
src="slide1.txt"
Part: 2, content-type: image/jpeg
Content-Location: harbour.jpg
Part: 3, content-type: text/plain
Content-Type: text/plain; Name=slide1.txt; charset=UTF-8
By the sea
Part: 4, content-type: text/x-vCard
LINES
"$tshark_test" seen
