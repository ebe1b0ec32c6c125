; Installs the programs for one user: NAME-setup.exe [/S] [/D=FOLDER]. Over a version that is there it replaces its files.
; makensis is told VERSION, STAGE (the folder of what is installed), RESULT, and by FILES which file has the list of
; deletions for the uninstaller.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel user
AllowSkipFiles off
Name "CommonUI ${VERSION}"
OutFile "${RESULT}"
InstallDir "$LOCALAPPDATA\Programs\CommonUI"
InstallDirRegKey HKCU "Software\CommonUI\Setup" "Folder"
!define REMOVAL "Software\Microsoft\Windows\CurrentVersion\Uninstall\CommonUI"
!define SHORTCUT "$SMPROGRAMS\CommonUI command line.lnk"

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

; Nothing is touched while a program runs: all of them have this library open.
!macro REFUSE_WHILE_IN_USE
  IfFileExists "$INSTDIR\CommonDLL.dll" 0 +6
  ClearErrors
  FileOpen $0 "$INSTDIR\CommonDLL.dll" a
  IfErrors 0 +3
  MessageBox MB_OK|MB_ICONEXCLAMATION "A program in $INSTDIR is running. Close it, and try again." /SD IDOK
  Abort
  FileClose $0
!macroend

Section
  SetRegView 64
  !insertmacro REFUSE_WHILE_IN_USE
  ; What the version before has installed goes first, so that nothing is left of it that this one has not.
  IfFileExists "$INSTDIR\uninstall.exe" 0 fresh
  ExecWait '"$INSTDIR\uninstall.exe" /S _?=$INSTDIR'
fresh:
  SetOutPath "$INSTDIR"
  File /r "${STAGE}/*"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "${SHORTCUT}" "$SYSDIR\cmd.exe" '/k "set PATH=$INSTDIR;%PATH%"'
  WriteRegStr HKCU "Software\CommonUI\Setup" "Folder" "$INSTDIR"
  WriteRegStr HKCU "${REMOVAL}" "DisplayName" "CommonUI"
  WriteRegStr HKCU "${REMOVAL}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${REMOVAL}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${REMOVAL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${REMOVAL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${REMOVAL}" "NoModify" 1
  WriteRegDWORD HKCU "${REMOVAL}" "NoRepair" 1
SectionEnd

Section Uninstall
  SetRegView 64
  !insertmacro REFUSE_WHILE_IN_USE
  ; The files of this version and nothing else: what users have put there stays.
  !include "${FILES}"
  Delete "${SHORTCUT}"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  DeleteRegKey HKCU "${REMOVAL}"
  DeleteRegKey HKCU "Software\CommonUI\Setup"
  DeleteRegKey /ifempty HKCU "Software\CommonUI"
SectionEnd
