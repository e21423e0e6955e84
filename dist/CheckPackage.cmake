# Builds the Debian package into OUT and checks what apt will see: the
# libraries found by dpkg-shlibdeps, the commands, the desktop's files.
file(REMOVE_RECURSE ${OUT})
execute_process(COMMAND ${CPACK} -G DEB -B ${OUT} --config ${BUILD}/CPackConfig.cmake
                RESULT_VARIABLE status OUTPUT_VARIABLE log ERROR_VARIABLE log)
file(GLOB deb ${OUT}/chattelbook_*.deb)
if(NOT status EQUAL 0 OR NOT deb)
  message(FATAL_ERROR "cpack -G DEB failed: ${status}\n${log}")
endif()
execute_process(COMMAND ${DPKG_DEB} -f ${deb} Package Depends Recommends OUTPUT_VARIABLE fields)
foreach(needed "Package: chattelbook" "libqt6widgets6" "libqt6gui6" "libarchive13" "libturbojpeg0" "libc6"
               "Recommends: fonts-dejavu-core")
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
    "./usr/share/icons/hicolor/scalable/apps/${APP_ID}.svg" "./usr/share/icons/hicolor/48x48/apps/${APP_ID}.png")
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
