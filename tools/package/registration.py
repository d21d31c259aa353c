"""The registry values of a registered library, for the installers: those that DllRegisterServer writes.

The package check compares them, value by value, with what regsvr32 leaves.
"""

import re

from make_manifest import DISPATCH_PROXY, LIBRARY, identifiers

MENU = "Lumbra30.ApiPopupMenu"
MENU_HEADER = ("companions", "popupmenu", "popup_menu_object.h")


class Registration:
    """`rows`: (key below the classes, value name or "", text); `trees`: the keys that a removal deletes.

    In a text, {folder} stands for the folder of installation.
    """

    def __init__(self):
        self.rows = []
        self.trees = []

    @property
    def first_class(self):
        """The identifier of its first class, in braces."""
        return next(tree for tree in self.trees if tree.startswith("CLSID\\")).removeprefix("CLSID\\")

    def add(self, tree, values):
        self.trees.append(tree)
        self.rows += [(f"{tree}\\{key}" if key else tree, name, text) for key, name, text in values]

    def add_class(self, prog_id, clsid, dll, extra):
        self.add(f"CLSID\\{clsid}", [
            ("", "", prog_id),
            ("InprocServer32", "", f"{{folder}}\\{dll}"),
            ("InprocServer32", "ThreadingModel", "Apartment"),
            ("ProgID", "", prog_id),
            *extra,
        ])
        self.add(prog_id, [("", "", prog_id), ("CLSID", "", clsid)])


def library_registration(root):
    """The 31 classes, their interfaces and the type library."""
    interface = root / "interface"
    library, classes = identifiers(interface)
    library = f"{{{library}}}"
    source = (interface / f"{LIBRARY}.idl").read_text(encoding="utf-8")
    title = re.search(r'helpstring\("(.*?)"\)', source)[1]
    result = Registration()
    for name, clsid, _ in classes:
        result.add_class(f"{LIBRARY}.{name}", f"{{{clsid}}}", f"{LIBRARY}.dll",
                         [("TypeLib", "", library), ("Version", "", "1.0")])
    for name, _, iid in classes:
        result.add(f"Interface\\{{{iid}}}", [
            ("", "", f"_{name}"),
            ("ProxyStubClsid", "", DISPATCH_PROXY),
            ("ProxyStubClsid32", "", DISPATCH_PROXY),
            ("TypeLib", "", library),
            ("TypeLib", "Version", "1.0"),
        ])
    result.add(f"TypeLib\\{library}", [
        ("1.0", "", title),
        (r"1.0\FLAGS", "", "8"),
        (r"1.0\0\win32", "", f"{{folder}}\\{LIBRARY}.dll"),
        (r"1.0\HELPDIR", "", "{folder}"),
    ])
    return result


def menu_registration(root):
    """The menu component; registered only where its name is nobody else's."""
    header = root.joinpath(*MENU_HEADER).read_text(encoding="utf-8")
    if f'L"{MENU}"' not in header:
        raise SystemExit(f"registration: {MENU} is not the ProgID of the menu component any more")
    result = Registration()
    result.add_class(MENU, menu_class(root), "ApiPopupMenu.dll", [])
    return result


def menu_class(root):
    """The component's class identifier, from its C++ initialiser."""
    source = root.joinpath("companions", "popupmenu", "registration.h").read_text(encoding="utf-8")
    numbers = re.search(r"CLSID kClass\{(.*?)\};", source)[1]
    parts = [int(part, 16) for part in re.findall(r"0x[0-9A-Fa-f]+", numbers)]
    tail = "".join(f"{byte:02X}" for byte in parts[3:])
    return f"{{{parts[0]:08X}-{parts[1]:04X}-{parts[2]:04X}-{tail[:4]}-{tail[4:]}}}"
