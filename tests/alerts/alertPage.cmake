# Tests the alert pages saved by a desktop test in a real browser. Include map.cmake first.
add_test(NAME alertPage COMMAND ${nodeProgram} --test ${CMAKE_CURRENT_LIST_DIR}/alertPage.test.mjs)
set_tests_properties(desktop_test_alert_page desktop_test_world PROPERTIES FIXTURES_SETUP alertPages)
set_tests_properties(alertPage PROPERTIES TIMEOUT 300 FIXTURES_REQUIRED alertPages ENVIRONMENT
  "MAP_PACKAGES=${mapPackages};ALERT_PAGES=${alertPages};CHROMIUM=${chromiumProgram}")
if(NOT chromiumProgram)
  message(WARNING "Chromium not found: the alert page is not tested in a browser")
  set_tests_properties(alertPage PROPERTIES DISABLED TRUE)
endif()
