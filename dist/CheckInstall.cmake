# SPDX-License-Identifier: GPL-3.0-or-later
# Installs the build into PREFIX and checks what a user's desktop needs there.
file(REMOVE_RECURSE ${PREFIX})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX}
                RESULT_VARIABLE status OUTPUT_QUIET)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "cmake --install failed: ${status}")
endif()
set(app ${PREFIX}/lib/chattelbook)
foreach(path
    bin/chattelbook bin/chattelbook-sif lib/chattelbook/chattelbook lib/chattelbook/chattelbook-sif
    lib/chattelbook/Files/HomeSecurity.sif lib/chattelbook/Files/RealEstate.sif lib/chattelbook/Files/CarYard.sif
    lib/chattelbook/Background/oak.jpg lib/chattelbook/Wallpaper/sage.jpg lib/chattelbook/Gallery/tv.jpg
    lib/chattelbook/Help lib/chattelbook/Reports lib/chattelbook/installed
    share/applications/${APP_ID}.desktop share/metainfo/${APP_ID}.metainfo.xml
    share/icons/hicolor/scalable/apps/${APP_ID}.svg share/icons/hicolor/48x48/apps/${APP_ID}.png
    share/icons/hicolor/256x256/apps/${APP_ID}.png share/icons/hicolor/scalable/mimetypes/application-x-chattelbook-sif.svg
    share/mime/packages/${APP_ID}.xml share/thumbnailers/${APP_ID}.thumbnailer)
  if(NOT EXISTS ${PREFIX}/${path})
    message(FATAL_ERROR "missing from the installation: ${path}")
  endif()
endforeach()
foreach(link help:Help wallpaper:Wallpaper)
  string(REPLACE ":" ";" pair ${link})
  list(GET pair 0 name)
  list(GET pair 1 target)
  file(READ_SYMLINK ${app}/${name} got)
  if(NOT got STREQUAL target)
    message(FATAL_ERROR "${name} links to '${got}', not ${target}")
  endif()
endforeach()
file(GLOB leftovers ${app}/Help/* ${app}/Reports/* ${app}/Files/*.dat ${app}/Files/MyFiles.sif)
if(leftovers)
  message(FATAL_ERROR "the build tree's own pages or files were installed: ${leftovers}")
endif()
execute_process(COMMAND ${PREFIX}/bin/chattelbook-sif show ${app}/Files/HomeSecurity.sif
                RESULT_VARIABLE status OUTPUT_VARIABLE out)
if(NOT status EQUAL 0 OR NOT out MATCHES "Template: +1 Home Security")
  message(FATAL_ERROR "the installed chattelbook-sif does not run: ${status} ${out}")
endif()
# The thumbnailer's own command line, as a file manager runs it: the
# installed template's gallery gives a 128 x 128 PNG.
file(STRINGS ${PREFIX}/share/thumbnailers/${APP_ID}.thumbnailer exec REGEX "^Exec=")
string(REGEX REPLACE "^Exec=" "" exec "${exec}")
string(REPLACE "%i" "${app}/Files/HomeSecurity.sif" exec "${exec}")
string(REPLACE "%o" "${PREFIX}/thumbnail.png" exec "${exec}")
string(REPLACE "%s" "128" exec "${exec}")
separate_arguments(exec UNIX_COMMAND "${exec}")
execute_process(COMMAND ${CMAKE_COMMAND} -E env PATH=${PREFIX}/bin:$ENV{PATH} ${exec} RESULT_VARIABLE status)
if(status EQUAL 0)
  file(READ ${PREFIX}/thumbnail.png size OFFSET 16 LIMIT 8 HEX)  # the PNG header's width and height
endif()
if(NOT size STREQUAL "0000008000000080")
  message(FATAL_ERROR "the thumbnailer's command gave no 128 x 128 PNG: ${status} ${size}")
endif()
file(REMOVE_RECURSE ${PREFIX})
