# cmake -D NM=... -D FILES=... -P: what only the symbols of the programs' objects show. No object may
# register a destructor to run at process exit (see win/NeverDestroyed.h), and both programs harden
# their process, of which Wine shows nothing.
execute_process(COMMAND ${NM} -A ${FILES} OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
foreach(start app/modMain.cpp downloader/main.cpp)
  if(NOT symbols MATCHES "/${start}[^\n]* U __ZN3win13HardenProcess")
    message(FATAL_ERROR "${start} does not harden its process")
  endif()
endforeach()
string(REGEX MATCHALL "[^\n]*(__tcf_|atexit|_GLOBAL__D_)[^\n]*" found "${symbols}")
if(found)
  list(JOIN found "\n  " found)
  message("  ${found}")
  message(FATAL_ERROR "Objects are destroyed at process exit")
endif()
