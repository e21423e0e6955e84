# SPDX-License-Identifier: GPL-3.0-or-later
# Fails when a file of the core library, or the header beside it, includes a
# Qt header. The build already refuses it (no Qt include path); this names the file.
file(STRINGS ${LIST} sources)
foreach(src ${sources})
  string(REGEX REPLACE "\\.cpp$" ".h" header ${src})
  foreach(f ${src} ${header})
    if(EXISTS ${f})
      file(STRINGS ${f} lines REGEX "#include[ \t]*<Q")
      if(lines)
        message(FATAL_ERROR "${f} includes Qt: ${lines}")
      endif()
    endif()
  endforeach()
endforeach()
list(LENGTH sources n)
message(STATUS "${n} core sources checked")
