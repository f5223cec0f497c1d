# Builds for Linux on arm64 out of Debian's packages for it, which `script/test-arm64` unpacks into ARM64_SYSROOT.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ARM64_SYSROOT)

set(CMAKE_SYSROOT ${ARM64_SYSROOT})
set(CMAKE_LIBRARY_ARCHITECTURE aarch64-linux-gnu)
foreach(language C CXX)
  set(CMAKE_${language}_COMPILER_TARGET aarch64-linux-gnu)
endforeach()
set(CMAKE_C_COMPILER clang-19)
set(CMAKE_CXX_COMPILER clang++-19)
# What only the libraries themselves need is found when they run.
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-fuse-ld=lld-19 -Wl,--allow-shlib-undefined")
endforeach()

set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${ARM64_SYSROOT})
set(ENV{PKG_CONFIG_LIBDIR} ${ARM64_SYSROOT}/usr/lib/aarch64-linux-gnu/pkgconfig:${ARM64_SYSROOT}/usr/share/pkgconfig)

set(GCC_INCLUDE ${ARM64_SYSROOT}/usr/lib/gcc/aarch64-linux-gnu/12/include)
set(LIBOBJC ${ARM64_SYSROOT}/usr/lib/aarch64-linux-gnu/libobjc.so.4)

# What the build itself runs, such as the signer and the listing of the tests.
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64 -L ${ARM64_SYSROOT})
