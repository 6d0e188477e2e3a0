#!/usr/bin/env bash
# A project that adds this one as a subproject gets only the library, keeps its build type, and may
# have headers with the names of the library's own.
#     subproject_test.sh SOURCE_DIR
set -euo pipefail
source "$(dirname "$0")/../support/script.sh"
cat >"$work/CMakeLists.txt" <<TEXT
cmake_minimum_required(VERSION 3.25)
project(parent LANGUAGES CXX)
include_directories(own)
add_subdirectory("$1" qvlsmilparser)
if(CMAKE_BUILD_TYPE)
  message(FATAL_ERROR "the build type is \${CMAKE_BUILD_TYPE}")
endif()
if(NOT TARGET qvlsmilparser::qvlsmilparser)
  message(FATAL_ERROR "there is no library")
endif()
foreach(target qvlmms receive wire fuzz_header qvlbench)
  if(TARGET \${target})
    message(FATAL_ERROR "there is a target \${target}")
  endif()
endforeach()
TEXT
for header in base/code_meanings.h wire/octets.h wire/wire_result.h; do
    mkdir -p "$work/own/${header%/*}"
    echo '#error "the library includes a header of the project that uses it"' >"$work/own/$header"
done
quietly cmake -S "$work" -B "$work/build" -G Ninja -DQVL_PRECOMPILE=OFF
object=qvlsmilparser/src/CMakeFiles/qvlsmilparser.dir/wire/wire_result.cpp.o
quietly cmake --build "$work/build" --target "$object"
