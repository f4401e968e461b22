; The steps of the installer.

; Stores an option of the program, unless the user has already set it.
!macro PresetOption Name Value
  ReadRegStr $0 HKCU "${SETTINGS_KEY}\Options" "${Name}"
  ${If} $0 == ""
    WriteRegStr HKCU "${SETTINGS_KEY}\Options" "${Name}" "${Value}"
  ${EndIf}
!macroend

; Without these values, new alerts show no balloon and a chosen sound never plays.
!macro PresetAlerts
  !insertmacro PresetOption "DisplayTrayAlert" "True"
  !insertmacro PresetOption "FlashTrayIcon" "True"
!macroend

Function RefuseWithoutRights
  SetErrorLevel ${EXIT_NEEDS_ADMINISTRATOR}
  Quit
FunctionEnd

Function .onInit
  !insertmacro ProtectPlugIns
  StrCpy $NamedFolder $INSTDIR
  Call ChooseUsers
  Call ChooseFolder
  Call ReadStartState
  ${If} $AllUsers = 1
    !insertmacro AskForRights
    ${If} $0 = 0
      ${If} ${Silent}
        Call RefuseWithoutRights
      ${ElseIf} $AllUsersAsked = 1
      ${OrIf} $Updating = 1
        Call StartElevated
        ${If} ${Errors}
          Call RefuseWithoutRights
        ${EndIf}
        Quit
      ${EndIf}
    ${EndIf}
  ${EndIf}
FunctionEnd

Function StartProgram
  ${If} $AllUsers = 1
    ; Started by the shell, so that the program does not get the installer's administrator rights.
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
  ; Deleted first: the program updates a user's copies if the time of the source folder has changed, and
  ; overwriting files does not change it.
  ${If} ${FileExists} "$INSTDIR\${PROGRAM}"
    !insertmacro DeleteShipped "$INSTDIR"
  ${EndIf}
  !insertmacro InstallShipped
  WriteUninstaller "$INSTDIR\Uninstall.exe"
  CreateShortcut "$SMPROGRAMS\${PRODUCT}.lnk" "$INSTDIR\${PROGRAM}"
  Call WriteUninstallEntry
  ${If} $OtherUser = 0
    !insertmacro PresetAlerts
  ${EndIf}
  ${If} $Updating = 1
    StrCpy $FinishText "${PRODUCT} has been updated. Your settings and stations were kept."
  ${Else}
    StrCpy $FinishText "${PRODUCT} has been installed."
  ${EndIf}
SectionEnd

; Writes the two values that the check box in the Options dialog writes, but with the path in quotation
; marks: the program writes it without them.
Section /o "Start with Windows" StartWithWindows
  WriteRegStr HKCU "${RUN_KEY}" "${RUN_VALUE}" '"$INSTDIR\${PROGRAM}"'
  WriteRegStr HKCU "${SETTINGS_KEY}\Options" "StartWithWindows" "True"
SectionEnd

Section -DoNotStartWithWindows
  ${IfNot} ${SectionIsSelected} ${StartWithWindows}
  ${AndIf} $OtherUser = 0
    Call RemoveRunValue
  ${EndIf}
SectionEnd

; A silent update starts the program again if it was running.
Section -StartAgain
  ${If} ${Silent}
  ${AndIf} $WasRunning = 1
    Call StartProgram
  ${EndIf}
SectionEnd

!define DIRECTORY_BOX 1019

Function SkipPageOfUpdate
  ${If} $Updating = 1
    Abort
  ${EndIf}
FunctionEnd

!define BACK_BUTTON 3

; For an update, this is the first page.
Function ShowComponentsPage
  ${If} $Updating = 1
    GetDlgItem $0 $HWNDPARENT ${BACK_BUTTON}
    EnableWindow $0 0
  ${EndIf}
FunctionEnd

; If the chosen folder contains other files, the program goes into a subfolder. A folder with the
; program's name is used as it is: it may contain the settings of a copy that was removed.
Function LeaveFolderPage
  ${DirState} "$INSTDIR" $0
  ${GetFileName} "$INSTDIR" $1
  ${If} $0 = 1  ; exists and is not empty
  ${AndIf} $1 != "${PRODUCT}"
  ${AndIfNot} ${FileExists} "$INSTDIR\${PROGRAM}"
    ; The page reads its edit box again after this function.
    FindWindow $0 "#32770" "" $HWNDPARENT
    GetDlgItem $0 $0 ${DIRECTORY_BOX}
    SendMessage $0 ${WM_SETTEXT} 0 "STR:$INSTDIR\${PRODUCT}"
  ${EndIf}
FunctionEnd

; Does not offer "Start with Windows" to another user. Selects it if the switch says so, or if it is
; set for the copy to update.
Function ReadStartState
  !insertmacro AskForOtherUser
  StrCpy $OtherUser $0
  ${If} $OtherUser = 1
    SectionSetText ${StartWithWindows} ""
    Return
  ${EndIf}
  ReadRegStr $0 HKCU "${RUN_KEY}" "${RUN_VALUE}"
  ${If} $0 == "$INSTDIR\${PROGRAM}"
  ${OrIf} $0 == '"$INSTDIR\${PROGRAM}"'
    !insertmacro SelectSection ${StartWithWindows}
  ${EndIf}
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/StartWithWindows" $1
  ${IfNot} ${Errors}
    !insertmacro SelectSection ${StartWithWindows}
  ${EndIf}
  ClearErrors
FunctionEnd

; Starts the installer again with administrator rights, for which Windows asks the user. Sets the error
; flag if it was not started: the user declined, or this copy was started that way and still has no rights.
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
  ${IfNot} ${Errors}
    !insertmacro PresetAlerts  ; for the user who has signed in, as whom the copy may not run
    ClearErrors
  ${EndIf}
FunctionEnd
