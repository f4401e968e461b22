# The built map page in a real browser. Needs cmake/mapPage.cmake before it.
find_program(chromiumProgram NAMES chromium google-chrome)
add_test(NAME map COMMAND ${nodeProgram} --test ${CMAKE_CURRENT_LIST_DIR}/page.test.mjs)
set_tests_properties(map PROPERTIES TIMEOUT 300 ENVIRONMENT
  "MAP_PACKAGES=${mapPackages};MAP_PAGE=${mapPageFile};CHROMIUM=${chromiumProgram}")
if(NOT chromiumProgram)
  message(WARNING "No Chromium here: the map page is built, but not tested")
  set_tests_properties(map PROPERTIES DISABLED TRUE)
endif()
