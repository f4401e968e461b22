# cmake -D NM=... -D FILES=... -D ROOT=... -P: checks that only the listed sources call Windows
# functions that take or return text in the process's code page, which cannot represent every character on
# all systems. A source that passes the user's text to such a function must convert it with win::ToAnsi.
# The list has the sources, which contain a slash, each with its functions.
cmake_policy(VERSION 3.22)
set(allowed
  settings/IniFile GetPrivateProfileSectionA GetPrivateProfileStringA WritePrivateProfileStringA
  settings/modRegistry RegCreateKeyA RegDeleteValueA RegEnumValueA RegOpenKeyA RegOpenKeyExA RegSetValueExA
  tray/TrayWindow CreateWindowExA GetModuleHandleA RegisterClassA
  tray/frmTray DefWindowProcA
  tray/modExplorerMonitor CallWindowProcA GetPropA GetWindowLongA RegisterWindowMessageA RemovePropA
    SetPropA SetWindowLongA
  tray/modTrayIcon Shell_NotifyIconA
  tray/modTrayMenu AppendMenuA CallWindowProcA GetWindowLongA InsertMenuA PostMessageA SetWindowLongA
  win/LateFunctions GetOpenFileNameA sndPlaySoundA
  win/Process CreateMutexA
  win/Shell ShellExecuteA
  win/modOpenDialog SetWindowsHookExA
  win/modRandomFile GetTempFileNameA GetTempPathA)

# Imported functions, by object file.
execute_process(COMMAND ${NM} -A -u ${FILES} OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "\n" ";" calls "${symbols}")
list(FILTER calls INCLUDE REGEX " U __imp__[A-Za-z0-9_]+A@")
list(TRANSFORM calls REPLACE "^.*\\.dir/(\\./)?(.*)\\.cpp\\.obj: *U __imp__(.*)@[0-9]*$" "\\2:\\3")

# Functions loaded at run time, and messages, which no object file shows.
set(sources)
foreach(folder app options search tray alerts stations settings win downloader runtime)
  file(GLOB_RECURSE found RELATIVE ${ROOT} ${ROOT}/${folder}/*.cpp ${ROOT}/${folder}/*.h)
  list(APPEND sources ${found})
endforeach()
foreach(source ${sources})
  string(REGEX REPLACE "\\.(cpp|h)$" "" name ${source})
  file(STRINGS ${ROOT}/${source} lines REGEX "A[^A-Za-z0-9_]")
  foreach(line ${lines})
    if(line MATCHES "LATE_FUNCTION\\(.*, ([A-Za-z]+A)\\)")
      list(APPEND calls ${name}:${CMAKE_MATCH_1})
    elseif(line MATCHES "\"([A-Za-z]+[a-z]A)\"")  # the name of a function
      list(APPEND calls ${name}:${CMAKE_MATCH_1})
    elseif(line MATCHES "[^A-Z_]((CB|HD|LB|LV|TC|TT|TV)[MN]_[A-Z]+A)[^A-Za-z0-9_]")
      list(APPEND calls ${name}:${CMAKE_MATCH_1})
    endif()
  endforeach()
endforeach()

set(listed)
foreach(word ${allowed})
  if(word MATCHES "/")
    set(name ${word})
  else()
    list(APPEND listed ${name}:${word})
  endif()
endforeach()
list(REMOVE_DUPLICATES calls)
set(unlisted ${calls})
list(REMOVE_ITEM unlisted ${listed})
list(REMOVE_ITEM listed ${calls})
if(unlisted)
  message(FATAL_ERROR "Not in the list of calls in the process's code page: ${unlisted}")
endif()
if(listed)
  message(FATAL_ERROR "Listed, but not called: ${listed}")
endif()
