# Tests of the whole program on a desktop. Each test_*.py is one test and needs its own screen. Run them
# one after another under tools/desktop.sh, or in parallel under tools/screens.sh.
add_executable(probe WIN32 ${CMAKE_CURRENT_LIST_DIR}/probe.cpp)
target_link_libraries(probe PRIVATE program)
# The programs a second time, linked at another address.
set(movedDir ${CMAKE_CURRENT_BINARY_DIR}/moved)
foreach(target SVAlerts dl)
  add_executable(${target}Moved WIN32 $<TARGET_OBJECTS:${target}>)
  target_link_libraries(${target}Moved PRIVATE $<TARGET_PROPERTY:${target},LINK_LIBRARIES>)
  target_link_options(${target}Moved PRIVATE -s -Wl,--image-base,0x20000000)
  set_target_properties(${target}Moved PROPERTIES OUTPUT_NAME ${target} LINKER_LANGUAGE CXX
    RUNTIME_OUTPUT_DIRECTORY ${movedDir})
endforeach()
set(mapPages ${CMAKE_CURRENT_BINARY_DIR}/mapPages)
set(alertPages ${CMAKE_CURRENT_BINARY_DIR}/alertPages)
file(GLOB desktopTests CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/test_*.py)
foreach(desktopTest ${desktopTests})
  get_filename_component(name ${desktopTest} NAME_WE)
  add_test(NAME desktop_${name}
    COMMAND ${onScreen} /usr/bin/python3 -m pytest -q -p no:cacheprovider ${desktopTest})
  set_tests_properties(desktop_${name} PROPERTIES
    RESOURCE_GROUPS screens:1
    LABELS clicks
    TIMEOUT 300
    ENVIRONMENT "PRODUCT_DIR=${productDir};MOVED_DIR=${movedDir};PROBE=$<TARGET_FILE:probe>;STANDIN=$<TARGET_FILE:standin>;NODE=${nodeProgram};MAP_PAGES=${mapPages};ALERT_PAGES=${alertPages};PYTHONDONTWRITEBYTECODE=1")
endforeach()
# These do not click with the mouse, so they are not repeated when they fail.
set_tests_properties(desktop_test_downloader desktop_test_downloader_trust desktop_test_endurance
  desktop_test_executables PROPERTIES LABELS "")
# It may run a thousand cycles.
set_tests_properties(desktop_test_endurance PROPERTIES TIMEOUT 1800)
# The longest tests start first, so that all screens finish at about the same time.
set_tests_properties(desktop_test_options_pages desktop_test_setup desktop_test_search
  desktop_test_bad_input desktop_test_cycle PROPERTIES COST 100)
