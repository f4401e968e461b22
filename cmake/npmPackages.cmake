# install_npm_packages(NAME COMMENT): installs the packages of assets/NAME/package-lock.json in the build
# folder. Sets NAMEPackages to the folder that contains node_modules, and NAMEStamp to a file to depend on.
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
