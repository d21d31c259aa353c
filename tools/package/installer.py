"""The NSIS script of the installer: for the machine or for the user alone, never both."""

import subprocess

NAME = "VelmoSAV"
PRODUCT_KEY = rf"Software\Microsoft\Windows\CurrentVersion\Uninstall\{NAME}"
HEAD = r"""Unicode true
SetCompressor /SOLID lzma
SetDateSave off
!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_INSTDIR "VelmoSAV"
!define PRODUCT "{product}"
!define FIRST_CLASS "Software\Classes\CLSID\{first}\InprocServer32"
!include MultiUser.nsh
!include MUI2.nsh
Name "VelmoSAV {version}"
OutFile "{output}"
BrandingText "VelmoSAV"
VIProductVersion "{version}.0"
VIAddVersionKey /LANG=1036 ProductName "VelmoSAV"
VIAddVersionKey /LANG=1036 FileDescription "Installation de VelmoSAV"
VIAddVersionKey /LANG=1036 FileVersion "{version}"
VIAddVersionKey /LANG=1036 LegalCopyright "Tous droits réservés"
!insertmacro MUI_PAGE_WELCOME
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE French
Var owner

Function .onInit
  !insertmacro MULTIUSER_INIT
FunctionEnd

Function un.onInit
  !insertmacro MULTIUSER_UNINIT
  ; The mode is that of the installation, not of who removes it.
  ReadINIStr $0 "$INSTDIR\installation.ini" "installation" "mode"
  StrCmp $0 "CurrentUser" 0 +3
    Call un.MultiUser.InstallMode.CurrentUser
    Return
  Call un.MultiUser.InstallMode.AllUsers
FunctionEnd

Section
  ; Registered twice, the user's copy would hide the machine's from its updates.
  StrCmp $MultiUser.InstallMode "CurrentUser" user
  ReadRegStr $0 HKCU "${{FIRST_CLASS}}" ""
  Goto found
user:
  ReadRegStr $0 HKLM "${{FIRST_CLASS}}" ""
found:
  StrCmp $0 "" free
  MessageBox MB_ICONSTOP "VelmoSAV est déjà inscrit pour l'autre portée (machine ou utilisateur) :$\r$\n$0$\r$\n\
Retirez d'abord cette installation." /SD IDOK
  SetErrorLevel 2
  Quit
free:
"""
MIDDLE = r"""
  ; The menu component gives way to the application's own.
  ReadRegStr $owner HKCR "{menu}\CLSID" ""
  StrCmp $owner "" menu
  StrCmp $owner "{menu_class}" menu no_menu
menu:
{menu_rows}
no_menu:
  WriteINIStr "$INSTDIR\installation.ini" "installation" "mode" "$MultiUser.InstallMode"
  FlushINI "$INSTDIR\installation.ini"
  WriteUninstaller "$INSTDIR\desinstaller.exe"
  WriteRegStr SHCTX "${{PRODUCT}}" "DisplayName" "VelmoSAV"
  WriteRegStr SHCTX "${{PRODUCT}}" "DisplayVersion" "{version}"
  WriteRegStr SHCTX "${{PRODUCT}}" "Publisher" "VelmoSAV"
  WriteRegStr SHCTX "${{PRODUCT}}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${{PRODUCT}}" "UninstallString" '"$INSTDIR\desinstaller.exe"'
  WriteRegStr SHCTX "${{PRODUCT}}" "QuietUninstallString" '"$INSTDIR\desinstaller.exe" /S'
  WriteRegDWORD SHCTX "${{PRODUCT}}" "NoModify" 1
  WriteRegDWORD SHCTX "${{PRODUCT}}" "NoRepair" 1
SectionEnd

Section Uninstall
  ReadRegStr $owner SHCTX "Software\Classes\{menu}\CLSID" ""
{removals}
  StrCmp $owner "{menu_class}" 0 +2
  DeleteRegKey SHCTX "Software\Classes\{menu}"
  DeleteRegKey SHCTX "Software\Classes\CLSID\{menu_class}"
  DeleteRegKey SHCTX "${{PRODUCT}}"
  ; A user's own registry may have had none of these before; the machine's always has.
  StrCmp $MultiUser.InstallMode "CurrentUser" 0 deleted
  DeleteRegKey /ifempty SHCTX "Software\Classes\CLSID"
  DeleteRegKey /ifempty SHCTX "Software\Classes\Interface"
  DeleteRegKey /ifempty SHCTX "Software\Classes\TypeLib"
  DeleteRegKey /ifempty SHCTX "Software\Classes"
  DeleteRegKey /ifempty SHCTX "Software\Microsoft\Windows\CurrentVersion\Uninstall"
deleted:
{deletions}
  Delete "$INSTDIR\installation.ini"
  Delete "$INSTDIR\desinstaller.exe"
  RMDir "$INSTDIR"
SectionEnd
"""


def rows(registration):
    return "\n".join(
        f'  WriteRegStr SHCTX "Software\\Classes\\{key}" "{name}" "{text.replace("{folder}", "$INSTDIR")}"'
        for key, name, text in registration.rows)


def script(version, files, folder, library, menu, menu_prog_id, output):
    """The script that installs `files` (relative paths below `folder`)."""
    first = library.trees[0].removeprefix("CLSID\\")
    menu_class = next(tree for tree in menu.trees if tree.startswith("CLSID\\")).removeprefix("CLSID\\")
    text = HEAD.format(product=PRODUCT_KEY, first=first, version=version, output=output)
    folders = sorted({path.parent for path in files})
    for parent in folders:
        place = "\\".join(("$INSTDIR", *parent.parts))
        text += f'  SetOutPath "{place}"\n'
        text += "".join(f'  File "{folder / path}"\n' for path in files if path.parent == parent)
    text += rows(library)
    every_folder = {up for parent in folders for up in (parent, *parent.parents) if up.parts}
    deletions = [f'  Delete "$INSTDIR\\{chr(92).join(path.parts)}"' for path in files]
    deletions += [f'  RMDir "$INSTDIR\\{chr(92).join(up.parts)}"'
                  for up in sorted(every_folder, key=lambda up: (-len(up.parts), up))]
    text += MIDDLE.format(menu=menu_prog_id, menu_class=menu_class, menu_rows=rows(menu), version=version,
                          removals="\n".join(f'  DeleteRegKey SHCTX "Software\\Classes\\{tree}"'
                                             for tree in library.trees),
                          deletions="\n".join(deletions))
    return text


def make_installer(source, text):
    source.write_text(text, encoding="utf-8")
    subprocess.run(["makensis", "-V2", "-INPUTCHARSET", "UTF8", str(source)], check=True)
