; SPDX-FileCopyrightText: 2026 The authors of the Torvak! level editor
; SPDX-License-Identifier: MIT

; Installs for the user who runs it, without an administrator. What is defined outside: VERSION,
; FILES (the folder that is installed), SIZE (of it, in KiB), REMOVAL (a file that deletes what is
; in it, by means of GoToWhenEdited), OUTPUT.

!define PROGRAM "torvak-level-editor.exe"
!define RUNNING "Nothing was changed. Please close the editor first."
!define LINK "$SMPROGRAMS\Torvak! level editor.lnk"
!define PROGRAMS "$LOCALAPPDATA\Programs"
!define UNINSTALLERS "Software\Microsoft\Windows\CurrentVersion\Uninstall"
!define UNINSTALL "${UNINSTALLERS}\torvak-level-editor"

Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true
Name "Torvak! level editor"
OutFile "${OUTPUT}"
BrandingText " "
InstallDir "${PROGRAMS}\Torvak level editor"
InstallDirRegKey HKCU "${UNINSTALL}" "InstallLocation"
Icon "torvak-level-editor.ico"
UninstallIcon "torvak-level-editor.ico"

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Torvak! level editor"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Installs the Torvak! level editor"
VIAddVersionKey "LegalCopyright" "2026 The authors of the Torvak! level editor, MIT licence"

; Goes to a label when a file is no longer the one that was installed: it then has another time.
!macro GoToWhenEdited LABEL FILE
    !searchreplace SOURCE "${FILES}/${FILE}" "\" "/"
    GetFileTimeLocal "${SOURCE}" $0 $1
    GetFileTime "$INSTDIR\${FILE}" $2 $3
    StrCmp "$0 $1" "$2 $3" 0 ${LABEL}
!macroend

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

Section
    ; An older one goes first, from wherever it is: it alone knows which files it has installed. In its
    ; own folder, instead of in a copy that nobody waits for, it can delete all but itself.
    ReadRegStr $0 HKCU "${UNINSTALL}" "InstallLocation"
    ReadRegStr $1 HKCU "${UNINSTALL}" "QuietUninstallString"
    StrCmp $1 "" none
    ExecWait '$1 _?=$0' $2
    StrCmp $2 2 0 +2
    Abort "${RUNNING}"
    Delete "$0\uninstall.exe"
    RMDir "$0"
    none:
    SetOutPath "$INSTDIR"
    SetDateSave on ; see GoToWhenEdited
    File /r /x examples "${FILES}\*"
    SetOverwrite off ; a person may have edited them
    File /r "${FILES}\examples"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortcut "${LINK}" "$INSTDIR\${PROGRAM}"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "Torvak! level editor"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\${PROGRAM}"
    WriteRegStr HKCU "${UNINSTALL}" "Publisher" "The authors of the Torvak! level editor"
    WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL}" "EstimatedSize" ${SIZE}
    WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
SectionEnd

Section "Uninstall"
    SetOutPath "$TEMP" ; the folder in which a program runs cannot go
    ClearErrors
    Delete "$INSTDIR\${PROGRAM}"
    IfErrors 0 +2
    Abort "${RUNNING}"
    !include "${REMOVAL}"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    RMDir "${PROGRAMS}" ; unless something else is in it, as in the key below
    Delete "${LINK}"
    DeleteRegKey HKCU "${UNINSTALL}"
    DeleteRegKey /ifempty HKCU "${UNINSTALLERS}"
SectionEnd
