; Takes back the start with Windows, unless it starts a copy in another folder.
!macro StartFunctions Un
  Function ${Un}RemoveRunValue
    ReadRegStr $0 HKCU "${RUN_KEY}" "${RUN_VALUE}"
    ${If} $0 == "$INSTDIR\${PROGRAM}"
    ${OrIf} $0 == '"$INSTDIR\${PROGRAM}"'
      DeleteRegValue HKCU "${RUN_KEY}" "${RUN_VALUE}"
      ReadRegStr $0 HKCU "${SETTINGS_KEY}\Options" "StartWithWindows"
      ${If} $0 == "True"
        WriteRegStr HKCU "${SETTINGS_KEY}\Options" "StartWithWindows" "False"
      ${EndIf}
    ${EndIf}
  FunctionEnd
!macroend

!insertmacro StartFunctions ""
!insertmacro StartFunctions "un."
