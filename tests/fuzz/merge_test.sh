#!/usr/bin/env bash
# fuzz/merge keeps the smaller one of two inputs that reach the same, and drops no input that reaches
# something else.
#     merge_test.sh FUZZ_FOLDER PROGRAMS
set -euo pipefail
source "$(dirname "$0")/../support/script.sh"
fuzz=$1 programs=$2
mkdir "$work/old" "$work/new"
# 256 more spaces: libFuzzer counts how often code runs in 8 bits.
document() { # SPACES
  printf '<smil><body><par/></body></smil>%*s' "$1" ''
}
document 456 >"$work/old/large"
document 200 >"$work/new/small"
printf %s '<smil><body><par dur="5s"><text src="a"/></par></body></smil>' >"$work/new/other"
quietly "$fuzz/merge" "$programs/fuzz_smil" "$work/smil.tar.xz" "$work/old" "$work/new"
mkdir "$work/kept"
python3 -m tarfile -e "$work/smil.tar.xz" "$work/kept"
kept() { # FOLDER/FILE
  [ -f "$work/kept/$(sha1sum <"$work/$1" | cut -d' ' -f1)" ]
}
kept new/small || fail "the small input is missing"
kept new/other || fail "the other input is missing"
! kept old/large || fail "the large input is kept, which reaches nothing else"
