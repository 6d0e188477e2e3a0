#!/usr/bin/env bash
# Builds the fuzz targets with their seeds, dictionaries and libraries, for OSS-Fuzz and ClusterFuzzLite.
# They set the compilers and flags in $CC, $CXX, $CFLAGS and $CXXFLAGS, the engine in $LIB_FUZZING_ENGINE,
# the folder for the results in $OUT and one for temporary files in $WORK.
set -euo pipefail
cd "$(dirname "$(realpath "$0")")/.."
source fuzz/support/targets.sh
build=$WORK/build

# Qt's packages use libstdc++.
export CXXFLAGS=${CXXFLAGS//-stdlib=libc++/}
# RPATH, unlike RUNPATH, also finds what the libraries need.
cmake -S . -B "$build" -G Ninja --log-level=WARNING \
  -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG= \
  -DCMAKE_EXE_LINKER_FLAGS="-Wl,--disable-new-dtags '-Wl,-rpath,\$ORIGIN/lib'" \
  -DCMAKE_INSTALL_LIBDIR=lib -DCMAKE_SKIP_BUILD_RPATH=ON \
  -DQVL_BUILD_EXAMPLES=OFF -DQVL_BUILD_FUZZERS=ON -DQVL_BUILD_TESTS=OFF \
  -DQVL_FUZZING_ENGINE="$LIB_FUZZING_ENGINE"
cmake --build "$build" --target fuzzers
cmake --install "$build" --component runtime --prefix "$OUT"

programs=("${all_targets[@]/#/fuzz_}")
(cd "$build/fuzz" && cp "${programs[@]}" "$OUT/")
mkdir -p "$OUT/plugins"
cp -r "$(qmake6 -query QT_INSTALL_PLUGINS)/imageformats" "$OUT/plugins/"

# The parts of the C library belong to the loader of the system that runs the targets.
shopt -s extglob
cd "$OUT"
ldd "${programs[@]}" lib/*.so* lib/qvlsmilparser/* plugins/*/* | awk '$2 == "=>" && $3 ~ "^/" { print $3 }' \
  | sort -u | while read -r library; do
    case $library in
    "$OUT"/* | */lib@(c|dl|m|pthread|resolv|rt|util).so.*) ;;
    *) cp -L "$library" lib/ ;;
    esac
  done
cd "$OLDPWD"

for target in "${all_targets[@]}"; do
  program=$OUT/fuzz_$target seeds=$WORK/seeds/$target
  dictionary=$(dictionary_of "$target")
  [ -z "$dictionary" ] || cp "$dictionary" "$program.dict"
  # The check for leaks needs rights that a container may not have.
  ASAN_OPTIONS=detect_leaks=0 LD_LIBRARY_PATH=$OUT/lib fuzz/seed "$target" "$seeds" "$build/fuzz"
  [ -z "$(ls "$seeds")" ] || python3 -m zipfile -c "${program}_seed_corpus.zip" "$seeds"/*
done
