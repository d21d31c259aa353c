#!/usr/bin/env python3
"""Write the DLL's side-by-side manifest: classes, interfaces and type library, for use without registration.

Usage: make_manifest.py INTERFACE_FOLDER OUTPUT
"""

import pathlib
import re
import sys

LIBRARY = "VelmoSAV_DLL14"
DISPATCH_PROXY = "{00020424-0000-0000-C000-000000000046}"


def identifiers(folder):
    """uuid of the library, then (class, class uuid, interface uuid) in the order of the list of classes."""
    library = re.search(r"uuid\(([0-9A-F-]+)\)", (folder / f"{LIBRARY}.idl").read_text(encoding="utf-8")).group(1)
    names = re.findall(r"^AUTOMATION_CLASS\((\w+)\)$", (folder / "classes.def").read_text(encoding="utf-8"), re.M)
    classes = []
    for name in names:
        interface, coclass = re.findall(
            r"uuid\(([0-9A-F-]+)\)", (folder / "classes" / f"{name}.idl").read_text(encoding="utf-8")
        )
        classes.append((name, coclass, interface))
    return library, classes


def manifest(library, classes):
    lines = [
        '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>',
        '<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">',
        f'  <assemblyIdentity type="win32" name="{LIBRARY}" version="14.0.0.0" processorArchitecture="x86"/>',
        f'  <file name="{LIBRARY}.dll">',
        f'    <typelib tlbid="{{{library}}}" version="1.0" helpdir=""/>',
    ]
    for name, coclass, _ in classes:
        lines.append(
            f'    <comClass clsid="{{{coclass}}}" progid="{LIBRARY}.{name}" threadingModel="Apartment" '
            f'tlbid="{{{library}}}"/>'
        )
    lines.append("  </file>")
    for name, _, interface in classes:
        lines.append(
            f'  <comInterfaceExternalProxyStub name="_{name}" iid="{{{interface}}}" '
            f'proxyStubClsid32="{DISPATCH_PROXY}" tlbid="{{{library}}}"/>'
        )
    lines.append("</assembly>")
    return "\n".join(lines) + "\n"


if __name__ == "__main__":
    source, target = map(pathlib.Path, sys.argv[1:])
    target.write_text(manifest(*identifiers(source)), encoding="utf-8")
