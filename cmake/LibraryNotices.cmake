# SPDX-License-Identifier: MIT
# Writes the file NOTICES: the licences of the libraries whose code is part of the programs. LIBRARIES alternates
# between names and files with their licences.
set(text "Halvex contains code of these libraries, each under its own licence.\n")
while(LIBRARIES)
  list(POP_FRONT LIBRARIES name file)
  file(READ ${file} licence)
  string(APPEND text "\n\n---- ${name} ----\n\n${licence}")
endwhile()
file(CONFIGURE OUTPUT ${NOTICES} CONTENT "${text}" @ONLY NEWLINE_STYLE ${NEWLINES})
