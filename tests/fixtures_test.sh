#!/usr/bin/env bash
# Every fixture has all expected files that tests need, and every expected file has a fixture.
#     fixtures_test.sh FIXTURES
set -euo pipefail
cd "$1"
failed=0
complain() {
  echo "$*"
  failed=1
}

# The arguments are lists of words. OTHERS are files without partners.
partners() { # FOLDER REQUIRED_SUFFIXES OPTIONAL_SUFFIXES OTHERS
  local file name stem partner
  for file in "$1"/*; do
    name=${file##*/}
    stem=${name%.*}
    [[ " $4 " != *" $name "* ]] || continue
    [[ " $2 $3 " == *" ${name##*.} "* ]] || complain "no test reads $file"
    for partner in $2; do
      [ -f "$1/$stem.$partner" ] || complain "$file lacks $1/$stem.$partner"
    done
  done
}
partners show 'mms txt json commands' '' ''
partners versions 'octets txt json strict' '' ''
partners messages 'mms tshark' '' ''
partners smil 'smil model' 'out again' 'parts.txt every-document.commands'
for file in smil/*.again; do
  [ -f "${file%.again}.out" ] || complain "$file lacks ${file%.again}.out"
done
exit "$failed"
