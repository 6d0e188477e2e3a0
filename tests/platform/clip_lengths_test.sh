#!/usr/bin/env bash
# Generates clips of known length with other software. The length that the engine measures must be, within
# one frame, the known length and the length that ffprobe counts.
#     clip_lengths_test.sh CLIP_LENGTH
set -euo pipefail
for program in ffmpeg ffprobe sox; do
  if ! command -v "$program" >/dev/null; then
    echo "skipped: $program is not installed"
    exit 77
  fi
done
clip_length=$(realpath "$1")
source "$(dirname "$0")/../support/script.sh"
cd "$work"

make() { # ARGUMENT...: runs ffmpeg with these arguments
  quietly ffmpeg -nostdin -y "$@"
}
sound() { # SECONDS: prints ffmpeg's arguments for a sound of this length
  echo "-f lavfi -i sine=frequency=440:sample_rate=44100:duration=$1"
}
film() { # SECONDS PICTURES: prints ffmpeg's arguments for a film with this many pictures per second
  echo "-f lavfi -i testsrc=size=176x144:rate=$2:duration=$1"
}
probe() { # FILE STREAM ENTRIES
  ffprobe -v error -select_streams "$2" -show_entries "$3" -of csv=p=0 "$1"
}

failed=0
# FRAME and SECONDS are those of the longest stream. They and COUNTED may be arithmetic expressions.
expect() { # FILE FRAME SECONDS COUNTED
  local measured
  measured=$("$clip_length" "$1" "${1##*.}") || measured="no clip"
  awk -v file="$1" -v measured="$measured" "
    function differs(seconds) { # by more than a frame, because the engine rounds milliseconds
      return measured !~ /^[0-9]+\$/ || (measured - 1000 * (seconds)) ^ 2 > (1000 * $2 + 0.5) ^ 2
    }
    BEGIN {
      if (!differs($3) && !differs($4))
        exit 0
      printf \"%s: %s instead of %d, and %d are counted\n\", file, measured, 1000 * ($3), 1000 * ($4)
      exit 1
    }" || failed=1
}
# The second flag of a packet is D if the container marks it to be discarded.
expect_frames() { # FILE STREAM FRAME SECONDS
  expect "$1" "$3" "$4" "$(probe "$1" "$2" packet=flags | grep -c '^._') * $3"
}
expect_octets() { # FILE STREAM FRAME SECONDS OCTETS: each frame has this many octets
  expect "$1" "$3" "$4" "($(probe "$1" "$2" packet=size | tr -cs '0-9\n' '\n' | paste -sd +)) / $5 * $3"
}

for mode in 0 7; do
  quietly sox -n -r 8000 -c 1 -C "$mode" -t amr-nb "mode$mode.amr" synth 2 sine 440
  expect_frames "mode$mode.amr" a 160/8000 2
done

make $(sound 2) -c:a pcm_s16le pcm.wav
expect_octets pcm.wav a 1/44100 2 2
make $(sound 2) -ar 8000 -c:a pcm_u8 -ac 2 stereo.wav
expect_octets stereo.wav a 1/8000 2 2
make $(sound 2) -c:a adpcm_ima_wav ima.wav
expect_octets ima.wav a 2041/44100 2 1024
make $(sound 2) -ar 8000 -c:a adpcm_ms ms.wav
expect_octets ms.wav a 2036/8000 2 1024

# The encoder adds a delay of 576 samples and the decoder's 529, and fills the last frame.
for format in 44100,1152 22050,576 8000,576; do
  IFS=, read -r rate samples <<<"$format"
  length="$(((2 * rate + 529 + 576 + samples - 1) / samples)) * $samples / $rate"
  for channels in 1 2; do
    for quality in '-b:a 32k' '-q:a 4' '-q:a 4 -write_xing 0'; do
      make $(sound 2) -ar "$rate" -ac "$channels" -c:a libmp3lame $quality sound.mp3
      expect_frames sound.mp3 a "$samples/$rate" "$length"
    done
  done
done
make $(film 1 1) -frames:v 1 cover.png
make $(sound 2) -i cover.png -map 0 -map 1 -c:a libmp3lame -c:v copy -metadata title=Sound cover.mp3
expect_frames cover.mp3 a 1152/44100 "78 * 1152 / 44100"

# The encoder adds a delay of one frame and fills the last one. Only MP4 stores this.
for rate in 44100 22050 8000; do
  make $(sound 2) -ar "$rate" -c:a aac sound.aac
  expect_frames sound.aac a "1024/$rate" "$(((2 * rate + 1023) / 1024 + 1)) * 1024 / $rate"
  make -i sound.aac -c copy -bsf:a aac_adtstoasc copied.m4a
  expect_frames copied.m4a a "1024/$rate" "$(((2 * rate + 1023) / 1024 + 1)) * 1024 / $rate"
  make $(sound 2) -ar "$rate" -c:a aac sound.m4a
  expect_frames sound.m4a a "1024/$rate" 2
done

for seconds in 0.5 2 5; do
  for rate in 8000,256 44100,1024; do
    make $(sound "$seconds") -ar "${rate%,*}" -c:a libvorbis sound.ogg
    expect sound.ogg "${rate#*,}/${rate%,*}" "$seconds" "$(probe sound.ogg a stream=duration)"
  done
done

for file in mpeg4.3gp h263.3gp mpeg4.3g2 libx264.mp4 libx264.mov mjpeg.mov; do
  make $(sound 2) $(film 3 12) -c:a aac -c:v "${file%.*}" "$file"
  expect_frames "$file" v 1/12 3
  make $(sound 3) $(film 2 12) -c:a aac -c:v "${file%.*}" "$file"
  expect_frames "$file" a 1024/44100 3
done
make $(sound 2) $(film 3 12) -c:a aac -c:v mpeg4 -movflags frag_keyframe+empty_moov fragments.mp4
expect_frames fragments.mp4 v 1/12 3
make $(film 3 12) -itsoffset 2 $(sound 3) -c:a aac -c:v mpeg4 late.mp4
expect late.mp4 1024/44100 "2 + 3" "$(probe late.mp4 a format=duration)"

make $(sound 2) $(film 3 12) -c:a libmp3lame -c:v mpeg4 film.avi
expect_frames film.avi v 1/12 3
make $(sound 3) $(film 2 12) -c:a pcm_s16le -c:v mjpeg film.avi
expect_octets film.avi a 1/44100 3 2
make $(film 4 25) -vf 'select=not(mod(n\,10))' -fps_mode vfr -enc_time_base 1/25 -c:v mpeg4 still.avi
expect still.avi 1/25 "91 / 25" "$(probe still.avi v stream=duration)" # every tenth from 0 to 90

for codec in mpeg1video mpeg2video; do
  make $(sound 2) $(film 3 25) -c:a mp2 -c:v "$codec" film.mpg
  expect_frames film.mpg v 1/25 3
  make $(sound 3) $(film 2 25) -c:a mp2 -c:v "$codec" film.mpg
  expect_frames film.mpg a 1152/44100 3
done
exit "$failed"
