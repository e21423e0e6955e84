# Fails when a file of the core library includes a Qt header. The build
# already refuses it (no Qt include path); this names the file.
file(GLOB_RECURSE files ${SOURCES}/*.h ${SOURCES}/*.cpp)
foreach(f ${files})
  get_filename_component(name ${f} NAME)
  if(name MATCHES "^(frm|dlg|MDI|Qt|Main\\.|Forms\\.|Artwork\\.|MsgBox\\.|Twips\\.|LoadPicture\\.|main\\.)")
    continue()
  endif()
  file(STRINGS ${f} lines REGEX "#include[ \t]*<Q")
  if(lines)
    message(FATAL_ERROR "${f} includes Qt: ${lines}")
  endif()
endforeach()
