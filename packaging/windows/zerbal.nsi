; The installer: for one user, without the rights of an administrator. packaging/windows/pack runs it with
; -DVERSION=..., -DFILES=<folder with what is installed> and -DOUT=<the installer>.
Target amd64-unicode
!include "MUI2.nsh"

!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Zerbal"

Name "Zerbal ${VERSION}"
OutFile "${OUT}"
InstallDir "$LOCALAPPDATA\Programs\Zerbal"
InstallDirRegKey HKCU "${ENTRY}" "InstallLocation"
RequestExecutionLevel user
SetCompressor /SOLID lzma

!insertmacro MUI_PAGE_LICENSE "${FILES}/licences/zerbal.txt"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Section
  SetOutPath "$INSTDIR"
  File /r "${FILES}/*"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateDirectory "$SMPROGRAMS\Zerbal"
  CreateShortcut "$SMPROGRAMS\Zerbal\Read me.lnk" "$INSTDIR\README.txt"
  CreateShortcut "$SMPROGRAMS\Zerbal\Remove Zerbal.lnk" "$INSTDIR\uninstall.exe"
  WriteRegStr HKCU "${ENTRY}" "DisplayName" "Zerbal"
  WriteRegStr HKCU "${ENTRY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${ENTRY}" "Publisher" "The Zerbal authors"
  WriteRegStr HKCU "${ENTRY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${ENTRY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${ENTRY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${ENTRY}" "NoModify" 1
  WriteRegDWORD HKCU "${ENTRY}" "NoRepair" 1
SectionEnd

; Removes what was installed, and nothing else that the user has put into the folder.
Section "Uninstall"
  !include "${REMOVALS}"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  RMDir "$LOCALAPPDATA\Programs"  ; when nothing else is in it
  Delete "$SMPROGRAMS\Zerbal\Read me.lnk"
  Delete "$SMPROGRAMS\Zerbal\Remove Zerbal.lnk"
  RMDir "$SMPROGRAMS\Zerbal"
  DeleteRegKey HKCU "${ENTRY}"
  DeleteRegKey /ifempty HKCU "Software\Microsoft\Windows\CurrentVersion\Uninstall"
SectionEnd
