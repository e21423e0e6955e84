# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the Debian package into OUT and checks what apt will see: the
# libraries found by dpkg-shlibdeps, the commands, the desktop's files.
include(${CMAKE_CURRENT_LIST_DIR}/BuildDeb.cmake)
execute_process(COMMAND ${DPKG_DEB} -f ${deb} Package Depends Recommends OUTPUT_VARIABLE fields)
foreach(needed "Package: chattelbook" "libqt6widgets6" "libqt6gui6" "libarchive13" "libturbojpeg0" "libc6"
               "fonts-dejavu-core" "fonts-liberation")
  string(FIND "${fields}" "${needed}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "the package's control lacks ${needed}:\n${fields}")
  endif()
endforeach()
execute_process(COMMAND ${DPKG_DEB} -c ${deb} OUTPUT_VARIABLE contents)
foreach(path
    "./usr/bin/chattelbook -> ../lib/chattelbook/chattelbook" "./usr/bin/chattelbook-sif -> ../lib/chattelbook/chattelbook-sif"
    "./usr/lib/chattelbook/Files/HomeSecurity.sif" "./usr/lib/chattelbook/help -> Help"
    "./usr/share/applications/${APP_ID}.desktop" "./usr/share/metainfo/${APP_ID}.metainfo.xml"
    "./usr/share/icons/hicolor/scalable/apps/${APP_ID}.svg" "./usr/share/icons/hicolor/48x48/apps/${APP_ID}.png"
    "./usr/share/icons/hicolor/48x48/mimetypes/application-x-chattelbook-sif.png"
    "./usr/share/mime/packages/${APP_ID}.xml" "./usr/share/thumbnailers/${APP_ID}.thumbnailer"
    "./usr/share/man/man1/chattelbook.1.gz" "./usr/share/man/man1/chattelbook-sif.1.gz"
    "./usr/share/doc/chattelbook/copyright" "./usr/share/doc/chattelbook/changelog.gz")
  string(FIND "${contents}" "${path}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "the package lacks ${path}:\n${contents}")
  endif()
endforeach()
# Everything belongs to root, and only root may write it.
if("\n${contents}" MATCHES "\n[-d](....w|.......w)" OR NOT contents MATCHES "root/root")
  message(FATAL_ERROR "the package holds files writable by others or not owned by root:\n${contents}")
endif()
file(REMOVE_RECURSE ${OUT})
