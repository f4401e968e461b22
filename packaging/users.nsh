; The choice between installing for the current user, which needs no rights, and for everyone, and what
; administrator rights change.

; Must come before the first plug-in. NSIS before 3.11 extracts plug-ins to the temporary folder in a way that
; lets other users replace them if they can write there, as in that of the system account. With administrator
; rights, which the error flag shows, plug-ins are therefore extracted below the folder for programs. NSIS
; deletes the folder at the end.
!macro ProtectPlugIns
  ClearErrors
  GetTempFileName $0 "$PROGRAMFILES32"
  ${IfNot} ${Errors}
    Delete "$0"
    CreateDirectory "$0"
    UnsafeStrCpy $PLUGINSDIR "$0"
  ${EndIf}
  ClearErrors
!macroend

; Sets $0 to 1 if the installer runs with an administrator's rights as another user than the one who has signed
; in, whose settings and start with Windows it therefore cannot reach, otherwise to 0.
!macro AskForOtherUser
  !insertmacro AskForRights
  ReadEnvStr $1 "USERNAME"
  System::Call 'wtsapi32::WTSQuerySessionInformationW(p 0, i -1, i 5, *w .r2, *i) i .r3'
  ${If} $3 = 0
  ${OrIf} $1 == $2
    StrCpy $0 0
  ${EndIf}
!macroend

!macro TakeUsersContext
  ${If} $AllUsers = 1
    SetShellVarContext all
  ${Else}
    SetShellVarContext current
  ${EndIf}
!macroend

; Sets $0 to 1 if the installer has administrator rights, otherwise to 0.
!macro AskForRights
  UserInfo::GetAccountType
  Pop $0
  ${If} $0 == "Admin"
    StrCpy $0 1
  ${Else}
    StrCpy $0 0
  ${EndIf}
!macroend

Var AllUsersAsked  ; 1 if a switch has made the choice, so that the page is not shown

Function ReadUsersSwitch
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/AllUsers" $1
  ${IfNot} ${Errors}
    StrCpy $AllUsers 1
    StrCpy $AllUsersAsked 1
  ${EndIf}
  ClearErrors
  ${GetOptions} $0 "/CurrentUser" $1
  ${IfNot} ${Errors}
    StrCpy $AllUsers 0
    StrCpy $AllUsersAsked 1
  ${EndIf}
  ClearErrors
FunctionEnd

; Without a switch, the existing copy is updated, the user's own copy before the one for everyone.
Function ChooseUsers
  StrCpy $AllUsers 0
  StrCpy $AllUsersAsked 0
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ReadRegStr $1 HKLM "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 == ""
  ${AndIf} $1 != ""
    StrCpy $AllUsers 1
  ${EndIf}
  Call ReadUsersSwitch
FunctionEnd

Var NamedFolder  ; from /D=, or empty
Var Updating  ; 1 if there is a copy in $INSTDIR, otherwise 0

; Sets $INSTDIR to the named folder, else to that of the existing copy, else to the default.
Function ChooseFolder
  !insertmacro TakeUsersContext
  ${If} $NamedFolder != ""
    StrCpy $INSTDIR $NamedFolder
  ${Else}
    ReadRegStr $INSTDIR SHCTX "${UNINSTALL_KEY}" "InstallLocation"
  ${EndIf}
  ${If} $INSTDIR == ""
    ${If} $AllUsers = 1
      StrCpy $INSTDIR "$PROGRAMFILES32\${PRODUCT}"
    ${Else}
      StrCpy $INSTDIR "$LOCALAPPDATA\Programs\${PRODUCT}"
    ${EndIf}
  ${EndIf}
  StrCpy $Updating 0
  ${If} ${FileExists} "$INSTDIR\${PROGRAM}"
    StrCpy $Updating 1
  ${EndIf}
FunctionEnd

Var OnlyMeButton
Var EveryoneButton

Function ShowUsersPage
  ${If} $AllUsersAsked = 1
  ${OrIf} $Updating = 1
    Abort
  ${EndIf}
  !insertmacro MUI_HEADER_TEXT "For whom" "Choose who will use ${PRODUCT} on this computer."
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateRadioButton} 0 10u 100% 12u "Only for &me (needs no administrator)"
  Pop $OnlyMeButton
  ${NSD_CreateRadioButton} 0 28u 100% 12u "For &everyone who uses this computer (needs an administrator)"
  Pop $EveryoneButton
  ${If} $AllUsers = 1
    ${NSD_Check} $EveryoneButton
    ${NSD_SetFocus} $EveryoneButton
  ${Else}
    ${NSD_Check} $OnlyMeButton
    ${NSD_SetFocus} $OnlyMeButton
  ${EndIf}
  nsDialogs::Show
FunctionEnd

Function LeaveUsersPage
  ${NSD_GetState} $EveryoneButton $AllUsers
  ${If} $AllUsers = 1
    !insertmacro AskForRights
    ${If} $0 = 0
      Call StartElevated
      ${If} ${Errors}
        Abort
      ${EndIf}
      Quit
    ${EndIf}
  ${EndIf}
  Call ChooseFolder
FunctionEnd
