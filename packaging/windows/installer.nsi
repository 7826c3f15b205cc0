; The installer of Particle Vortex: for one user, without an administrator's rights.
; The script `installer` beside this file passes in
;   PV_VERSION   as in 0.1.0
;   PV_OUTPUT    the installer to make
;   PV_ICON      of the installer itself
;   PV_PICTURE   beside its last page: convert -size 164x314 xc:#323232 ICON128.png
;                -gravity north -geometry +0+48 -composite -fill #F07800
;                -draw 'rectangle 161,0 163,313' -colors 128 -compress none BMP3:PICTURE
;   PV_SIZE      of the installed files, in kilobytes
;   PV_LONGEST   characters of the longest path behind the installation folder
;   PV_LISTS     folder of the lists of files: program, remove, shapes, paths
;
; Silent with /S, into another folder with /D=FOLDER as the last word. Exit codes:
;   0 done, 1 cancelled, 2 given up, 3 the program is running, 4 a file could not be
;   written, 5 the folder's path is too long, 6 the older version could not be removed
;
; The libraries vortex\shapes and vortex\paths are the user's: samples are laid down only
; where there is nothing, and the uninstaller removes no file of theirs. It leaves the
; user's settings too, whose key other programs share.

Target amd64-unicode
!include MUI2.nsh
!include LogicLib.nsh

!define NAME "Particle Vortex"
!define PROGRAM "bin\particle-vortex.exe"
!define MUTEX "TESTAPP_MUTEX_NAME" ; held by the program as long as it runs
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${NAME}"
!define CLASSES "Software\Classes"
!define LONGEST_PATH 259
!define /math LONGEST_FOLDER ${LONGEST_PATH} - ${PV_LONGEST}

Name "${NAME}"
OutFile "${PV_OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\${NAME}"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" InstallLocation
RequestExecutionLevel user
SetCompressor /SOLID lzma
SetDateSave on
ShowInstDetails nevershow
ShowUninstDetails nevershow
ManifestDPIAware true
ManifestSupportedOS Win10
BrandingText "${NAME} ${PV_VERSION}"

VIProductVersion "${PV_VERSION}.0"
VIFileVersion "${PV_VERSION}.0"
VIAddVersionKey ProductName "${NAME}"
VIAddVersionKey ProductVersion "${PV_VERSION}"
VIAddVersionKey FileDescription "${NAME} Setup"
VIAddVersionKey FileVersion "${PV_VERSION}"
VIAddVersionKey LegalCopyright "The Particle Vortex authors, MIT licence"

!define MUI_ICON "${PV_ICON}"
!define MUI_UNICON "${PV_ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PV_PICTURE}"
!define MUI_DIRECTORYPAGE_TEXT_TOP "${NAME} is installed for you alone. The \
  libraries with your shapes and paths lie below its folder, in vortex. The folder's \
  path may have ${LONGEST_FOLDER} characters."
!define MUI_FINISHPAGE_RUN "$INSTDIR\${PROGRAM}"
!define MUI_UNCONFIRMPAGE_TEXT_TOP "${NAME} will be removed. Your shapes, paths and \
  tags stay where they are, in the folder vortex, and so do your settings."
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

; --- helpers -----------------------------------------------------------------------

; Ends with an exit code; MESSAGE is shown unless the installer is silent.
!macro Fail code message
  MessageBox MB_OK|MB_ICONSTOP "${message}" /SD IDOK
  SetErrorLevel ${code}
  Quit
!macroend
!define Fail "!insertmacro Fail"

; Asks to close the program as long as it runs; gives up at once when silent. What holds
; the mutex with more rights refuses access (5), but is there.
!macro WaitUntilClosed
  ${Do}
    System::Call 'kernel32::OpenMutexW(i 0x100000, i 0, w "${MUTEX}") p .r0 ?e'
    Pop $1
    ${If} $0 P<> 0
      System::Call 'kernel32::CloseHandle(p r0)'
    ${ElseIf} $1 != 5
      ${ExitDo}
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
      "${NAME} is running. Please close it and try again." /SD IDCANCEL IDRETRY +3
    SetErrorLevel 3
    Quit
  ${Loop}
!macroend

!macro TellShell
  ; Associations have changed (SHCNE_ASSOCCHANGED, SHCNF_IDLIST).
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

; Opens files with SUFFIX by the program: offered always, and made the default where there
; is none. ICON counts the icons inside the program from 0.
!macro Associate suffix class text icon
  WriteRegStr HKCU "${CLASSES}\${class}" "" "${text}"
  WriteRegStr HKCU "${CLASSES}\${class}\DefaultIcon" "" '"$INSTDIR\${PROGRAM}",${icon}'
  WriteRegStr HKCU "${CLASSES}\${class}\shell\open\command" "" '"$INSTDIR\${PROGRAM}" "%1"'
  WriteRegStr HKCU "${CLASSES}\${suffix}\OpenWithProgids" "${class}" ""
  ReadRegStr $0 HKCU "${CLASSES}\${suffix}" ""
  ReadRegStr $1 HKLM "${CLASSES}\${suffix}" ""
  ${If} $0 == ""
  ${AndIf} $1 == ""
    WriteRegStr HKCU "${CLASSES}\${suffix}" "" "${class}"
  ${EndIf}
!macroend

; Takes back what is still ours: another installation may have taken the class over, and
; another program the suffix.
!macro Dissociate suffix class
  ReadRegStr $0 HKCU "${CLASSES}\${class}\shell\open\command" ""
  ${If} $0 == '"$INSTDIR\${PROGRAM}" "%1"'
    DeleteRegKey HKCU "${CLASSES}\${class}"
    DeleteRegValue HKCU "${CLASSES}\${suffix}\OpenWithProgids" "${class}"
    DeleteRegKey /ifempty HKCU "${CLASSES}\${suffix}\OpenWithProgids"
    ReadRegStr $0 HKCU "${CLASSES}\${suffix}" ""
    ${If} $0 == "${class}"
      DeleteRegValue HKCU "${CLASSES}\${suffix}" ""
    ${EndIf}
    DeleteRegKey /ifempty HKCU "${CLASSES}\${suffix}"
  ${EndIf}
!macroend

!macro CheckWritten
  ${If} ${Errors}
    ${Fail} 4 "Not every file could be written. Is one of them in use, or the drive full?"
  ${EndIf}
!macroend

; The stack's top, a library's folder, becomes "empty" or "used": used is one with any entry
; beside the three folders that the program makes, or with any entry in one of these.
!macro LookInto part
  FindFirst $1 $2 "$0${part}\*.*"
  ${DoUntil} $2 == ""
    ${If} $2 != "."
    ${AndIf} $2 != ".."
      ${If} "${part}" != ""
        StrCpy $3 "used"
      ${ElseIf} $2 != "thumbs"
      ${AndIf} $2 != "tagdb"
      ${AndIf} $2 != "tags"
        StrCpy $3 "used"
      ${EndIf}
    ${EndIf}
    FindNext $1 $2
  ${Loop}
  FindClose $1
!macroend
Function StateOfLibrary
  Exch $0
  Push $1
  Push $2
  Push $3
  StrCpy $3 "empty"
  !insertmacro LookInto ""
  !insertmacro LookInto "\thumbs"
  !insertmacro LookInto "\tagdb"
  !insertmacro LookInto "\tags"
  StrCpy $0 $3
  Pop $3
  Pop $2
  Pop $1
  Exch $0
FunctionEnd

!macro FirstLibrary name
  Push "$INSTDIR\vortex\${name}"
  Call StateOfLibrary
  Pop $0
  ClearErrors ; looking into folders ends with one
  CreateDirectory "$INSTDIR\vortex\${name}"
  ${If} $0 == "empty"
    !include "${PV_LISTS}/${name}.nsh"
  ${EndIf}
  !insertmacro CheckWritten
!macroend

; --- installing --------------------------------------------------------------------

!macro CheckLength action
  StrLen $0 $INSTDIR
  ${If} $0 > ${LONGEST_FOLDER}
    ${action}
  ${EndIf}
!macroend

Function .onInit
  SetShellVarContext current
  !insertmacro WaitUntilClosed
  ${If} ${Silent}
    !insertmacro CheckLength '${Fail} 5 ""'
  ${EndIf}
FunctionEnd

; Greys out the Install button.
Function .onVerifyInstDir
  !insertmacro CheckLength Abort
FunctionEnd

Section
  !insertmacro WaitUntilClosed
  ; An older version takes away exactly what it brought, wherever it was.
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" InstallLocation
  ${If} $0 != ""
  ${AndIf} ${FileExists} "$0\uninstall.exe"
    ExecWait '"$0\uninstall.exe" /S _?=$0' $1
    ${If} $1 != 0
      ${Fail} 6 "The installed version could not be removed ($1)."
    ${EndIf}
    Delete "$0\uninstall.exe"
    RMDir "$0"
  ${EndIf}

  ; Whatever fails from here on can be removed again.
  ClearErrors
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayName "${NAME}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayVersion "${PV_VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayIcon '"$INSTDIR\${PROGRAM}",0'
  WriteRegStr HKCU "${UNINSTALL_KEY}" Publisher "The Particle Vortex authors"
  WriteRegStr HKCU "${UNINSTALL_KEY}" InstallLocation "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" EstimatedSize ${PV_SIZE}
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" NoModify 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" NoRepair 1

  !include "${PV_LISTS}/program.nsh"
  !insertmacro CheckWritten
  !insertmacro FirstLibrary shapes
  !insertmacro FirstLibrary paths

  SetOutPath "$INSTDIR\bin"
  CreateShortcut "$SMPROGRAMS\${NAME}.lnk" "$INSTDIR\${PROGRAM}"
  !insertmacro Associate .j3d ParticleVortex.Shape "Particle Vortex shape" 1
  !insertmacro Associate .j2d ParticleVortex.Path "Particle Vortex path" 2
  !insertmacro TellShell
SectionEnd

; --- removing ----------------------------------------------------------------------

Function un.onInit
  SetShellVarContext current
FunctionEnd

Section Uninstall
  !insertmacro WaitUntilClosed
  SetOutPath "$TEMP" ; or the folder could not be removed
  !include "${PV_LISTS}/remove.nsh"
  Delete "$INSTDIR\uninstall.exe"
  ; Only what is empty.
  !macro RemoveLibrary name
    RMDir "$INSTDIR\vortex\${name}\thumbs"
    RMDir "$INSTDIR\vortex\${name}\tagdb"
    RMDir "$INSTDIR\vortex\${name}\tags"
    RMDir "$INSTDIR\vortex\${name}"
  !macroend
  !insertmacro RemoveLibrary shapes
  !insertmacro RemoveLibrary paths
  RMDir "$INSTDIR\vortex"
  RMDir "$INSTDIR"

  Delete "$SMPROGRAMS\${NAME}.lnk"
  !insertmacro Dissociate .j3d ParticleVortex.Shape
  !insertmacro Dissociate .j2d ParticleVortex.Path
  !insertmacro TellShell
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" InstallLocation
  ${If} $0 == $INSTDIR
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
  ${EndIf}
SectionEnd
