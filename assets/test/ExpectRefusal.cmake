# SPDX-License-Identifier: GPL-3.0-or-later
# Runs the asset generator on a bad table and expects it to refuse: a
# failing exit, the complaint on stderr, and nothing drawn or written.
# -DGENERATOR=... -DDATA=... -DWORK=... -DCOMPLAINT=<regex>
file(REMOVE_RECURSE ${WORK})
execute_process(COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${GENERATOR} ${WORK} ${DATA}
  RESULT_VARIABLE result ERROR_VARIABLE complaint)
if(result EQUAL 0)
  message(FATAL_ERROR "the generator accepted ${DATA}")
endif()
if(NOT complaint MATCHES "${COMPLAINT}")
  message(FATAL_ERROR "expected a complaint matching \"${COMPLAINT}\", got:\n${complaint}")
endif()
file(GLOB_RECURSE written ${WORK}/*.jpg ${WORK}/*.sif)
if(written)
  message(FATAL_ERROR "the generator wrote before refusing: ${written}")
endif()
