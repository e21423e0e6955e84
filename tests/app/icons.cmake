# The toolbar pictures; included from this folder's CMakeLists.txt.
chattelbook_ui_test(toolbar_icons_test ${CMAKE_CURRENT_LIST_DIR}/toolbar_icons_test.cpp)
