# install_npm_packages(NAME COMMENT): the packages that assets/NAME needs to be made into a file of the
# product are installed into the build folder, as the lock file there names them. NAMEPackages is then
# the folder that holds node_modules, NAMEStamp a file that changes with them.
find_program(npmProgram npm REQUIRED)

function(install_npm_packages name comment)
  set(source ${CMAKE_SOURCE_DIR}/assets/${name})
  set(packages ${CMAKE_BINARY_DIR}/${name})
  set(manifests ${source}/package.json ${source}/package-lock.json)
  set(stamp ${packages}/installed.stamp)
  add_custom_command(OUTPUT ${stamp}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${packages}
    COMMAND ${CMAKE_COMMAND} -E copy ${manifests} ${packages}
    COMMAND ${CMAKE_COMMAND} -E chdir ${packages}
      ${npmProgram} ci --ignore-scripts --no-audit --no-fund --loglevel=error
    COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
    DEPENDS ${manifests}
    COMMENT ${comment}
    VERBATIM)
  set(${name}Packages ${packages} PARENT_SCOPE)
  set(${name}Stamp ${stamp} PARENT_SCOPE)
endfunction()
