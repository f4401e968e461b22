# Creates alerts/PageStyle.h in the build folder: the alert page contains its style sheet.
file(READ assets/alerts/alerts.css pageStyle)
configure_file(alerts/PageStyle.h.in ${CMAKE_BINARY_DIR}/include/alerts/PageStyle.h @ONLY)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS assets/alerts/alerts.css)
