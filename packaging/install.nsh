; What the installer does.

Function .onInit
  StrCpy $1 $INSTDIR  ; what /D= named
  Push $1
  Call ChooseUsers
  ${If} $AllUsers = 1
  ${AndIf} ${Silent}
    !insertmacro AskForRights
    ${If} $0 = 0
      SetErrorLevel ${EXIT_NEEDS_ADMINISTRATOR}
      Quit
    ${EndIf}
  ${EndIf}
  Call ChooseFolder
  Pop $1
  ${If} $1 != ""
    StrCpy $INSTDIR $1
  ${EndIf}
  Call ReadStartSwitch
FunctionEnd

Function StartProgram
  ${If} $AllUsers = 1
    ; By way of the shell, so that the program does not run with the installer's rights.
    Exec '"$WINDIR\explorer.exe" "$INSTDIR\${PROGRAM}"'
  ${Else}
    Exec '"$INSTDIR\${PROGRAM}"'
  ${EndIf}
FunctionEnd

Function WriteUninstallEntry
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "${PRODUCT}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "${PUBLISHER}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\${PROGRAM}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" ${KILOBYTES}
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
FunctionEnd

Section "${PRODUCT}"
  SectionIn RO
  !insertmacro TakeUsersContext
  Call CloseRunning
  ; Taken away first: the program renews its copies of a folder that has changed since, and writing
  ; over files alone does not change a folder.
  ${If} ${FileExists} "$INSTDIR\${PROGRAM}"
    !insertmacro DeleteShipped "$INSTDIR"
  ${EndIf}
  !insertmacro InstallShipped
  WriteUninstaller "$INSTDIR\Uninstall.exe"
  CreateShortcut "$SMPROGRAMS\${PRODUCT}.lnk" "$INSTDIR\${PROGRAM}"
  Call WriteUninstallEntry
SectionEnd

; The same as the box of the Options dialog, in both places that it writes.
Section /o "Start with Windows" StartWithWindows
  WriteRegStr HKCU "${RUN_KEY}" "${RUN_VALUE}" '"$INSTDIR\${PROGRAM}"'
  WriteRegStr HKCU "${SETTINGS_KEY}\Options" "StartWithWindows" "True"
SectionEnd

; Whoever watched before goes on watching, also where nobody sits in front of the installer.
Section -StartAgain
  ${If} ${Silent}
  ${AndIf} $WasRunning = 1
    Call StartProgram
  ${EndIf}
SectionEnd

; A folder that other things lie in gets one of ours. One with our name may hold the settings that a copy
; removed from it has left.
Function LeaveFolderPage
  ${DirState} "$INSTDIR" $0
  ${GetFileName} "$INSTDIR" $1
  ${If} $0 = 1  ; there, and not empty
  ${AndIf} $1 != "${PRODUCT}"
  ${AndIfNot} ${FileExists} "$INSTDIR\${PROGRAM}"
    StrCpy $INSTDIR "$INSTDIR\${PRODUCT}"
  ${EndIf}
FunctionEnd

Function ReadStartSwitch
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/StartWithWindows" $1
  ${IfNot} ${Errors}
    !insertmacro SelectSection ${StartWithWindows}
  ${EndIf}
  ClearErrors
FunctionEnd
