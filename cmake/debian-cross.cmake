# SPDX-License-Identifier: MIT
# Cross-compiling to another of Debian's architectures, by Debian's compilers. The toolchain files include it with
# `architecture`, `triplet` and `emulator` set; scripts/lib/arm-deps.sh makes the folder with the libraries.
set(CMAKE_SYSTEM_NAME Linux)
get_filename_component(CMAKE_SYSROOT ${CMAKE_CURRENT_LIST_DIR}/../build/deps/${architecture} ABSOLUTE)
if(NOT EXISTS ${CMAKE_SYSROOT}/DEBIAN/symbols)
  message(FATAL_ERROR "No libraries in ${CMAKE_SYSROOT}: run scripts/lib/arm-deps.sh ${architecture} first.")
endif()
set(CMAKE_C_COMPILER ${triplet}-gcc)
set(CMAKE_CXX_COMPILER ${triplet}-g++)
set(CMAKE_LIBRARY_ARCHITECTURE ${triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_CROSSCOMPILING_EMULATOR ${emulator} -L ${CMAKE_SYSROOT})
set(ENV{PKG_CONFIG_LIBDIR} ${CMAKE_SYSROOT}/usr/lib/${triplet}/pkgconfig)
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${CMAKE_SYSROOT})

# For dpkg-shlibdeps, which takes what stands in DEBIAN/symbols there.
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE ${architecture})
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_SYSROOT}/lib/${triplet} ${CMAKE_SYSROOT}/usr/lib/${triplet})
