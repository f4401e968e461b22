; What the installer does.

Function RefuseWithoutRights
  SetErrorLevel ${EXIT_NEEDS_ADMINISTRATOR}
  Quit
FunctionEnd

Function .onInit
  StrCpy $NamedFolder $INSTDIR
  Call ChooseUsers
  Call ReadStartSwitch
  ${If} $AllUsers = 1
    !insertmacro AskForRights
    ${If} $0 = 0
      ${If} ${Silent}
        Call RefuseWithoutRights
      ${ElseIf} $AllUsersAsked = 1
        Call StartElevated
        ${If} ${Errors}
          Call RefuseWithoutRights
        ${EndIf}
        Quit
      ${EndIf}
    ${EndIf}
  ${EndIf}
  Call ChooseFolder
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

!define DIRECTORY_BOX 1019

; A folder that other things lie in gets one of ours. One with our name may hold the settings that a copy
; removed from it has left.
Function LeaveFolderPage
  ${DirState} "$INSTDIR" $0
  ${GetFileName} "$INSTDIR" $1
  ${If} $0 = 1  ; there, and not empty
  ${AndIf} $1 != "${PRODUCT}"
  ${AndIfNot} ${FileExists} "$INSTDIR\${PROGRAM}"
    ; The page reads its box once more after this.
    FindWindow $0 "#32770" "" $HWNDPARENT
    GetDlgItem $0 $0 ${DIRECTORY_BOX}
    SendMessage $0 ${WM_SETTEXT} 0 "STR:$INSTDIR\${PRODUCT}"
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

; Windows asks for the administrator; the installer that it starts goes on from here. The error flag is
; set when it was not started: declined, or this one was started so already and has no rights all the same.
Function StartElevated
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/Elevated" $1
  ${IfNot} ${Errors}
    SetErrors
    Return
  ${EndIf}
  StrCpy $1 "/AllUsers /Elevated"
  ${If} ${SectionIsSelected} ${StartWithWindows}
    StrCpy $1 "$1 /StartWithWindows"
  ${EndIf}
  ${If} $NamedFolder != ""
    StrCpy $1 "$1 /D=$NamedFolder"
  ${EndIf}
  ClearErrors
  ExecShell "runas" "$EXEPATH" "$1"
FunctionEnd
