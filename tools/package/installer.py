"""The lists of packaging/installation.nsi, and its compilation."""

import subprocess
import sys

from package.managed import UPGRADE_CODE
from package.registration import MENU
from package.signing import SIGNER


def macro(name, lines):
    return "".join(f"{line}\n" for line in (f"!macro {name}", *lines, "!macroend"))


def backslashed(parts):
    return "\\".join(("$INSTDIR", *parts))


def written(registration):
    return [f'  WriteRegStr SHCTX "Software\\Classes\\{key}" "{name}" "{text.replace("{folder}", "$INSTDIR")}"'
            for key, name, text in registration.rows]


def file_lists(files, folder):
    """`files`: relative paths below `folder`."""
    folders = sorted({path.parent for path in files})
    installed, deleted = [], [f'  Delete "{backslashed(path.parts)}"' for path in files]
    for parent in folders:
        installed.append(f'  SetOutPath "{backslashed(parent.parts)}"')
        installed += [f'  File "{folder / path}"' for path in files if path.parent == parent]
    every_folder = {up for parent in folders for up in (parent, *parent.parents) if up.parts}
    deleted += [f'  RMDir "{backslashed(up.parts)}"'
                for up in sorted(every_folder, key=lambda up: (-len(up.parts), up))]
    return macro("INSTALL_FILES", installed) + macro("DELETE_FILES", deleted)


def registration_lists(library, menu):
    deleted = [f'  DeleteRegKey SHCTX "Software\\Classes\\{tree}"' for tree in library.trees]
    return (macro("REGISTER_LIBRARY", written(library)) + macro("REGISTER_MENU", written(menu))
            + macro("UNREGISTER_LIBRARY", deleted))


def make_installer(script, work, contents, version, library, menu, output, signed):
    """Compiles the script with the lists, which are written into the folder `work`."""
    files = sorted(path.relative_to(contents) for path in contents.rglob("*") if path.is_file())
    (work / "files.nsh").write_text(file_lists(files, contents), encoding="utf-8")
    (work / "registration.nsh").write_text(registration_lists(library, menu), encoding="utf-8")
    given = {
        "VERSION": version,
        "OUTPUT": output,
        "LISTS": work,
        "FIRST_CLASS": library.first_class,
        "MENU": MENU,
        "MENU_CLASS": menu.first_class,
        "UPGRADE_CODE": f"{{{UPGRADE_CODE}}}",
    }
    if signed:
        given["SIGN"] = f'"{sys.executable}" "{SIGNER}"'
    subprocess.run(["makensis", "-V2", "-INPUTCHARSET", "UTF8", *(f"-D{name}={text}" for name, text in given.items()),
                    str(script)], check=True)
