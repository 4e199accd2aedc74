; The installer for Windows: for everybody on the machine, or for one user who is no administrator.
;
;   makensis -DVERSION=2.03 -DNUMBERS=2.3.0.0 -DFROM=FOLDER -DOUTPUT=FILE.exe installer.nsi
;
; FROM has the files that are listed below. ./package calls it.
Unicode true
; The programs are for 64 bits, so this may be, too, and its registry is theirs.
Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true

!define NAME "Quarvel System Manager"
!define KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\QuarvelSystemManager"
!define MENU "$SMPROGRAMS\${NAME}"

; An administrator is asked for whom; another user gets it for himself without a question. /AllUsers
; and /CurrentUser say it beforehand, for /S. An update goes where the program is.
!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_INSTALLMODE_INSTDIR "${NAME}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${KEY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${KEY}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "UninstallString"
!include MultiUser.nsh
!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh

Name "${NAME}"
OutFile "${OUTPUT}"
BrandingText "${NAME} ${VERSION}"
VIProductVersion "${NUMBERS}"
VIAddVersionKey ProductName "${NAME}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "${NAME}, installer"
VIAddVersionKey LegalCopyright "The Quarvel System Manager authors, MIT licence"

!define MUI_ICON "sysman.ico"
!define MUI_UNICON "sysman.ico"
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; All that is installed, listed once: for writing and for deleting.
!macro Everything DO
    !insertmacro ${DO} "" "sysman.exe"
    !insertmacro ${DO} "" "quarvel-data.exe"
    !insertmacro ${DO} "" "backup.cmd"
    !insertmacro ${DO} "" "check.cmd"
    !insertmacro ${DO} "" "report.cmd"
    !insertmacro ${DO} "" "guide.html"
    !insertmacro ${DO} "\licences" "README.txt"
    !insertmacro ${DO} "\licences" "Quarvel System Manager.txt"
    !insertmacro ${DO} "\licences" "CLI11.txt"
    !insertmacro ${DO} "\licences" "wxWidgets.txt"
    !insertmacro ${DO} "\licences" "GCC libraries.txt"
    !insertmacro ${DO} "\licences" "mingw-w64.txt"
    !insertmacro ${DO} "\licences" "NSIS.txt"
!macroend
!macro Write FOLDER FILE
    SetOutPath "$INSTDIR${FOLDER}"
    File "${FROM}${FOLDER}\${FILE}"
!macroend
!macro Remove FOLDER FILE
    Delete "$INSTDIR${FOLDER}\${FILE}"
!macroend

; A program that runs can be neither replaced nor deleted: before anything is changed, it has to be
; closed. Unasked (/S) this ends with 2.
!macro EndOfPrograms
    ${Do}
        StrCpy $1 ""
        ${If} ${FileExists} "$INSTDIR\sysman.exe"
            ClearErrors
            FileOpen $0 "$INSTDIR\sysman.exe" a
            ${If} ${Errors}
                StrCpy $1 "The System Manager"
            ${Else}
                FileClose $0
            ${EndIf}
        ${EndIf}
        ${If} ${FileExists} "$INSTDIR\quarvel-data.exe"
            ClearErrors
            FileOpen $0 "$INSTDIR\quarvel-data.exe" a
            ${If} ${Errors}
                StrCpy $1 "A backup, or another work of quarvel-data,"
            ${Else}
                FileClose $0
            ${EndIf}
        ${EndIf}
        ${If} $1 == ""
            ${Break}
        ${EndIf}
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
            "$1 is running, or the files in$\n$INSTDIR$\nmay not be changed.$\n$\nNothing has been \
            changed yet. Close it, then press Retry." /SD IDCANCEL IDRETRY again
        SetErrorLevel 2
        Quit
        again:
    ${Loop}
!macroend

Function .onInit
    !insertmacro MULTIUSER_INIT
FunctionEnd

Section
    !insertmacro EndOfPrograms
    ClearErrors
    !insertmacro Everything Write
    WriteUninstaller "$INSTDIR\uninstall.exe"
    ; Kept until the end: what comes below forgets it.
    StrCpy $3 "written"
    ${If} ${Errors}
        StrCpy $3 "not written"
    ${EndIf}

    SetOutPath "$INSTDIR"
    CreateDirectory "${MENU}"
    CreateShortCut "${MENU}\${NAME}.lnk" "$INSTDIR\sysman.exe"
    CreateShortCut "${MENU}\Check the Data.lnk" "$INSTDIR\check.cmd" "" "$INSTDIR\sysman.exe"
    CreateShortCut "${MENU}\Show the Report.lnk" "$INSTDIR\report.cmd" "" "$INSTDIR\sysman.exe"
    CreateShortCut "${MENU}\Guide.lnk" "$INSTDIR\guide.html"

    ; SHCTX is the machine's or the user's, as it was chosen; the uninstaller is told which.
    WriteRegStr SHCTX "${KEY}" "DisplayName" "${NAME}"
    WriteRegStr SHCTX "${KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr SHCTX "${KEY}" "DisplayIcon" "$INSTDIR\sysman.exe"
    WriteRegStr SHCTX "${KEY}" "Publisher" "The Quarvel System Manager authors"
    WriteRegStr SHCTX "${KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr SHCTX "${KEY}" "UninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode'
    WriteRegStr SHCTX "${KEY}" "QuietUninstallString" \
        '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode /S'
    WriteRegDWORD SHCTX "${KEY}" "NoModify" 1
    WriteRegDWORD SHCTX "${KEY}" "NoRepair" 1
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD SHCTX "${KEY}" "EstimatedSize" $0
    ${If} $3 != "written"
        SetErrorLevel 2
        MessageBox MB_OK|MB_ICONSTOP "Not everything could be written to$\n$INSTDIR" /SD IDOK
    ${EndIf}
SectionEnd

Function un.onInit
    !insertmacro MULTIUSER_UNINIT
FunctionEnd

; Takes away what is listed above and nothing else: what an operator has put into the folder stays,
; and the data lie elsewhere.
Section "Uninstall"
    !insertmacro EndOfPrograms
    !insertmacro Everything Remove
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR\licences"
    RMDir "$INSTDIR"
    Delete "${MENU}\${NAME}.lnk"
    Delete "${MENU}\Check the Data.lnk"
    Delete "${MENU}\Show the Report.lnk"
    Delete "${MENU}\Guide.lnk"
    RMDir "${MENU}"
    ; The pages last shown, which can be made again.
    Delete "$TEMP\quarvel-sysman\check.html"
    Delete "$TEMP\quarvel-sysman\report.html"
    RMDir "$TEMP\quarvel-sysman"
    DeleteRegKey SHCTX "${KEY}"
SectionEnd
