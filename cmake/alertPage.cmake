# Creates alerts/PageStyle.h in the build folder: the alert page contains its style sheet, and its content
# security policy allows only this one, by its hash.
set(pageStyleFile assets/alerts/alerts.css)
file(READ ${pageStyleFile} pageStyle)
execute_process(
  COMMAND python3 -c "import base64, hashlib, sys
print(base64.b64encode(hashlib.sha256(open(sys.argv[1], 'rb').read()).digest()).decode())" ${pageStyleFile}
  WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
  OUTPUT_VARIABLE pageStyleHash
  OUTPUT_STRIP_TRAILING_WHITESPACE
  COMMAND_ERROR_IS_FATAL ANY)
configure_file(alerts/PageStyle.h.in ${CMAKE_BINARY_DIR}/include/alerts/PageStyle.h @ONLY)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${pageStyleFile} alerts/PageStyle.h.in)
