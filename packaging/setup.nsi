; The installer. packaging/make defines VERSION, KILOBYTES, FILE_LIST, ICONS and OUT, and SIGN to sign.
; Switches: /S /CurrentUser /AllUsers /StartWithWindows, and /D=folder as the last one, without quotes.
; Exit codes: 0 success, 1 cancelled, 2 a file could not be written, 32 the program's files are in use,
; 740 administrator rights are missing.

Unicode true
!define PRODUCT "Skyvane Alerts"
!define PUBLISHER "Quillmark Software"
!define PROGRAM "SVAlerts.exe"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\SkyvaneAlerts"
!define RUN_KEY "Software\Microsoft\Windows\CurrentVersion\Run"
!define RUN_VALUE "SkyvaneAlerts"
!define SETTINGS_PARENT "Software\VB and VBA Program Settings"
!define SETTINGS_KEY "${SETTINGS_PARENT}\${PRODUCT}"

!define EXIT_IN_USE 32
!define EXIT_NEEDS_ADMINISTRATOR 740

Name "${PRODUCT}"
OutFile "${OUT}"
!ifdef SIGN
  !uninstfinalize '"${SIGN}" "%1"' = 0
!endif
SetCompressor /SOLID /FINAL lzma
RequestExecutionLevel user
ManifestDPIAware true
AllowSkipFiles off
BrandingText "${PRODUCT} ${VERSION}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "${PRODUCT}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "${PRODUCT} Setup"
VIAddVersionKey "CompanyName" "${PUBLISHER}"
VIAddVersionKey "LegalCopyright" "${PUBLISHER}"

!include "MUI2.nsh"
!include "FileFunc.nsh"
!include "LogicLib.nsh"
!include "${FILE_LIST}"

Var AllUsers  ; 1 if the program is installed for everyone, otherwise 0
Var OtherUser  ; 1 if it runs as another user than the one who has signed in, otherwise 0
Var FinishText  ; of the last page

!include "running.nsh"
!include "start.nsh"
!include "users.nsh"
!include "install.nsh"
!include "uninstall.nsh"

!define MUI_ICON "${ICONS}/program.ico"
!define MUI_UNICON "${ICONS}/program.ico"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${ICONS}/setup.bmp"
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_NODESC
!define MUI_FINISHPAGE_TEXT "$FinishText"
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_TEXT "Start ${PRODUCT}"
!define MUI_FINISHPAGE_RUN_FUNCTION StartProgram
; An update shows only the components page and those after it.
Page custom ShowUsersPage LeaveUsersPage
!define MUI_PAGE_CUSTOMFUNCTION_PRE SkipPageOfUpdate
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE LeaveFolderPage
!insertmacro MUI_PAGE_DIRECTORY
!define MUI_PAGE_CUSTOMFUNCTION_SHOW ShowComponentsPage
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"
