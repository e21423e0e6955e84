# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the Debian package into OUT and fails on any error or warning that
# lintian finds in it; informational tags pass.
include(${CMAKE_CURRENT_LIST_DIR}/BuildDeb.cmake)
execute_process(COMMAND ${LINTIAN} --fail-on error,warning ${deb}
                RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "lintian finds fault with the package (${status}):\n${out}${err}")
endif()
message(STATUS "lintian: ${out}")
file(REMOVE_RECURSE ${OUT})
