# delay_load(TARGET DLL FUNCTION@BYTES...): the target's calls of these functions load the DLL at the
# first one, not when the program starts: each DLL costs start and idle memory. A function of it that
# is not named here makes it load at the start again; nothing else changes.
get_filename_component(toolChain ${CMAKE_CXX_COMPILER} NAME)
string(REGEX REPLACE "-g\\+\\+.*" "" toolChain ${toolChain})
find_program(DLLTOOL ${toolChain}-dlltool REQUIRED)

function(delay_load target dll)
  set(folder ${CMAKE_BINARY_DIR}/delayed)
  list(JOIN ARGN "\n" functions)
  file(WRITE ${folder}/${dll}.def "LIBRARY ${dll}.dll\nEXPORTS\n${functions}\n")
  execute_process(COMMAND ${DLLTOOL} --kill-at --input-def ${dll}.def --output-delaylib lib${dll}.a
    WORKING_DIRECTORY ${folder} COMMAND_ERROR_IS_FATAL ANY)
  # Calls go through the pointers that the header files declare, and the linker throws away the
  # loading code behind them unless it is asked for by name.
  list(TRANSFORM ARGN PREPEND "-Wl,-u,_" OUTPUT_VARIABLE wanted)
  target_link_options(${target} PRIVATE ${wanted})
  target_link_libraries(${target} PRIVATE ${folder}/lib${dll}.a delayimp)
endfunction()
