# The two programs, and build/i686/product, which has the layout of an installed program folder.
set(productDir ${CMAKE_BINARY_DIR}/product)

add_library(program STATIC ${programSources})
# The libraries loaded at start; win/LateFunctions.h declares what is loaded later.
target_link_libraries(program PUBLIC portable shell32 advapi32 user32 gdi32 uuid)

add_executable(SVAlerts WIN32 ${appSources} app/SVAlerts.rc runtime/Terminate.cpp)
target_link_libraries(SVAlerts PRIVATE program)

add_library(fetch STATIC ${fetchSources})
target_link_libraries(fetch PUBLIC portable program winhttp ntdll)

add_executable(dl WIN32 downloader/main.cpp downloader/dl.rc runtime/Terminate.cpp)
target_link_libraries(dl PRIVATE fetch)

# CMake does not find the dependencies of resource scripts itself.
file(GLOB resourceParts CONFIGURE_DEPENDS */*.rc */resource.h assets/icons/*)
list(APPEND resourceParts ${CMAKE_SOURCE_DIR}/assets/skyvane.manifest ${CMAKE_SOURCE_DIR}/settings/Product.h)
set_source_files_properties(app/SVAlerts.rc downloader/dl.rc PROPERTIES OBJECT_DEPENDS "${resourceParts}")

foreach(target SVAlerts dl)
  set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${productDir})
  target_link_options(${target} PRIVATE -s)
  target_link_libraries(${target} PRIVATE compileOptions)
endforeach()

set(helpPage ${productDir}/Help.html)
add_custom_command(OUTPUT ${helpPage}
  COMMAND ${CMAKE_SOURCE_DIR}/tools/make-help ${PROJECT_VERSION} ${CMAKE_SOURCE_DIR}/docs/help.md ${helpPage}
  DEPENDS tools/make-help docs/help.md
  COMMENT "Creating the help page")

file(GLOB choiceIcons CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/assets/choices/*.ico)
add_custom_target(productFiles ALL
  COMMAND ${CMAKE_COMMAND} -E copy_directory ${CMAKE_SOURCE_DIR}/assets/Sounds ${productDir}/Sounds
  COMMAND ${CMAKE_COMMAND} -E make_directory ${productDir}/Icons
  COMMAND ${CMAKE_COMMAND} -E copy_if_different ${choiceIcons} ${productDir}/Icons
  DEPENDS ${helpPage}
  COMMENT "Filling the program folder"
  VERBATIM)

include(${CMAKE_SOURCE_DIR}/cmake/places.cmake)
include(${CMAKE_SOURCE_DIR}/cmake/mapPage.cmake)
add_dependencies(productFiles mapPage)
