# SPDX-License-Identifier: MIT

# The project's own compiler options. Contraction to fused multiply-add is off: sampled curves must come out
# the same on every processor.
add_library(halvex_options INTERFACE)
target_compile_options(halvex_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                                                -Wnon-virtual-dtor -ffp-contract=off)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees overlaps where a text literal is joined to a string (its bug 105651).
  target_compile_options(halvex_options INTERFACE -Wno-restrict)
endif()
if(HALVEX_WERROR)
  target_compile_options(halvex_options INTERFACE -Werror)
endif()
if(HALVEX_SANITIZERS)
  target_compile_options(halvex_options INTERFACE -fsanitize=${HALVEX_SANITIZERS} -fno-omit-frame-pointer
                                                  -fno-sanitize-recover=all)
  target_link_options(halvex_options INTERFACE -fsanitize=${HALVEX_SANITIZERS})
endif()
if(WIN32)
  target_compile_definitions(halvex_options INTERFACE UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX
                                                      _WIN32_WINNT=0x0A00)
  if(NOT CMAKE_BUILD_TYPE STREQUAL Debug)
    target_link_options(halvex_options INTERFACE -s)
  endif()
  # The same sources make the same file.
  target_link_options(halvex_options INTERFACE -Wl,--no-insert-timestamp)
  # Sections that begin at pages of the file can be mapped from it as they are, also by Wine.
  target_link_options(halvex_options INTERFACE -Wl,--file-alignment=4096)
else()
  # Systems of 32 bits, too, read files of any size and date.
  add_compile_definitions(_FILE_OFFSET_BITS=64 _TIME_BITS=64)
endif()

# halvex_library(NAME SOURCES file... LINKS library...): one folder's static library. It sees the headers of
# the whole tree by their paths from the root; scripts/check-levels holds the includes to the levels.
function(halvex_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${arg_LINKS} Threads::Threads PRIVATE halvex_options)
  if(HALVEX_SANITIZERS)
    target_link_options(${name} PUBLIC -fsanitize=${HALVEX_SANITIZERS})
  endif()
endfunction()
