"""The MSI for managed deployment, for the machine."""

import re
import subprocess
import uuid
from xml.sax.saxutils import quoteattr

# Never changes: an update finds the version before it by this.
UPGRADE_CODE = "6D0B1C55-93B4-4C3F-9B7C-2F6D6F0E9D41"
NAMES = uuid.UUID(UPGRADE_CODE)


def identifier(kind, text):
    return f"{kind}_{uuid.uuid5(NAMES, f'{kind} {text}').hex}"


def component(name, condition, body):
    guid = str(uuid.uuid5(NAMES, f"component {name}")).upper()
    head = f'<Component Id="{identifier("c", name)}" Guid="{{{guid}}}">'
    return [head, *([f"<Condition>{condition}</Condition>"] if condition else []), *body, "</Component>"]


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
            lines.extend(component(name, None, body))
        below = {path.parents[len(path.parents) - 2 - len(parent.parts)] for path in files
                 if len(path.parts) > len(parent.parts) + 1 and (not parent.parts or parent in path.parents)}
        for child in sorted(below):
            lines.append(f'<Directory Id="{identifier("d", child.as_posix())}" Name={quoteattr(child.name)}>')
            walk(child)
            lines.append("</Directory>")
    walk(type(files[0])())


def source(version, files, library, menu):
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
        '<Directory Id="TARGETDIR" Name="SourceDir"><Directory Id="ProgramFilesFolder">'
        '<Directory Id="INSTALLDIR" Name="VelmoSAV">',
    ]
    directories(files, lines)
    lines += component("registration", None, registry(library.rows))
    lines += component("menu registration", None, registry(menu.rows))
    lines += ["</Directory></Directory></Directory>",
              '<Feature Id="Tout" Title="VelmoSAV" Level="1">']
    names = [path.as_posix() for path in files] + ["registration", "menu registration"]
    lines += [f'<ComponentRef Id="{identifier("c", name)}" />' for name in names]
    lines += ["</Feature></Product></Wix>"]
    return "\n".join(lines) + "\n"


def make_msi(wxs, text, folder, output):
    """The compiler takes the files' paths below the folder where it runs."""
    wxs.write_text(text, encoding="utf-8")
    subprocess.run(["wixl", "--arch", "x86", "-o", str(output), str(wxs)], check=True, cwd=folder)
