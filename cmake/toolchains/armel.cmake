# 32-bit ARM without a floating-point unit, against a root of Debian's armel; what is built runs under
# QEMU. tests/armel/run makes the root and uses this.
#     cmake --toolchain cmake/toolchains/armel.cmake -DQVL_ARMEL_ROOT=/path/to/the/root ...
set(QVL_ARMEL_ROOT ${CMAKE_CURRENT_LIST_DIR}/../../build/armel/root CACHE PATH
  "Folder with a Debian of the architecture armel")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES QVL_ARMEL_ROOT)

set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR armv5tel)
set(CMAKE_CXX_COMPILER arm-linux-gnueabi-g++)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabi)
set(CMAKE_SYSROOT ${QVL_ARMEL_ROOT})
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi) # nothing here was built by a GCC before 7
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm-static;-L;${QVL_ARMEL_ROOT})

set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${QVL_ARMEL_ROOT})
set(ENV{PKG_CONFIG_LIBDIR}
  ${QVL_ARMEL_ROOT}/usr/lib/arm-linux-gnueabi/pkgconfig:${QVL_ARMEL_ROOT}/usr/share/pkgconfig)
