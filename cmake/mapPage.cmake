# The map page: the packages it is made from are installed into the build folder, as the lock file
# names them, and build.mjs makes one self-contained template of them and of assets/map, in the
# product's folder.
find_program(nodeProgram node REQUIRED)
find_program(npmProgram npm REQUIRED)

set(mapSource ${CMAKE_SOURCE_DIR}/assets/map)
set(mapPackages ${CMAKE_BINARY_DIR}/map)
set(mapPageFile ${productDir}/HTML/CitySearch.sv)
set(mapManifests ${mapSource}/package.json ${mapSource}/package-lock.json)
set(mapStamp ${mapPackages}/installed.stamp)
file(GLOB mapSources CONFIGURE_DEPENDS
  ${mapSource}/*.html ${mapSource}/*.css ${mapSource}/*.js ${mapSource}/*.mjs)

add_custom_command(OUTPUT ${mapStamp}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${mapPackages}
  COMMAND ${CMAKE_COMMAND} -E copy ${mapManifests} ${mapPackages}
  COMMAND ${CMAKE_COMMAND} -E chdir ${mapPackages}
    ${npmProgram} ci --ignore-scripts --no-audit --no-fund --loglevel=error
  COMMAND ${CMAKE_COMMAND} -E touch ${mapStamp}
  DEPENDS ${mapManifests}
  COMMENT "Installing the map page's packages"
  VERBATIM)
add_custom_command(OUTPUT ${mapPageFile}
  COMMAND ${nodeProgram} ${mapSource}/build.mjs ${mapPackages} ${mapPageFile}
  DEPENDS ${mapStamp} ${mapSources}
  COMMENT "Making the map page"
  VERBATIM)
add_custom_target(mapPage DEPENDS ${mapPageFile})
