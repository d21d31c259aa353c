"""The documents that come with the packages: those for the people who install and call the library."""

import re
import shutil

# For the people who change the library; they link to its sources.
LEFT_OUT = ("contributing.md", "maintainers.md")


def copy_documents(source, target, examples):
    """`examples` is what the packages call the folder of the examples. A link that leads nowhere ends the packaging."""
    for path in sorted(source.rglob("*")):
        if not path.is_file() or path.name in LEFT_OUT or path.suffix not in (".md", ".png"):
            continue
        place = target / path.relative_to(source)
        place.parent.mkdir(parents=True, exist_ok=True)
        if path.suffix == ".md":
            text = path.read_text(encoding="utf-8")
            place.write_text(re.sub(r"\bexamples/", f"{examples}/", text), encoding="utf-8")
        else:
            shutil.copyfile(path, place)
    lost = [f"{page.relative_to(target)}: {link}" for page in sorted(target.rglob("*.md"))
            for link in re.findall(r"\]\(([^)\s]+)\)", page.read_text(encoding="utf-8"))
            if "://" not in link and not (page.parent / link.partition("#")[0]).exists()]
    if lost:
        raise SystemExit("package: links that lead nowhere:\n" + "\n".join(lost))
