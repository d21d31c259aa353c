; The installer: for the machine or for the user alone, never both.
; Given with -D: VERSION OUTPUT LISTS (folder of the generated lists) FIRST_CLASS MENU MENU_CLASS UPGRADE_CODE, and
; SIGN, a command, where the programs are signed.
; Codes when silent: 0 done, 2 another installation stands in the way, 3 the library is in use, 4 rights are missing.
Unicode true
SetCompressor /SOLID lzma
SetDateSave off

!define PRODUCT "Software\Microsoft\Windows\CurrentVersion\Uninstall\VelmoSAV"
!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_INSTDIR "VelmoSAV"
; An update goes where the version before it is.
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${PRODUCT}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${PRODUCT}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "InstallLocation"
!include MultiUser.nsh
!include MUI2.nsh
!include LogicLib.nsh
!include /CHARSET=UTF8 "${LISTS}/files.nsh"
!include /CHARSET=UTF8 "${LISTS}/registration.nsh"

Name "VelmoSAV ${VERSION}"
OutFile "${OUTPUT}"
BrandingText "VelmoSAV"
VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=1036 ProductName "VelmoSAV"
VIAddVersionKey /LANG=1036 FileDescription "Installation de VelmoSAV"
VIAddVersionKey /LANG=1036 FileVersion "${VERSION}"
VIAddVersionKey /LANG=1036 LegalCopyright "Tous droits réservés"
!insertmacro MUI_PAGE_WELCOME
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE French
!ifdef SIGN
  !uninstfinalize '${SIGN} "%1"' = 0
!endif

Var place
Var owner

!macro REFUSE code text
  MessageBox MB_ICONSTOP "${text}" /SD IDOK
  SetErrorLevel ${code}
  Quit
!macroend

; Half an update would be worse than none.
!macro REFUSE_WHILE_IN_USE
  ${If} ${FileExists} "$INSTDIR\VelmoSAV_DLL14.dll"
    ClearErrors
    FileOpen $0 "$INSTDIR\VelmoSAV_DLL14.dll" a
    ${If} ${Errors}
      !insertmacro REFUSE 3 "VelmoSAV_DLL14.dll est en cours d'utilisation, ou protégée : fermez d'abord l'application."
    ${EndIf}
    FileClose $0
  ${EndIf}
!macroend

Function .onInit
  ; A folder given with /D goes before the usual one.
  StrCpy $place $INSTDIR
  UserInfo::GetAccountType
  Pop $0
  ${GetParameters} $1
  ${StrStr} $2 $1 "/AllUsers"
  ${If} $2 != ""
  ${AndIf} $0 != "Admin"
  ${AndIf} $0 != "Power"
    !insertmacro REFUSE 4 "L'installation pour la machine demande les droits d'administrateur."
  ${EndIf}
  !insertmacro MULTIUSER_INIT
  ${If} $place != ""
    StrCpy $INSTDIR $place
  ${EndIf}
FunctionEnd

Function un.onInit
  ; The folder and the mode are those of this installation, whoever removes it.
  StrCpy $place $INSTDIR
  !insertmacro MULTIUSER_UNINIT
  ReadINIStr $0 "$place\installation.ini" "installation" "mode"
  ${If} $0 == "CurrentUser"
    Call un.MultiUser.InstallMode.CurrentUser
  ${Else}
    Call un.MultiUser.InstallMode.AllUsers
  ${EndIf}
  StrCpy $INSTDIR $place
FunctionEnd

; Registered twice, the user's copy would hide the machine's from its updates.
Function RefuseBoth
  ${If} $MultiUser.InstallMode == "CurrentUser"
    ReadRegStr $0 HKLM "Software\Classes\CLSID\${FIRST_CLASS}\InprocServer32" ""
  ${Else}
    ReadRegStr $0 HKCU "Software\Classes\CLSID\${FIRST_CLASS}\InprocServer32" ""
  ${EndIf}
  ${If} $0 != ""
    !insertmacro REFUSE 2 "VelmoSAV est déjà inscrit pour l'autre portée (machine ou utilisateur) :$\r$\n$0$\r$\n\
Retirez d'abord cette installation."
  ${EndIf}
  System::Call 'msi::MsiEnumRelatedProductsW(w "${UPGRADE_CODE}", i 0, i 0, w .r1) i .r0'
  ${If} $0 = 0
    !insertmacro REFUSE 2 "VelmoSAV est déjà installé par un MSI : mettez-le à jour de même, ou retirez-le."
  ${EndIf}
FunctionEnd

; With all its files: the new version may have fewer.
Function RemoveVersionBefore
  ReadRegStr $1 SHCTX "${PRODUCT}" "InstallLocation"
  ${If} $1 != ""
  ${AndIf} ${FileExists} "$1\desinstaller.exe"
    ExecWait '"$1\desinstaller.exe" /S _?=$1' $0
    ${If} $0 <> 0
      SetErrorLevel $0
      Quit
    ${EndIf}
    Delete "$1\desinstaller.exe"
    RMDir "$1"
  ${EndIf}
FunctionEnd

Section
  Call RefuseBoth
  !insertmacro REFUSE_WHILE_IN_USE
  Call RemoveVersionBefore
  !insertmacro INSTALL_FILES
  !insertmacro REGISTER_LIBRARY
  ; The menu component gives way to the application's own.
  ReadRegStr $owner HKCR "${MENU}\CLSID" ""
  ${If} $owner == ""
  ${OrIf} $owner == "${MENU_CLASS}"
    !insertmacro REGISTER_MENU
  ${EndIf}
  WriteINIStr "$INSTDIR\installation.ini" "installation" "mode" "$MultiUser.InstallMode"
  FlushINI "$INSTDIR\installation.ini"
  WriteUninstaller "$INSTDIR\desinstaller.exe"
  WriteRegStr SHCTX "${PRODUCT}" "DisplayName" "VelmoSAV"
  WriteRegStr SHCTX "${PRODUCT}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${PRODUCT}" "Publisher" "VelmoSAV"
  WriteRegStr SHCTX "${PRODUCT}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${PRODUCT}" "UninstallString" '"$INSTDIR\desinstaller.exe"'
  WriteRegStr SHCTX "${PRODUCT}" "QuietUninstallString" '"$INSTDIR\desinstaller.exe" /S'
  WriteRegDWORD SHCTX "${PRODUCT}" "NoModify" 1
  WriteRegDWORD SHCTX "${PRODUCT}" "NoRepair" 1
SectionEnd

Section Uninstall
  !insertmacro REFUSE_WHILE_IN_USE
  ReadRegStr $owner SHCTX "Software\Classes\${MENU}\CLSID" ""
  !insertmacro UNREGISTER_LIBRARY
  ${If} $owner == "${MENU_CLASS}"
    DeleteRegKey SHCTX "Software\Classes\${MENU}"
  ${EndIf}
  DeleteRegKey SHCTX "Software\Classes\CLSID\${MENU_CLASS}"
  DeleteRegKey SHCTX "${PRODUCT}"
  ; A user's own registry may have had none of these before; the machine's always has.
  ${If} $MultiUser.InstallMode == "CurrentUser"
    DeleteRegKey /ifempty SHCTX "Software\Classes\CLSID"
    DeleteRegKey /ifempty SHCTX "Software\Classes\Interface"
    DeleteRegKey /ifempty SHCTX "Software\Classes\TypeLib"
    DeleteRegKey /ifempty SHCTX "Software\Classes"
    DeleteRegKey /ifempty SHCTX "Software\Microsoft\Windows\CurrentVersion\Uninstall"
  ${EndIf}
  !insertmacro DELETE_FILES
  Delete "$INSTDIR\installation.ini"
  Delete "$INSTDIR\desinstaller.exe"
  RMDir "$INSTDIR"
SectionEnd
