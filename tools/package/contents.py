"""The folder of files that every package holds: programs, contract, examples, documents, their sums."""

import hashlib
import shutil
import struct
import subprocess

from package.documents import copy_documents
from package.signing import sign

PROGRAMS = ("VelmoSAV_DLL14.dll", "ApiPopupMenu.dll", "sav-diagnostic.exe")
EXAMPLES_FOLDER = "exemples"
EXAMPLES = ("facturation.exe", "galerie.exe", "premier_appel.exe", "sans_enregistrement.exe")
WITH_SYMBOL_FILE = ("VelmoSAV_DLL14.dll", "ApiPopupMenu.dll")
SUMS = "SHA256SUMS.txt"
# The terms of what is linked into the programs, where the build machine keeps them.
NOTICES = {
    "gcc.txt": "/usr/share/doc/gcc-mingw-w64-base/copyright",
    "GPL-3.txt": "/usr/share/common-licenses/GPL-3",
    "mingw-w64.txt": "/usr/share/doc/mingw-w64-common/copyright",
    "nlohmann-json.txt": "/usr/share/doc/nlohmann-json3-dev/copyright",
    "nsis.txt": "/usr/share/doc/nsis/copyright",
}
TOOL = "i686-w64-mingw32-"


def run(*command):
    subprocess.run([str(part) for part in command], check=True)


def undate(image):
    """Takes the time of day out of an image that the binary tools have written, and sums it up again."""
    data = bytearray(image.read_bytes())
    header = struct.unpack_from("<I", data, 0x3C)[0]
    struct.pack_into("<I", data, header + 8, 0)
    struct.pack_into("<I", data, header + 0x58, 0)
    words = sum(memoryview(data + bytes(len(data) % 2)).cast("H"))
    while words >> 16:
        words = (words & 0xFFFF) + (words >> 16)
    struct.pack_into("<I", data, header + 0x58, words + len(data))
    image.write_bytes(data)


def strip(source, target, symbols):
    """Copies a program without its symbols; `symbols`, where given, is the folder of the file that keeps them."""
    target.parent.mkdir(parents=True, exist_ok=True)
    run(TOOL + "strip", "--strip-all", "-o", target, source)
    if symbols:
        symbols.mkdir(parents=True, exist_ok=True)
        debug = symbols / f"{source.name}.debug"
        run(TOOL + "objcopy", "--only-keep-debug", source, debug)
        undate(debug)
        run(TOOL + "objcopy", f"--add-gnu-debuglink={debug}", target)
    undate(target)


def copy_tree(source, target, wanted=lambda path: True):
    for path in sorted(source.rglob("*")):
        if path.is_file() and wanted(path) and "__pycache__" not in path.parts:
            place = target / path.relative_to(source)
            place.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(path, place)


def write_sums(folder, target):
    lines = [f"{hashlib.sha256(path.read_bytes()).hexdigest()}  {path.relative_to(folder).as_posix()}\n"
             for path in sorted(folder.rglob("*")) if path.is_file() and path != target]
    target.write_text("".join(lines), encoding="utf-8")


def fill(root, build, folder, symbols):
    """Fills `folder` for the packages and `symbols` with the symbol files."""
    for name in PROGRAMS:
        strip(build / "bin" / name, folder / name, symbols if name in WITH_SYMBOL_FILE else None)
    for name in EXAMPLES:
        strip(build / "bin" / name, folder / EXAMPLES_FOLDER / "bin" / name, None)
    # Without registration a program finds the library beside itself.
    shutil.copyfile(folder / PROGRAMS[0], folder / EXAMPLES_FOLDER / "bin" / PROGRAMS[0])
    sign(*(folder / name for name in PROGRAMS), *sorted((folder / EXAMPLES_FOLDER / "bin").iterdir()))

    shutil.copyfile(build / "help" / "VelmoSAV_DLL14.chm", folder / "VelmoSAV_DLL14.chm")
    shutil.copyfile(root / "packaging" / "LISEZMOI.txt", folder / "LISEZMOI.txt")
    contract = folder / "contrat"
    contract.mkdir()
    for name in ("VelmoSAV_DLL14.tlb", "VelmoSAV_DLL14.manifest"):
        shutil.copyfile(build / "interface" / name, contract / name)
    # The compiler of the contract names its source with the folder of the build.
    header = (build / "interface" / "include" / "VelmoSAV_DLL14.h").read_text(encoding="utf-8")
    (contract / "VelmoSAV_DLL14.h").write_text(header.replace(f"{build}/interface/cp1252/", ""), encoding="utf-8")
    copy_tree(root / "interface", contract / "idl", lambda path: path.suffix in (".idl", ".def"))
    copy_tree(root / "examples", folder / EXAMPLES_FOLDER, lambda path: path.name != "capture.sh")
    shutil.copyfile(root / "packaging" / "exemples.cmake", folder / EXAMPLES_FOLDER / "CMakeLists.txt")
    copy_tree(root / "examples" / "facturation" / "donnees", folder / EXAMPLES_FOLDER / "bin" / "donnees")
    copy_documents(root / "docs", folder / "documentation", EXAMPLES_FOLDER)
    (folder / "licences").mkdir()
    shutil.copyfile(root / "packaging" / "licences.txt", folder / "licences" / "LISEZMOI.txt")
    for name, terms in NOTICES.items():
        shutil.copyfile(terms, folder / "licences" / name)
    write_sums(folder, folder / SUMS)
