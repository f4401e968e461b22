# The whole program on a desktop: each test_*.py is one test. They click on the one screen, so they
# run one after another; run them under tools/desktop.sh, which gives them the screen and Wine.
add_executable(probe WIN32 ${CMAKE_CURRENT_LIST_DIR}/probe.cpp)
target_link_libraries(probe PRIVATE houseRules)
set(mapPages ${CMAKE_CURRENT_BINARY_DIR}/mapPages)
file(GLOB desktopTests CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/test_*.py)
foreach(desktopTest ${desktopTests})
  get_filename_component(name ${desktopTest} NAME_WE)
  add_test(NAME desktop_${name}
    COMMAND /usr/bin/python3 -m pytest -q -p no:cacheprovider ${desktopTest})
  set_tests_properties(desktop_${name} PROPERTIES
    RUN_SERIAL TRUE
    TIMEOUT 300
    ENVIRONMENT "PRODUCT_DIR=${productDir};PROBE=$<TARGET_FILE:probe>;STANDIN=$<TARGET_FILE:standin>;NODE=${nodeProgram};MAP_PAGES=${mapPages};PYTHONDONTWRITEBYTECODE=1")
endforeach()
# It may be asked for a thousand cycles.
set_tests_properties(desktop_test_endurance PROPERTIES TIMEOUT 1800)
