; Finds a running copy by its mutex, or by its window while it starts, and closes it with WM_CLOSE, as the
; task manager does.
!define MUTEX "SkyvaneAlerts"
!define TRAY_CLASS "SkyvaneAlertsTray"
; Limits in steps of 100 ms: until a copy has exited, and until its files can be written.
!define TURNS_TO_END 150
!define TURNS_TO_FREE 50

!macro RunningFunctions Un
  ; Returns in $0 the window, another value than 0 if there is only the mutex, or 0 if no copy is running.
  Function ${Un}FindRunning
    FindWindow $0 "${TRAY_CLASS}"
    ${If} $0 = 0
      System::Call 'kernel32::OpenMutexW(i 0x100000, i 0, w "${MUTEX}") p .r0'
      ${If} $0 <> 0
        System::Call 'kernel32::CloseHandle(p r0)'
      ${EndIf}
    ${EndIf}
  FunctionEnd

  ; Waits until the file whose path is on the stack can be written. Returns in $0 0 if it can or does not
  ; exist, otherwise 1.
  Function ${Un}WaitUntilFree
    Exch $1
    Push $2
    Push $3
    StrCpy $0 0
    ${If} ${FileExists} "$1"
      ${For} $2 1 ${TURNS_TO_FREE}
        ClearErrors
        FileOpen $3 "$1" a
        ${IfNot} ${Errors}
          FileClose $3
          StrCpy $0 0
          ${Break}
        ${EndIf}
        StrCpy $0 1
        Sleep 100
      ${Next}
    ${EndIf}
    ClearErrors
    Pop $3
    Pop $2
    Pop $1
  FunctionEnd

  Function ${Un}RefuseToGoOn
    MessageBox MB_ICONSTOP "$0" /SD IDOK
    SetErrorLevel ${EXIT_IN_USE}
    Quit
  FunctionEnd

  ; Closes a running copy; asks the user first, unless silent. Quits if the copy does not exit. Sets
  ; $WasRunning to 1 if a copy was closed.
  Function ${Un}CloseRunning
    StrCpy $WasRunning 0
    Call ${Un}FindRunning
    ${If} $0 <> 0
      MessageBox MB_OKCANCEL|MB_ICONINFORMATION "${PRODUCT} is running. It will be closed now." \
        /SD IDOK IDOK close
      SetErrorLevel 1
      Quit
      close:
      StrCpy $WasRunning 1
      ${For} $2 1 ${TURNS_TO_END}
        FindWindow $1 "${TRAY_CLASS}"
        ${If} $1 <> 0
          System::Call 'user32::PostMessageW(p r1, i ${WM_CLOSE}, p 0, p 0)'
        ${EndIf}
        Sleep 100
        Call ${Un}FindRunning
        ${If} $0 = 0
          ${Break}
        ${EndIf}
      ${Next}
      ${If} $0 <> 0
        StrCpy $0 "${PRODUCT} does not end. Choose Exit in the menu of its icon, then try again."
        Call ${Un}RefuseToGoOn
      ${EndIf}
    ${EndIf}
    Push "$INSTDIR\dl.exe"
    Call ${Un}WaitUntilFree
    StrCpy $1 $0
    Push "$INSTDIR\${PROGRAM}"
    Call ${Un}WaitUntilFree
    ${If} $0 <> 0
    ${OrIf} $1 <> 0
      StrCpy $0 "The program's files cannot be replaced. Another user may be running ${PRODUCT}, or you \
        may not write to $INSTDIR."
      Call ${Un}RefuseToGoOn
    ${EndIf}
  FunctionEnd
!macroend

Var WasRunning
!insertmacro RunningFunctions ""
!insertmacro RunningFunctions "un."
