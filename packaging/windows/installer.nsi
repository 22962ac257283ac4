; SPDX-License-Identifier: MIT
; The installer of one user: no administrator's rights, nothing outside the user's own folders and registry. What the
; user has made (settings, setups, records) stays when the program goes.
Unicode true
!include LogicLib.nsh
Target amd64-unicode
!define NAME "Torvane Configuration"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\${NAME}"
!define KIND "TorvaneConfiguration.Setup"

Name "${NAME}"
OutFile "${OUT}"
Icon "${ICON}"
UninstallIcon "${ICON}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\${NAME}"
InstallDirRegKey HKCU "Software\Ashgrove Electronics\${NAME}" "Folder"
SetCompressor /SOLID lzma
BrandingText " "
XPStyle on
ManifestDPIAware true
InstallColors /windows

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

; A program that runs keeps its own file.
!macro MUST_NOT_RUN un
Function ${un}mustNotRun
  IfFileExists "$INSTDIR\torvane-configuration.exe" 0 free
  ClearErrors
  FileOpen $0 "$INSTDIR\torvane-configuration.exe" a
  IfErrors 0 closeAndGo
  MessageBox MB_OK|MB_ICONEXCLAMATION "${NAME} is running. Close it and try again." /SD IDOK
  Abort
closeAndGo:
  FileClose $0
free:
FunctionEnd
!macroend
!insertmacro MUST_NOT_RUN ""
!insertmacro MUST_NOT_RUN "un."

; What others have put into a key stays: /ifempty looks at the keys within alone, and not at the values.
!macro DELETE_EMPTY_KEY KEY
  ClearErrors
  EnumRegValue $1 HKCU "${KEY}" 0
  ${If} ${Errors}
    DeleteRegKey /ifempty HKCU "${KEY}"
  ${EndIf}
!macroend

Section
  Call mustNotRun
  SetOutPath "$INSTDIR"
  File /r "${PROGRAM}/*"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteRegStr HKCU "Software\Ashgrove Electronics\${NAME}" "Folder" "$INSTDIR"

  CreateDirectory "$SMPROGRAMS\${NAME}"
  CreateShortcut "$SMPROGRAMS\${NAME}\${NAME}.lnk" "$INSTDIR\torvane-configuration.exe"
  CreateShortcut "$SMPROGRAMS\${NAME}\User Guide.lnk" "$INSTDIR\help\index.html"

  ; Many programs name their files .cfg: a choice that the user has made already stays, and ours is offered beside it.
  WriteRegStr HKCU "Software\Classes\${KIND}" "" "Torvane controller configuration"
  WriteRegStr HKCU "Software\Classes\${KIND}\DefaultIcon" "" "$INSTDIR\torvane-configuration.exe,0"
  WriteRegStr HKCU "Software\Classes\${KIND}\shell\open\command" "" '"$INSTDIR\torvane-configuration.exe" "%1"'
  WriteRegStr HKCU "Software\Classes\.cfg\OpenWithProgids" "${KIND}" ""
  ReadRegStr $0 HKCU "Software\Classes\.cfg" ""
  StrCmp $0 "" 0 owned
  ReadRegStr $0 HKCR ".cfg" ""
  StrCmp $0 "" 0 owned
  WriteRegStr HKCU "Software\Classes\.cfg" "" "${KIND}"
owned:

  WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "${NAME}"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL}" "Publisher" "Ashgrove Electronics"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\torvane-configuration.exe"
  WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
SectionEnd

; What was laid is named file by file: the user may have chosen a folder with things of their own in it.
Section "Uninstall"
  Call un.mustNotRun
  !include "${FILES}"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\${NAME}\${NAME}.lnk"
  Delete "$SMPROGRAMS\${NAME}\User Guide.lnk"
  RMDir "$SMPROGRAMS\${NAME}"

  DeleteRegValue HKCU "Software\Classes\.cfg\OpenWithProgids" "${KIND}"
  !insertmacro DELETE_EMPTY_KEY "Software\Classes\.cfg\OpenWithProgids"
  ReadRegStr $0 HKCU "Software\Classes\.cfg" ""
  StrCmp $0 "${KIND}" 0 others
  DeleteRegValue HKCU "Software\Classes\.cfg" ""
others:
  !insertmacro DELETE_EMPTY_KEY "Software\Classes\.cfg"
  DeleteRegKey HKCU "Software\Classes\${KIND}"
  DeleteRegKey HKCU "${UNINSTALL}"
  DeleteRegValue HKCU "Software\Ashgrove Electronics\${NAME}" "Folder"
  !insertmacro DELETE_EMPTY_KEY "Software\Ashgrove Electronics\${NAME}"
  !insertmacro DELETE_EMPTY_KEY "Software\Ashgrove Electronics"
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
SectionEnd
