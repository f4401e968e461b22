# The map page: build.mjs combines its packages and assets/map into one self-contained template in the
# program folder.
include(${CMAKE_CURRENT_LIST_DIR}/npmPackages.cmake)
find_program(nodeProgram node REQUIRED)

set(mapSource ${CMAKE_SOURCE_DIR}/assets/map)
set(mapPageFile ${productDir}/HTML/CitySearch.sv)
file(GLOB mapSources CONFIGURE_DEPENDS
  ${mapSource}/*.html ${mapSource}/*.css ${mapSource}/*.js ${mapSource}/*.mjs)

install_npm_packages(map "Installing the map page's packages")
add_custom_command(OUTPUT ${mapPageFile}
  COMMAND ${nodeProgram} ${mapSource}/build.mjs ${mapPackages} ${mapPageFile}
  DEPENDS ${mapStamp} ${mapSources}
  COMMENT "Building the map page"
  VERBATIM)
add_custom_target(mapPage DEPENDS ${mapPageFile})
