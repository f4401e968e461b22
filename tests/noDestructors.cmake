# cmake -D NM=... -D FILES=... -P: fails when an object of the programs registers a destructor to run
# at process exit. See win/NeverDestroyed.h.
execute_process(COMMAND ${NM} -A ${FILES} OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
if(NOT symbols MATCHES "WinMain")
  message(FATAL_ERROR "The symbols of the programs were not read")
endif()
string(REGEX MATCHALL "[^\n]*(__tcf_|atexit|_GLOBAL__D_)[^\n]*" found "${symbols}")
if(found)
  list(JOIN found "\n  " found)
  message("  ${found}")
  message(FATAL_ERROR "Objects are destroyed at process exit")
endif()
