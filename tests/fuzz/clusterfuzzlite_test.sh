#!/usr/bin/env bash
# The build for OSS-Fuzz and ClusterFuzzLite: every target runs on its seeds in a root that has only the C
# library, and measures clips and reads pictures there.
#     tests/fuzz/clusterfuzzlite_test.sh
# Needs root. Takes some minutes, because it builds everything.
set -euo pipefail
cd "$(dirname "$0")/../.."
source tests/support/script.sh
source fuzz/support/targets.sh
[ "$(id -u)" -eq 0 ] || { echo "This needs root."; exit 77; }
root=$work/root
mkdir -p "$root"/{out,proc,tmp} "$work/work"

export CC=clang CXX=clang++ LIB_FUZZING_ENGINE=-fsanitize=fuzzer OUT=$root/out WORK=$work/work
export CFLAGS='-O1 -g1 -fsanitize=address,fuzzer-no-link' CXXFLAGS='-O1 -g1 -fsanitize=address,fuzzer-no-link'
quietly .clusterfuzzlite/build.sh

# The loader by the path that the programs name, and the C library.
needed=$(ldd "$OUT/fuzz_smil")
folder=$(dirname "$(awk '$1 == "libc.so.6" { print $3 }' <<<"$needed")")
for file in "$(grep -oE '/[^ ]*/ld-linux[^ ]*' <<<"$needed")" \
  "$folder"/lib{c,dl,m,pthread,resolv,rt,util}.so.[0-9]; do
  install -D "$file" "$root$file"
done

in_root() { # PROGRAM ARGUMENT...
  env -i QT_LOGGING_RULES='*=false' LD_DEBUG="${debug:-}" \
    unshare --mount sh -euc 'mount -t proc proc "$0/proc"; exec chroot "$0" "$@"' "$root" "$@"
}
for target in "${all_targets[@]}"; do
  seeds=$root/seeds/$target
  mkdir -p "$seeds"
  [ ! -f "$OUT/fuzz_${target}_seed_corpus.zip" ] \
    || python3 -m zipfile -e "$OUT/fuzz_${target}_seed_corpus.zip" "$seeds"
  options=(-runs=0)
  [ ! -f "$OUT/fuzz_$target.dict" ] || options+=("-dict=/out/fuzz_$target.dict")
  quietly in_root "/out/fuzz_$target" "${options[@]}" "/seeds/$target"
  echo "fuzz_$target: $(find "$seeds" -type f | wc -l) seeds"
done

loads() { # LIBRARY TARGET SEED
  debug=files in_root "/out/fuzz_$2" "/seeds/$2/$3" >"$work/loaded" 2>&1 || { cat "$work/loaded"; exit 1; }
  grep -q "calling init: .*$1" "$work/loaded" || fail "fuzz_$2 $3 does not load $1"
}
loads clips.so clip sound.amr
loads libqjpeg.so output tests_fixtures_messages_mixed.mms
