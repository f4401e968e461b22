; The steps of the uninstaller. It deletes only the files and values that the program and its installer
; have created, by name, and asks before it deletes settings and stations.

Function un.onInit
  !insertmacro ProtectPlugIns
  !insertmacro AskForOtherUser
  StrCpy $OtherUser $0
  StrCpy $AllUsers 0
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ReadRegStr $1 HKLM "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 != $INSTDIR
  ${AndIf} $1 == $INSTDIR
    StrCpy $AllUsers 1
    !insertmacro AskForRights
    ${If} $0 = 0
      SetErrorLevel ${EXIT_NEEDS_ADMINISTRATOR}
      ${IfNot} ${Silent}
        ExecShell "runas" "$INSTDIR\Uninstall.exe"
      ${EndIf}
      Quit
    ${EndIf}
  ${EndIf}
FunctionEnd

; The entries in the Start menu and in the list of programs, unless they belong to a copy in another folder.
Function un.RemoveEntries
  !insertmacro TakeUsersContext
  ReadRegStr $0 SHCTX "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 == $INSTDIR
    Delete "$SMPROGRAMS\${PRODUCT}.lnk"
    DeleteRegKey SHCTX "${UNINSTALL_KEY}"
  ${EndIf}
FunctionEnd

Var StationsToo  ; 1 if the user agreed to delete the settings and stations

; Deletes from the user data folder $0 the program's copies, the pages it creates and, if requested, the
; stations. Files of the user remain.
Function un.RemoveUserFolder
  Delete "$0\Alerts.html"
  Delete "$0\Alerts.html.new"
  Delete "$0\HTML\CitySearch.html"
  Delete "$0\HTML\CitySearch.html.new"
  !insertmacro DeleteCopied "$0"
  ${If} $StationsToo = 1
    Delete "$0\CityCode.cmb"
  ${EndIf}
  RMDir "$0"
FunctionEnd

Function un.RemoveUserFolders
  StrCpy $0 "$APPDATA\SkyvaneAlerts"
  Call un.RemoveUserFolder
  FindFirst $1 $2 "$INSTDIR\Users\*"
  ${DoWhile} $2 != ""
    ${If} $2 != "."
    ${AndIf} $2 != ".."
      StrCpy $0 "$INSTDIR\Users\$2"
      Call un.RemoveUserFolder
    ${EndIf}
    FindNext $1 $2
  ${Loop}
  FindClose $1
  RMDir "$INSTDIR\Users"
FunctionEnd

Function un.RemoveSettings
  DeleteRegKey HKCU "${SETTINGS_KEY}"
  DeleteRegKey /ifempty HKCU "${SETTINGS_PARENT}"
  FindFirst $1 $2 "$INSTDIR\*.ini"
  ${DoWhile} $2 != ""
    ReadINIStr $0 "$INSTDIR\$2" "Misc" "UseINI"  ; only INI files of the program have this value
    ${If} $0 != ""
      Delete "$INSTDIR\$2"
    ${EndIf}
    FindNext $1 $2
  ${Loop}
  FindClose $1
FunctionEnd

Section "un.Program"
  Call un.CloseRunning
  Call un.RemoveEntries
  Call un.RemoveRunValue
  !insertmacro DeleteShipped "$INSTDIR"
  ; Files of a failed check for a new version.
  Delete "$INSTDIR\che.sk"
  Delete "$INSTDIR\chet.sk"
  Delete "$INSTDIR\Uninstall.exe"
  SetShellVarContext current
  StrCpy $StationsToo 0
  ${If} $OtherUser = 1
    Goto keep
  ${EndIf}
  MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 \
    "Remove your settings and your list of stations too?" /SD IDNO IDNO keep
  StrCpy $StationsToo 1
  Call un.RemoveSettings
  keep:
  Call un.RemoveUserFolders
  RMDir "$INSTDIR"
SectionEnd
