#!/usr/bin/env bash
# A project that adds this one as a subproject gets only the library, and keeps its build type.
#     subproject_test.sh SOURCE_DIR
set -euo pipefail
source "$(dirname "$0")/../support/script.sh"
cat >"$work/CMakeLists.txt" <<TEXT
cmake_minimum_required(VERSION 3.25)
project(parent LANGUAGES CXX)
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
quietly cmake -S "$work" -B "$work/build" -G Ninja
