# cmake -D NM=... -D FILES=... -P: checks the symbols of the programs' object files. No object may have
# a destructor that runs at process exit (see win/NeverDestroyed.h), and both programs must harden their
# process, which has no visible effect under Wine.
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
