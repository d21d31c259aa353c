"""Zip files whose bytes depend on their contents and the commit's date alone."""

import os
import subprocess
import time
import zipfile


def commit_date(root):
    """SOURCE_DATE_EPOCH, else the date of the commit."""
    given = os.environ.get("SOURCE_DATE_EPOCH")
    if not given:
        asked = subprocess.run(["git", "-C", str(root), "log", "-1", "--format=%ct"], capture_output=True, text=True,
                               check=False)
        given = asked.stdout.strip()
    if not given:
        raise SystemExit("package: no commit here; set SOURCE_DATE_EPOCH to the date of the sources")
    return int(given)


def write_zip(output, folder, top, date):
    """`folder` as the folder `top` of the archive, sorted."""
    moment = time.gmtime(date)[:6]
    with zipfile.ZipFile(output, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
        for path in sorted(path for path in folder.rglob("*") if path.is_file()):
            entry = zipfile.ZipInfo(f"{top}/{path.relative_to(folder).as_posix()}", moment)
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o644 << 16
            entry.create_system = 3
            archive.writestr(entry, path.read_bytes())
