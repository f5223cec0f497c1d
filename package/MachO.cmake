# The device's object format: how its objects are compiled and its libraries linked, a slice a processor.

file(GLOB LIBCXX_HEADERS /usr/lib/llvm-19/include/c++/v1)
set(MACHO_FLAGS -std=c++20 -Os -DNDEBUG -ffreestanding -nostdlibinc -isystem ${LIBCXX_HEADERS} -fblocks -fno-exceptions -fno-rtti
                -fvisibility=hidden -fno-threadsafe-statics -Wall -Wextra -Werror -Wno-cast-function-type-mismatch
                -I${CMAKE_SOURCE_DIR} -ffile-prefix-map=${CMAKE_SOURCE_DIR}=.)

# Compiles sources for a processor; `result` names the objects.
function(macho_objects result arch)
  set(compile ${CCACHE} ${CMAKE_CXX_COMPILER} -target ${MACHO_TRIPLE_${arch}} ${MACHO_FLAGS})
  if(arch STREQUAL armv7)
    # The way from a Thumb function's last jump to another library comes out of the linker wrong: calls alone.
    list(APPEND compile -fno-optimize-sibling-calls)
  else()
    # An exception of the platform passes through the library's frames; on armv7 it needs no tables for that.
    list(APPEND compile -funwind-tables)
  endif()
  set(objects)
  foreach(source ${ARGN})
    file(RELATIVE_PATH name ${CMAKE_SOURCE_DIR} ${source})
    set(object ${CMAKE_BINARY_DIR}/macho/${arch}/${name}.o)
    set(pointers)
    if(arch STREQUAL armv7)
      set(pointers ${CMAKE_SOURCE_DIR}/package/armv7/pointers.awk)
      set(commands COMMAND ${compile} -MD -MF ${object}.d -MT ${object} -S ${source} -o ${object}.compiled.s
                   COMMAND awk -v out=${object}.s -f ${pointers} ${object}.compiled.s
                   COMMAND ${CMAKE_CXX_COMPILER} -target ${MACHO_TRIPLE_armv7} -c ${object}.s -o ${object})
    else()
      set(commands COMMAND ${compile} -MD -MF ${object}.d -c ${source} -o ${object})
    endif()
    get_filename_component(folder ${object} DIRECTORY)
    add_custom_command(
      OUTPUT ${object}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
      ${commands}
      DEPENDS ${source} ${pointers}
      DEPFILE ${object}.d
      COMMENT "Mach-O ${arch} ${name}"
      VERBATIM)
    list(APPEND objects ${object})
  endforeach()
  set(${result} ${objects} PARENT_SCOPE)
endfunction()

# What a library is linked against, as it is on devices: names, symbols and versions. A slice asks for the compatibility
# version that its stub states, and a device does not load one that asks for more than what is installed there states;
# the hooking libraries state 0. The current versions are those of system 9.3, which nobody compares.
file(GLOB MACHO_STUBS CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/package/stubs/*.tbd)

# The linker for armv7 leaves what its memory happened to hold in the gaps between constants: fresh memory is zero here.
set(ARMV7_LINK ${CMAKE_COMMAND} -E env GLIBC_TUNABLES=glibc.malloc.tcache_count=0:glibc.malloc.perturb=255 /usr/lib/llvm-13/bin/ld64.lld.darwinold
               -arch armv7 -ios_version_min 6.0 -sdk_version 6.0 -dylib)

# It reads no text stubs either: libraries with the same names, symbols and versions stand in for them.
function(stub_field result stub field)
  file(STRINGS ${stub} line REGEX "^${field}:")
  string(REGEX REPLACE "^${field}: *'?([^']*)'?$" "\\1" value "${line}")
  set(${result} ${value} PARENT_SCOPE)
endfunction()
set(ARMV7_STUBS)
foreach(stub ${MACHO_STUBS})
  get_filename_component(name ${stub} NAME_WLE)
  stub_field(install_name ${stub} install-name)
  stub_field(current ${stub} current-version)
  stub_field(compatible ${stub} compatibility-version)
  file(STRINGS ${stub} symbols REGEX "^      - ")
  list(TRANSFORM symbols REPLACE "^      - (.*)" ".globl \\1\n\\1: .long 0\n")
  string(JOIN "" assembly ".data\n" ${symbols})
  set(base ${CMAKE_BINARY_DIR}/package/stubs/${name})
  file(CONFIGURE OUTPUT ${base}.s CONTENT "${assembly}" @ONLY)
  add_custom_command(
    OUTPUT ${base}.dylib
    COMMAND ${CMAKE_CXX_COMPILER} -target ${MACHO_TRIPLE_armv7} -c ${base}.s -o ${base}.o
    COMMAND ${ARMV7_LINK} -install_name ${install_name} -compatibility_version ${compatible} -current_version ${current}
            -undefined dynamic_lookup -o ${base}.dylib ${base}.o
    DEPENDS ${base}.s
    COMMENT "Mach-O armv7 stub ${name}"
    VERBATIM)
  list(APPEND ARMV7_STUBS ${base}.dylib)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${stub})
endforeach()

# Links one slice of a library; `install_name` is its path on the device. The linker for armv7 keeps the
# names of all that is the library's own; they are stripped.
function(macho_link slice arch install_name)
  set(linked ${slice}.linked)
  set(unsigned ${slice}.unsigned)
  if(arch STREQUAL armv7)
    set(stubs ${ARMV7_STUBS})
    set(tools weaken-imports ${CMAKE_SOURCE_DIR}/package/armv7/weaken)
    set(commands COMMAND ${ARMV7_LINK} -dead_strip -install_name ${install_name} -o ${linked} ${ARGN} ${stubs}
                 COMMAND ${CMAKE_SOURCE_DIR}/package/armv7/weaken $<TARGET_FILE:weaken-imports> ${linked} ${ARGN}
                 COMMAND llvm-strip-19 -x ${linked} -o ${unsigned})
  else()
    set(stubs ${MACHO_STUBS})
    set(commands COMMAND ld64.lld-19 -arch ${arch} -platform_version ${MACHO_PLATFORM_${arch}} 7.0 7.0 -dylib -no_encryption
                         -dead_strip -x -headerpad 0x100 -install_name ${install_name} -o ${unsigned} ${ARGN} ${stubs})
  endif()
  get_filename_component(folder ${slice} DIRECTORY)
  add_custom_command(
    OUTPUT ${slice}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
    ${commands}
    COMMAND sign-dylib ${unsigned} ${slice}
    DEPENDS ${ARGN} ${stubs} ${tools} sign-dylib
    COMMENT "Mach-O slice ${slice}"
    VERBATIM)
endfunction()
