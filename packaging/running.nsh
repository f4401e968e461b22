; A copy that runs: seen by the mutex it holds, or by its window while it starts; asked to end as the
; task manager asks.
!define MUTEX "SkyvaneAlerts"
!define TRAY_CLASS "SkyvaneAlertsTray"
; Turns of 100 ms: until a copy has ended, and until its files are free.
!define TURNS_TO_END 150
!define TURNS_TO_FREE 50

!macro RunningFunctions Un
  ; $0: the window, or another number but 0 when there is only the mutex; 0 when none runs.
  Function ${Un}FindRunning
    FindWindow $0 "${TRAY_CLASS}"
    ${If} $0 = 0
      System::Call 'kernel32::OpenMutexW(i 0x100000, i 0, w "${MUTEX}") p .r0'
      ${If} $0 <> 0
        System::Call 'kernel32::CloseHandle(p r0)'
      ${EndIf}
    ${EndIf}
  FunctionEnd

  ; Waits until the file named on the stack can be written. $0: 0 when it can, or is not there.
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

  ; Ends a running copy: a person is asked first. Gives up, and ends itself, when the copy does not end.
  ; $WasRunning: 1 when one was ended.
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
