# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the Debian package into OUT from the build tree BUILD; sets `deb`.
file(REMOVE_RECURSE ${OUT})
execute_process(COMMAND ${CPACK} -G DEB -B ${OUT} --config ${BUILD}/CPackConfig.cmake
                RESULT_VARIABLE status OUTPUT_VARIABLE log ERROR_VARIABLE log)
file(GLOB deb ${OUT}/chattelbook_*.deb)
if(NOT status EQUAL 0 OR NOT deb)
  message(FATAL_ERROR "cpack -G DEB failed: ${status}\n${log}")
endif()
