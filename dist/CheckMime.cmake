# SPDX-License-Identifier: GPL-3.0-or-later
# Builds a MIME database in OUT from the slide file type alone and checks that
# it maps *.sif to the type. update-mime-database exits 0 on a faulty file, so
# anything it says fails.
file(REMOVE_RECURSE ${OUT})
configure_file(${MIME_XML} ${OUT}/mime/packages/chattelbook.xml COPYONLY)
# OUT among the data folders, or it notes that programs will not look there.
execute_process(COMMAND ${CMAKE_COMMAND} -E env XDG_DATA_DIRS=${OUT} ${UPDATE_MIME_DATABASE} ${OUT}/mime
                RESULT_VARIABLE status OUTPUT_VARIABLE said ERROR_VARIABLE said)
if(NOT status EQUAL 0 OR said)
  message(FATAL_ERROR "update-mime-database finds fault (${status}):\n${said}")
endif()
file(STRINGS ${OUT}/mime/globs2 globs REGEX "^[^#]")
if(NOT globs STREQUAL "50:application/x-chattelbook-sif:*.sif")
  message(FATAL_ERROR "the database's globs are not *.sif to application/x-chattelbook-sif alone:\n${globs}")
endif()
file(REMOVE_RECURSE ${OUT})
