# Tests the map pages saved by a desktop test in a real browser. Include cmake/mapPage.cmake and
# desktop.cmake first.
find_program(chromiumProgram NAMES chromium google-chrome)
add_test(NAME map COMMAND ${nodeProgram} --test ${CMAKE_CURRENT_LIST_DIR}/page.test.mjs)
set_tests_properties(desktop_test_search_map PROPERTIES FIXTURES_SETUP mapPages)
set_tests_properties(map PROPERTIES TIMEOUT 300 FIXTURES_REQUIRED mapPages ENVIRONMENT
  "MAP_PACKAGES=${mapPackages};MAP_PAGES=${mapPages};CHROMIUM=${chromiumProgram}")
if(NOT chromiumProgram)
  message(WARNING "Chromium not found: the map page is built but not tested")
  set_tests_properties(map PROPERTIES DISABLED TRUE)
endif()
