"""The MSI for managed deployment, for the machine."""

import os
import re
import subprocess
import uuid
from xml.sax.saxutils import quoteattr

from package.registration import MENU

# Never changes: an update finds the version before it by this.
UPGRADE_CODE = "6D0B1C55-93B4-4C3F-9B7C-2F6D6F0E9D41"
NAMES = uuid.UUID(UPGRADE_CODE)
# What the other installer writes for the machine.
PRODUCT_OF_INSTALLER = r"Software\Microsoft\Windows\CurrentVersion\Uninstall\VelmoSAV"
MENU_COMPONENT = "menu registration"


def identifier(kind, text):
    return f"{kind}_{uuid.uuid5(NAMES, f'{kind} {text}').hex}"


def component(name, body):
    guid = str(uuid.uuid5(NAMES, f"component {name}")).upper()
    head = f'<Component Id="{identifier("c", name)}" Guid="{{{guid}}}">'
    return [head, *body, "</Component>"]


def registry(rows):
    for key, name, text in rows:
        path = "Software\\Classes\\" + key
        value = text.replace("{folder}\\", "[INSTALLDIR]").replace("{folder}", "[INSTALLDIR]")
        # A brace would be read as the start of a formatted text.
        value = re.sub(r"([{}])", lambda m: f"[\\{m[1]}]", value) if "[INSTALLDIR]" not in value else value
        which = f" Name={quoteattr(name)}" if name else ""
        yield (f'<RegistryValue Id="{identifier("r", path + name)}" Root="HKLM" Key={quoteattr(path)}{which} '
               f'Type="string" Value={quoteattr(value)} />')


def directories(files, lines):
    """One component a file, nested as the folders are."""
    def walk(parent):
        for path in [path for path in files if path.parent == parent]:
            name = path.as_posix()
            body = [f'<File Id="{identifier("f", name)}" Name={quoteattr(path.name)} '
                    f'Source={quoteattr(name)} KeyPath="yes" />']
            lines.extend(component(name, body))
        below = {path.parents[len(path.parents) - 2 - len(parent.parts)] for path in files
                 if len(path.parts) > len(parent.parts) + 1 and (not parent.parts or parent in path.parents)}
        for child in sorted(below):
            lines.append(f'<Directory Id="{identifier("d", child.as_posix())}" Name={quoteattr(child.name)}>')
            walk(child)
            lines.append("</Directory>")
    walk(type(files[0])())


def searches(first, menu_prog_id):
    """What the registry held before: the menu's owner, and what stands in the way."""
    found = [
        ("MENUOWNER", "HKCR", rf"{menu_prog_id}\CLSID", ""),
        ("USERSERVER", "HKCU", rf"Software\Classes\CLSID\{first}\InprocServer32", ""),
        ("OTHERINSTALLER", "HKLM", PRODUCT_OF_INSTALLER, "UninstallString"),
    ]
    for name, root, key, value in found:
        yield (f'<Property Id="{name}"><RegistrySearch Id="{name.lower()}" Root="{root}" Key={quoteattr(key)} '
               f'Name="{value}" Type="raw" /></Property>')
    refused = [
        ("USERSERVER", "VelmoSAV est déjà inscrit pour l'utilisateur : retirez d'abord cette installation."),
        ("OTHERINSTALLER", "VelmoSAV est déjà installé pour la machine par son installateur : retirez-le d'abord."),
    ]
    for name, text in refused:
        yield f"<Condition Message={quoteattr(text)}>Installed OR NOT {name}</Condition>"


def source(version, files, library, menu):
    """The installer compiler's source; `files` are relative paths."""
    product = str(uuid.uuid5(NAMES, f"product {version}")).upper()
    lines = [
        '<?xml version="1.0" encoding="utf-8"?>',
        '<Wix xmlns="http://schemas.microsoft.com/wix/2006/wi">',
        f'<Product Id="{{{product}}}" Name="VelmoSAV" Language="1036" Codepage="1252" Version="{version}" '
        f'Manufacturer="VelmoSAV" UpgradeCode="{{{UPGRADE_CODE}}}">',
        '<Package InstallerVersion="200" Compressed="yes" InstallScope="perMachine" Languages="1036" '
        'SummaryCodepage="1252" />',
        '<MajorUpgrade DowngradeErrorMessage="Une version plus récente de VelmoSAV est déjà installée." />',
        '<Media Id="1" Cabinet="velmosav.cab" EmbedCab="yes" />',
        *searches(library.first_class, MENU),
        '<Directory Id="TARGETDIR" Name="SourceDir"><Directory Id="ProgramFilesFolder">'
        '<Directory Id="INSTALLDIR" Name="VelmoSAV">',
    ]
    directories(files, lines)
    lines += component("registration", registry(library.rows))
    lines += component(MENU_COMPONENT, registry(menu.rows))
    lines += ["</Directory></Directory></Directory>", '<Feature Id="Tout" Title="VelmoSAV" Level="1">']
    names = [path.as_posix() for path in files] + ["registration", MENU_COMPONENT]
    lines += [f'<ComponentRef Id="{identifier("c", name)}" />' for name in names]
    lines += ["</Feature></Product></Wix>"]
    return "\n".join(lines) + "\n"


def make_msi(work, contents, version, library, menu, output):
    """The compiler takes the files' paths below the folder where it runs, and knows no conditions of components."""
    files = sorted(path.relative_to(contents) for path in contents.rglob("*") if path.is_file())
    wxs = work / "installation.wxs"
    wxs.write_text(source(version, files, library, menu), encoding="utf-8")
    # What the compiler only complains of makes a file that lacks rows.
    strict = {**os.environ, "G_DEBUG": "fatal-criticals"}
    subprocess.run(["wixl", "--arch", "x86", "-o", str(output), str(wxs)], check=True, cwd=contents, env=strict)
    condition = f'NOT MENUOWNER OR MENUOWNER = "{menu.first_class}"'
    menu_component = identifier("c", MENU_COMPONENT)
    query = f"UPDATE `Component` SET `Condition` = '{condition}' WHERE `Component` = '{menu_component}'"
    subprocess.run(["msibuild", str(output), "-q", query], check=True)
