# The stand-in for the platform's browser control, which the desktop tests register.
add_library(standin MODULE ${CMAKE_CURRENT_LIST_DIR}/browser.cpp ${CMAKE_CURRENT_LIST_DIR}/standin.def)
target_link_libraries(standin PRIVATE program ole32 oleaut32)
set_target_properties(standin PROPERTIES PREFIX "")
