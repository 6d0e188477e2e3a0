#!/usr/bin/env bash
# `qvlmms show` and `qvlmms smil` find in a message from `qvlmms compose` what the options set. A refusal
# leaves no file.
#     compose_test.sh QVLMMS FIXTURES PICTURE
set -euo pipefail
qvlmms=$1
fixtures=$2
source "$(dirname "$0")/../support/script.sh"
export TZ=UTC LC_ALL=C.UTF-8
failed=0

cp "$3" "$work/harbour.jpg"
cp "$fixtures/clips/video.3gp" "$work/"
cd "$work"
{
  printf '#!AMR\n'
  for _ in {1..117}; do # frames of 20 ms
    printf '\x3c'
    printf '%031d' 0
  done
} >voice.amr
printf 'no picture' >torn.jpg
printf 'no sound' >torn.amr
printf 'no video' >torn.3gp
printf 'Grüße\nvon der See' >note.txt
printf 'Gr\xfc\xdfe' >latin1.txt
printf 'ends in zero\0' >zero.txt
printf 'BEGIN:VCARD' >anna.vcf
printf 'what\0is this' >strange.xyz
: >nothing
cp harbour.jpg picture
cp note.txt plain
mkdir out

complain() {
  echo "$*"
  failed=1
}
compose() { # ARGUMENT...: writes out/message.mms, and what show prints of it to $json and $text
  rm -f out/*
  json='' text=''
  "$qvlmms" compose -o out/message.mms "$@" >printed 2>error || { complain "$*: $(cat error)"; return; }
  [ ! -s error ] || complain "$*: $(cat error)"
  json=$("$qvlmms" show --json out/message.mms)
  text=$("$qvlmms" show out/message.mms)
}
has() { # TEXT WHERE WHAT
  [[ "$1" == *"$2"* ]] || complain "no $2 in: $1"
}
has_not() {
  [[ "$1" != *"$2"* ]] || complain "there is $2 in: $1"
}
refuse() { # CODE LINE ARGUMENT...: compose ends with this code, prints this line and leaves no file
  local code=$1 line=$2 actual=0
  shift 2
  rm -f out/*
  "$qvlmms" compose -o out/message.mms "$@" >printed 2>error || actual=$?
  [ "$actual" -eq "$code" ] || complain "$*: exit code $actual instead of $code"
  [ "$(cat error)" = "qvlmms: $line" ] || complain "$*: $(cat error)"
  [ ! -s printed ] && [ -z "$(ls -A out)" ] || complain "$*: left a file or printed to standard output"
}
to=(--to +4915112345678)

# Header fields
while IFS='|' read -r arguments expected; do
  eval "compose --slide --text x $arguments"
  has "$json" "$expected"
done <<'ROWS'
--to +4915112345678|"To":[{"address":"+4915112345678","kind":"phone","name":""}]
--to 22000 --to anna@example.org|"To":[{"address":"22000","kind":"phone","name":""},{"address":"anna@example.org","kind":"e-mail","name":""}]
--cc 1 --cc 2|"Cc":[{"address":"1","kind":"phone","name":""},{"address":"2","kind":"phone","name":""}]
--bcc anna@example.org|"Bcc":[{"address":"anna@example.org","kind":"e-mail","name":""}]
--to 1|"From":{"address":"","kind":"not given","name":"NoBody"}
--to 1 --from +491|"From":{"address":"+491","kind":"phone","name":""}
--to 1 --from me@example.org|"From":{"address":"me@example.org","kind":"e-mail","name":""}
--to 1 --subject "Grüße 港口 ⚓"|"Subject":"Grüße 港口 ⚓"
--to 1 --subject $'a\u202eb\u200e'|"Subject":"a\u202eb\u200e"
--to $'a\u200f@b'|"address":"a\u200f@b"
--to 1 --subject "Übersee"|"Subject":"Übersee
--to 1 --subject "-o"|"Subject":"-o"
--to 1 --priority low|"Priority":{"name":"low","value":128}
--to 1 --priority normal|"Priority":{"name":"normal","value":129}
--to 1 --priority high|"Priority":{"name":"high","value":130}
--to 1 --class personal|"Message-Class":{"name":"personal","value":128}
--to 1 --class advertisement|"Message-Class":{"name":"advertisement","value":129}
--to 1 --class informational|"Message-Class":{"name":"informational","value":130}
--to 1 --class auto|"Message-Class":{"name":"auto","value":131}
--to 1 --expiry 7d|"seconds":604800
--to 1 --expiry 90|"seconds":90
--to 1 --delivery-time 2026-05-01T12:00:00+02:00|"Delivery-Time":"2026-05-01T10:00:00Z"
--to 1 --delivery-report|"Delivery-Report":true
--to 1 --read-reply|"Read-Reply":true
--to 1 --hide-sender|"Sender-Visibility":"hide"
--to 1 --transaction-id T-9|"Transaction-Id":"T-9"
--to 1|"checks":{"mandatoryFields":true,"minorVersion":true,"order":true,"version":true}
ROWS
compose "${to[@]}" --slide --text x
for field in Cc Bcc Subject Priority Message-Class Expiry Delivery-Time Delivery-Report Read-Reply \
  Sender-Visibility; do
  has_not "$json" "\"$field\":"
done
random() { # prints the random part of the transaction id
  grep -oE '"Transaction-Id":"[0-9]+-[0-9a-f]{12}"' <<<"$json" | cut -d- -f3
}
first=$(random) || complain "the transaction id is not a time and a random number"
compose "${to[@]}" --slide --text x
[ "$first" != "$(random)" ] || complain "two messages have the same transaction id"

# Slides
compose "${to[@]}" --slide --image harbour.jpg --text 'At the <sea> & "港口"' --duration 2.3 \
  --slide --text-file note.txt --audio voice.amr --text-color white --text-size large \
  --slide --video video.3gp --background '#FF8000' --attach anna.vcf
has "$(cat printed)" "wrote out/message.mms, $(stat -c %s out/message.mms) octets, 3 slides, 7 parts"
has "$json" '"start":"<slides.smil>"'
has "$json" '"type":"application/vnd.wap.multipart.related"'
has "$json" '"parts":[{"charset":"","contentId":"<slides.smil>","contentType":"application/smil","declaredCharset":"","displayName":"slides.smil","fileName":"slides.smil","kind":"shown"'
has "$json" '"contentType":"text/x-vCard","declaredCharset":"","displayName":"anna.vcf","fileName":"anna.vcf","kind":"attachment"'
has "$json" '"charset":"UTF8","contentId":"","contentType":"text/plain","declaredCharset":"UTF-8","displayName":"note.txt","fileName":"note.txt","kind":"shown"'
has "$json" '"firstLine":"At the <sea> & \"港口\""'
has "$json" '"firstLine":"Grüße"'
has "$json" '"pageColor":"#ff8000"'
has "$json" '"textColor":"#ffffff","textSize":"large"'
has "$text" 'slide 1: 2300 ms (from'
has "$text" 'slide 2: 2500 ms (from'
smil=$("$qvlmms" smil out/message.mms | tr -d '\n')
has "$smil" '<par dur="2300ms"><img src="harbour.jpg" alt="harbour.jpg" region="image" ></img><text src="slide1.txt" alt="slide1.txt" region="text" ></text></par>'
has "$smil" '<param name="foreground-color" value="#ffffff" /><param name="textsize" value="large" /></text><audio src="voice.amr" alt="voice.amr" >'
has "$smil" '<video src="video.3gp" alt="video.3gp" >'
has "$smil" '<root-layout height="160" width="120" />'
"$qvlmms" extract out/message.mms parts >/dev/null
for file in harbour.jpg note.txt voice.amr video.3gp anna.vcf; do
  cmp "$file" "parts/$file" || complain "$file came out changed"
done

order() { # the media of the first slide, by kind
  grep -o '"kind":"\(text\|image\|audio\|video\)"' <<<"$json" | cut -d'"' -f4 | tr '\n' ' '
}
while IFS='|' read -r arguments expected; do
  eval "compose --to 1 --slide $arguments"
  [ "$(order)" = "$expected " ] || complain "$arguments: $(order)"
done <<'ROWS'
--text x --image harbour.jpg|image text
--image harbour.jpg --text x|image text
--text-above --text x --image harbour.jpg|text image
--image harbour.jpg --text x --text-above|text image
--image harbour.jpg --text x --text-above --text-below|image text
--audio voice.amr --text x --text-above --video video.3gp|text audio video
ROWS

while IFS='|' read -r arguments expected; do
  eval "compose --to 1 --slide --text x $arguments"
  has "$text" "slide 1: $expected"
done <<'ROWS'
--image harbour.jpg|5000 ms
--audio voice.amr|2500 ms
--audio voice.amr --duration 7s|7000 ms
--duration 7s --audio voice.amr|7000 ms
--duration 1ms|1 ms
--background navy|5000 ms (from the document or by default), page #000080
--text-color navy|5000 ms (from the document or by default), text #000080
--text-size small|5000 ms (from the document or by default), text size small
ROWS

# Texts and media before the first --slide are the first slide. --attach is not on a slide.
while IFS='|' read -r arguments expected; do
  eval "compose --to 1 $arguments"
  has "$(cat printed)" "$expected"
done <<'ROWS'
--text x|1 slide, 2 parts
--text-file note.txt --image harbour.jpg --audio voice.amr|1 slide, 4 parts
--video video.3gp --duration 3s --background navy|1 slide, 2 parts
--attach anna.vcf --image harbour.jpg --slide --text x|2 slides, 4 parts
ROWS
compose --to 1 --image harbour.jpg --slide --text x --duration 2s
has "$text" 'slide 1: 5000 ms'
has "$text" 'slide 2: 2000 ms'

# An empty text is sent only if no other medium carries the page color.
compose --to 1 --slide --text '' --background navy --slide --text '' --image harbour.jpg
has "$text" 'page #000080'
has_not "$json" slide2.txt

# Attachments alone
compose "${to[@]}" --attach anna.vcf --attach strange.xyz --attach nothing
has "$(cat printed)" ', 0 slides, 3 parts'
has "$json" '"type":"application/vnd.wap.multipart.mixed"'
has "$json" '"contentType":"application/octet-stream","declaredCharset":"","displayName":"strange.xyz"'
has_not "$json" application/smil

# A file whose extension says nothing is recognized by its content, and keeps its name.
recognized() { # TYPE LOCATION OPTION FILE
  cp "$4" "$2"
  compose "${to[@]}" "$3" "$2"
  has "$json" "\"contentType\":\"$1\",\"declaredCharset\":\"\",\"displayName\":\"$2\",\"fileName\":\"$2\",\"kind\":\"shown\",\"location\":\"$2\""
}
type_by_extension() { # FILE
  "$qvlmms" compose -o typed.mms --to 1 --attach "$1" >/dev/null
  "$qvlmms" show --json typed.mms | sed 's/.*"contentType":"\([^"]*\)".*/\1/'
}
recognized image/jpeg photo --image harbour.jpg
recognized image/jpeg photo.0815 --image harbour.jpg
recognized image/jpeg photo. --image harbour.jpg
recognized audio/amr voice --audio voice.amr
recognized video/3gpp film --video video.3gp
for format in aac amr mp3 wav ogg m4a; do
  recognized "$(type_by_extension "$fixtures/clips/sound.$format")" sound --audio "$fixtures/clips/sound.$format"
done
for format in 3gp avi mpg; do
  recognized "$(type_by_extension "$fixtures/clips/video.$format")" film --video "$fixtures/clips/video.$format"
done
compose "${to[@]}" --attach plain --attach photo
has "$json" '"charset":"UTF8","contentId":"","contentType":"text/plain","declaredCharset":"UTF-8","displayName":"plain"'
has "$json" '"contentType":"image/jpeg","declaredCharset":"","displayName":"photo"'
cp latin1.txt old
compose "${to[@]}" --attach old
has "$json" '"contentType":"application/octet-stream","declaredCharset":"","displayName":"old"'

# Every Content-ID is in angle brackets: without them the library omits the quote of the text, which other
# software expects.
compose "${to[@]}" --image harbour.jpg --text x --attach anna.vcf
ids=$(grep -o '"contentId":"[^"]*"' <<<"$json" | cut -d'"' -f4 | tr '\n' ' ')
[ "$ids" = '<slides.smil>    ' ] || complain "Content-IDs: $ids"

# Names
mkdir -p names/other
long=$(printf 'n%.0s' {1..200})
for name in 'a&b' 'ünï' '<x>' 'two "words"' ' blank ' '100%' 'a:b' '' "$long" other/harbour other/slides; do
  cp harbour.jpg "names/$name.jpg"
done
cp names/other/slides.jpg names/other/slides.smil
located() { # LOCATION ARGUMENT...: expects this location of the first part after the presentation
  local expected=$1 found
  shift
  compose --to 1 "$@"
  found=$(grep -o '"location":"[^,]*"' <<<"$json" | sed -n 2p)
  [ "$found" = "\"location\":\"$expected\"" ] || complain "$*: $found"
}
located a_b.jpg --slide --image 'names/a&b.jpg'
located ünï.jpg --slide --image 'names/ünï.jpg'
located _x_.jpg --slide --image 'names/<x>.jpg'
located 'two _words_.jpg' --slide --image 'names/two "words".jpg'
located 'blank .jpg' --slide --image 'names/ blank .jpg'
located 100%.jpg --slide --image names/100%.jpg
located a:b.jpg --slide --image names/a:b.jpg
located .jpg --slide --image names/.jpg
located "${long:0:85}.jpg" --slide --image "names/$long.jpg"
compose --to 1 --slide --text x --attach 'names/a&b.jpg'
has "$json" '"location":"a_b.jpg"'
compose --to 1 --slide --image harbour.jpg --slide --image names/other/harbour.jpg \
  --attach harbour.jpg --attach names/other/slides.smil
for location in harbour.jpg harbour_0.jpg harbour_1.jpg slides.smil slides_0.smil; do
  has "$json" "\"location\":\"$location\""
done

# Output
"$qvlmms" compose -o - --to 1 --transaction-id T --date 2026-01-01 --slide --text x >standard.mms
"$qvlmms" compose -o out/message.mms --to 1 --transaction-id T --date 2026-01-01 --slide --text x >printed
cmp standard.mms out/message.mms || complain "standard output differs from a file"
printf 'old' >kept.mms
! "$qvlmms" compose -o kept.mms --to 1 --slide 2>/dev/null || complain "accepted an empty slide"
[ "$(cat kept.mms)" = old ] || complain "a refused message changed the file"
"$qvlmms" compose -o kept.mms --to 1 --slide --text x >printed
"$qvlmms" show kept.mms >/dev/null || complain "did not replace a file"
output() { # OUT LINE
  local code=0
  "$qvlmms" compose -o "$1" --to 1 --slide --text x >printed 2>error || code=$?
  [ "$code" -eq 2 ] && [ "$(cat error)" = "qvlmms: $2" ] || complain "-o $1: $code, $(cat error)"
}
output missing/x.mms 'cannot write missing/x.mms: there is no folder missing; create it first'
output out 'cannot write out: it is a folder; name a file, or - for standard output'
code=0
"$qvlmms" compose -o - --to 1 --slide --text x >/dev/full 2>error || code=$?
[ "$code" -eq 2 ] && [ "$(cat error)" = 'qvlmms: cannot write standard output: No space left on device' ] \
  || complain "a full device: exit code $code, $(cat error)"

# Refusals: wrong usage and files
color_line='#rrggbb, aqua, black, blue, fuchsia, gray, green, lime, maroon, navy, olive, purple, red, silver, teal, white or yellow is expected'
refuse 2 'a message needs a recipient: --to, --cc or --bcc' --slide --text x
refuse 2 'a message needs content, such as --text or --attach' --to 1 --subject x
refuse 2 '--to bob: a phone number such as +4915112345678 or an e-mail address is expected' --to bob
refuse 2 '--from : a phone number such as +4915112345678 or an e-mail address is expected' --from ''
refuse 2 '--priority urgent: low, normal or high is expected' --priority urgent
refuse 2 '--class 128: personal, advertisement, informational or auto is expected' --class 128
refuse 2 '--expiry never: a time such as 7d, 12h, 30m or 3600s is expected' --expiry never
refuse 2 '--date today: a date from 1970 to 2038-01-19 such as 2026-05-01T12:00:00Z is expected' --date today
refuse 2 '--transaction-id a b: a text of visible ASCII characters is expected' --transaction-id 'a b'
refuse 2 '--max-size 0: a number of KB from 1 to 102400 is expected' --max-size 0
refuse 2 '--max-size 102401: a number of KB from 1 to 102400 is expected' --max-size 102401
for option in '--duration 1s' '--background red' '--text-color red' '--text-size small' --text-above \
  --text-below; do
  # shellcheck disable=SC2086
  refuse 2 "${option%% *} applies to a slide: put --slide before it" --to 1 $option --slide --text x
done
refuse_text() { # WHAT ARGUMENT...
  local what=$1
  shift
  refuse 2 "$what is expected" --to 1 --slide "$@" --text x
}
line='text in UTF-8 without line feeds and other control characters'
name='text in UTF-8 without control characters and changes of the writing direction'
refuse_text "--subject a\u{a}b: $line" --subject $'a\nb'
refuse_text "--subject a\u{d}: $line" --subject $'a\r'
refuse_text "--subject \u{9}: $line" --subject $'\t'
refuse_text "--subject \u{85}: $line" --subject $'\u0085'
refuse_text "--subject \u{2028}: $line" --subject $'\u2028'
refuse_text "--subject a�: $line" --subject $'a\xff'
refuse_text "--subject ���: $line" --subject $'\xed\xa0\x80' # a lone surrogate
refuse_text "--to a\u{202e}@b: $name" --to $'a\u202e@b'
refuse_text "--cc a\u{7}@b: $name" --cc $'a\a@b'
refuse_text "--bcc a@b\u{2066}: $name" --bcc $'a@b\u2066'
refuse_text "--from a�@b: $name" --from $'a\xe4@b'
for option in attach text-file image video audio; do
  refuse_text "--$option folder/\u{202e}gpj.exe: $name" "--$option" $'folder/\u202egpj.exe'
  refuse_text "--$option a\u{a}b.jpg: $name" "--$option" $'a\nb.jpg'
done
refuse_text '--text �: text in UTF-8' --text $'\xff'
refuse 2 '--duration 0: a duration above 0 such as 5s, 2500ms or 2.5 is expected' --to 1 --slide --duration 0
refuse 2 "--background beige: $color_line" --to 1 --slide --background beige
refuse 2 "--text-color #fff: $color_line" --to 1 --slide --text-color '#fff'
refuse 2 '--text-size huge: small, normal or large is expected' --to 1 --slide --text-size huge
refuse 2 'cannot read missing.jpg: there is no such file; check its name' --to 1 --slide --image missing.jpg
refuse 2 'cannot read missing.txt: there is no such file; check its name' --to 1 --slide --text-file missing.txt
refuse 2 'cannot read missing.vcf: there is no such file; check its name' --to 1 --attach missing.vcf
refuse 2 'cannot read ..: it is a folder; name the files in it' --to 1 --attach ..

# Refusals: content
refuse 1 'slide 2 already has a text; begin a new slide with --slide' --to 1 --slide --text a --slide --text b --text-file note.txt
refuse 1 'slide 1 already has an image or a video; begin a new slide with --slide' --to 1 --slide --image harbour.jpg --image harbour.jpg
refuse 1 'slide 1 already has an image or a video; begin a new slide with --slide' --to 1 --slide --image harbour.jpg --video video.3gp
refuse 1 'slide 1 already has an image or a video; begin a new slide with --slide' --to 1 --slide --video video.3gp --image harbour.jpg
refuse 1 'slide 1 already has an audio; begin a new slide with --slide' --to 1 --slide --audio voice.amr --audio voice.amr
refuse 1 'slide 2 has no text, picture or audio; add one, or remove the slide' --to 1 --slide --text x --slide
refuse 1 'slide 1 has no text, picture or audio; add one, or remove the slide' --to 1 --slide --text ''
refuse 1 'slide 1 has a text color or size, but no text; add one with --text' --to 1 --slide --image harbour.jpg --text-color red
refuse 1 'slide 1 has a text color or size, but no text; add one with --text' --to 1 --slide --image harbour.jpg --text-size small
unknown='is not known by its extension or its content; give the file the extension of its type, such as .jpg, or send it with --attach'
refuse 1 "the type of strange.xyz $unknown" --to 1 --slide --image strange.xyz
refuse 1 "the type of nothing $unknown" --to 1 --slide --audio nothing
refuse 1 'picture is image/jpeg by its content, not audio; use --image' --to 1 --slide --audio picture
refuse 1 'plain is text/plain by its content, not image; use --text-file' --to 1 --slide --image plain
refuse 1 'voice.amr is audio/amr by its extension, not image; use --audio' --to 1 --slide --image voice.amr
refuse 1 'harbour.jpg is image/jpeg by its extension, not audio; use --image' --to 1 --slide --audio harbour.jpg
refuse 1 'voice.amr is audio/amr by its extension, not video; use --audio' --to 1 --slide --video voice.amr
refuse 1 'torn.jpg cannot be shown or played as image/jpeg; it may be damaged or misnamed; --attach sends it unchanged' --to 1 --slide --image torn.jpg
refuse 1 'torn.amr cannot be shown or played as audio/amr; it may be damaged or misnamed; --attach sends it unchanged' --to 1 --slide --audio torn.amr
refuse 1 'torn.3gp cannot be shown or played as video/3gpp; it may be damaged or misnamed; --attach sends it unchanged' --to 1 --slide --video torn.3gp
refuse 1 'latin1.txt is not UTF-8 text; convert it with iconv' --to 1 --slide --text-file latin1.txt
refuse 1 'To would be different when read back; change it or remove it' --to a/TYPE=PLMN@b --slide --text x
refuse 1 'zero.txt would be different when read back; change it or remove it' --to 1 --slide --text-file zero.txt
# More parts would need a count of two octets, but the library writes one.
# shellcheck disable=SC2046
refuse 1 '128 parts are too many; a message has at most 127' --to 1 $(printf -- '--attach nothing %.0s' {1..128})

# Size: a message of exactly the limit is written, a message with one octet more is not.
fixed=(--to 1 --transaction-id T --date 2026-01-01 --max-size 2)
filled() { # OCTETS: writes a message with an attachment of this size
  head -c "$1" /dev/zero >fill.bin
  "$qvlmms" compose -o out/message.mms "${fixed[@]}" --attach fill.bin >printed 2>error
}
filled 1900
room=$((1900 + 2048 - $(stat -c %s out/message.mms)))
filled "$room" || complain "refused a message of exactly the limit: $(cat error)"
[ "$(stat -c %s out/message.mms)" -eq 2048 ] || complain "expected 2048 octets"
head -c "$((room + 1))" /dev/zero >fill.bin
refuse 1 'the message has 2049 octets, more than the limit of 2048 octets (2 KB); send less, or set a higher limit with --max-size' "${fixed[@]}" --attach fill.bin
refuse 1 'the message with voice.amr has more than the limit of 2048 octets (2 KB); send less, or set a higher limit with --max-size' --slide --audio voice.amr "${fixed[@]}"
head -c 310000 /dev/zero >fill.bin
cp fill.bin 100%1.bin
refuse 1 'the message with 100%1.bin has more than the limit of 307200 octets (300 KB); send less, or set a higher limit with --max-size' --to 1 --attach 100%1.bin
compose --to 1 --attach fill.bin --max-size 400

exit "$failed"
