# The processors of the slices: the oldest systems that they load on, and those systems' names for the linker.
set(MACHO_TRIPLE_arm64 arm64-apple-ios7.0)
set(MACHO_TRIPLE_armv7 armv7-apple-ios6.0)
set(MACHO_TRIPLE_x86_64 x86_64-apple-ios7.0-simulator)
set(MACHO_PLATFORM_arm64 ios)
set(MACHO_PLATFORM_x86_64 ios-simulator)

# The one that the phone of this build can load.
set(SLICE_ARCH x86_64)
if(CMAKE_SYSTEM_PROCESSOR STREQUAL aarch64)
  set(SLICE_ARCH arm64)
endif()
