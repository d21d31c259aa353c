"""The registry keys that the published identifiers ask for."""

import re

from package.registration import MENU


def published_keys(root):
    """Of the library: every key of a class, a ProgID, an interface and the type library, in small letters."""
    text = (root / "tests" / "contract" / "identities.def").read_text(encoding="utf-8")
    library = re.search(r'^LIBRARY_IDENTITY\((\w+), "(.*)"\)$', text, re.M)
    keys = {f"typelib\\{{{library[2]}}}\\1.0"}
    for name, class_identifier, interface in re.findall(r'^CLASS_IDENTITY\((\w+), "(.*)", "(.*)"\)$', text, re.M):
        keys |= {f"clsid\\{{{class_identifier}}}", f"{library[1]}.{name}", f"interface\\{{{interface}}}"}
    return {key.lower() for key in keys}


def registered_identities(keys):
    """Of the registry's keys, those that name a class, a ProgID, an interface or a type library; without the menu's."""
    identities = set()
    for key in keys:
        head, *rest = key.split("\\")
        if head == "typelib" and len(rest) > 1:
            identities.add("\\".join((head, *rest[:2])))
        elif head in ("clsid", "interface") and rest:
            identities.add(f"{head}\\{rest[0]}")
        elif rest == ["clsid"]:
            identities.add(head)
    menu = keys.get(f"{MENU.lower()}\\clsid")
    return identities - ({MENU.lower(), f"clsid\\{menu[0][3:-1].lower()}"} if menu else set())
