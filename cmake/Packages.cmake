# SPDX-License-Identifier: MIT
# What is installed, and what goes into the packages, which scripts/package makes: a Debian package on Linux; a ZIP
# and an installer for Windows.
include(GNUInstallDirs)
set(packaging ${CMAKE_SOURCE_DIR}/packaging)
set(generated ${CMAKE_BINARY_DIR}/packaging)

set(CPACK_PACKAGE_NAME halvex)
set(CPACK_PACKAGE_VENDOR "The Halvex authors")
# No machine has this address.
set(CPACK_PACKAGE_CONTACT "The Halvex authors <authors@halvex.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "editor of light programs for TC420 and TC421 LED controllers")
set(CPACK_VERBATIM_VARIABLES ON)

# install_notices(NAME FOLDER LF|CRLF [LIBRARY FILE]...): the licences of the libraries that are part of the programs.
function(install_notices name folder newlines)
  set(libraries CLI11 /usr/share/doc/libcli11-dev/copyright
                "JSON for Modern C++" /usr/share/doc/nlohmann-json3-dev/copyright ${ARGN})
  install(CODE "set(NOTICES \"${generated}/${name}\")
set(NEWLINES ${newlines})
set(LIBRARIES \"${libraries}\")")
  install(SCRIPT ${CMAKE_SOURCE_DIR}/cmake/LibraryNotices.cmake)
  install(FILES ${generated}/${name} DESTINATION ${folder})
endfunction()

if(WIN32)
  # In the root of the ZIP and of the folder of the installer, for Windows' own Notepad.
  configure_file(${packaging}/windows/README.txt ${generated}/README.txt @ONLY NEWLINE_STYLE CRLF)
  configure_file(${CMAKE_SOURCE_DIR}/LICENSE ${generated}/LICENSE.txt @ONLY NEWLINE_STYLE CRLF)
  install(TARGETS halvex halvex_window RUNTIME DESTINATION .)
  install(FILES ${generated}/README.txt ${generated}/LICENSE.txt DESTINATION .)
  install_notices(LIBRARIES.txt . CRLF mingw-w64 /usr/share/doc/mingw-w64-x86-64-dev/copyright
                  hidapi ${HALVEX_DEPS}/hidapi/LICENSE-bsd.txt stb /usr/share/doc/libstb-dev/copyright)

  set(CPACK_GENERATOR ZIP NSIS)
  set(CPACK_PACKAGE_FILE_NAME halvex-${PROJECT_VERSION}-win64)
  set(CPACK_NSIS_MUI_ICON ${CMAKE_SOURCE_DIR}/resources/pictures/halvex.ico)
  set(CPACK_MODULE_PATH ${packaging}/windows)  # CPack takes NSIS.template.in from there
else()
  # The dates are those of SOURCE_DATE_EPOCH, if it is set.
  string(TIMESTAMP releaseTime "%a, %d %b %Y %H:%M:%S +0000" UTC)
  string(TIMESTAMP releaseDate "%Y-%m-%d" UTC)
  set(metainfo invalid.halvex.halvex.metainfo.xml)
  configure_file(${packaging}/linux/changelog.in ${generated}/changelog @ONLY)
  configure_file(${packaging}/linux/metainfo.xml.in ${generated}/${metainfo} @ONLY)
  set(docs ${CMAKE_INSTALL_DATADIR}/doc/halvex)

  # install_compressed(FILE NAME FOLDER): as NAME.gz
  function(install_compressed file name folder)
    install(CODE "execute_process(COMMAND gzip -9nc \"${file}\"
                                  OUTPUT_FILE \"${generated}/${name}.gz\" COMMAND_ERROR_IS_FATAL ANY)")
    install(FILES ${generated}/${name}.gz DESTINATION ${folder})
  endfunction()

  # install_completion(SHELL FOLDER NAME): the program prints it, one for another processor in an emulator.
  function(install_completion shell folder name)
    install(CODE "set(emulator \"${CMAKE_CROSSCOMPILING_EMULATOR}\")
                  execute_process(COMMAND \${emulator} \"$<TARGET_FILE:halvex>\" completion ${shell}
                                  OUTPUT_FILE \"${generated}/${name}\" COMMAND_ERROR_IS_FATAL ANY)")
    install(FILES ${generated}/${name} DESTINATION ${CMAKE_INSTALL_DATADIR}/${folder})
  endfunction()

  install(TARGETS halvex RUNTIME)
  install_compressed(${CMAKE_SOURCE_DIR}/docs/halvex.1 halvex.1 ${CMAKE_INSTALL_MANDIR}/man1)
  install_completion(bash bash-completion/completions halvex)
  install_completion(zsh zsh/vendor-completions _halvex)
  install_completion(fish fish/vendor_completions.d halvex.fish)
  set(HALVEX_UDEV_RULES lib/udev/rules.d CACHE STRING "Where udev's rules are installed")
  install(FILES ${packaging}/linux/71-halvex.rules DESTINATION ${HALVEX_UDEV_RULES})
  install(FILES ${generated}/${metainfo} DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES ${packaging}/linux/copyright DESTINATION ${docs})
  install_notices(libraries ${docs} LF)
  install_compressed(${CMAKE_SOURCE_DIR}/CHANGELOG.md NEWS ${docs})
  install_compressed(${generated}/changelog changelog ${docs})

  set(CPACK_GENERATOR DEB)
  set(CPACK_STRIP_FILES ON)
  set(CPACK_SET_DESTDIR ON)  # the rules' folder is not below /usr
  set(CPACK_INSTALL_PREFIX /usr)
  set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                                  WORLD_READ WORLD_EXECUTE)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_SECTION utils)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${packaging}/linux/postinst)
  set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
  set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
  set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"TC420 and TC421 controllers lead five channels of aquarium, terrarium and
plant lighting through the day. This is the command line for their programs:
it makes, shows, changes and converts them, uploads them over USB or, to a
TC421, over the local network, sets clocks, and plays a whole day on the
lights in a minute.

A udev rule lets whoever sits at the computer reach the controllers.")
endif()
include(CPack)
