"""What the compiled help file holds: the reference and the guide as HTML, contents, index, and the help contexts.

A context's number is the IDL's: a class's PAGE, plus the dispatch identifier for a member. A class has a page, each of
its methods has one, and its constants share one.
"""

import html

from .contract import LIBRARY
from .html import body, slug
from .pages import class_head, constants_lines, method_lines, shared_pages, text_of

GUIDE = ("README", "first-call", "records", "faults", "regional-settings", "invoice", "companions")
STYLE = """body { font: 10pt "Segoe UI", Tahoma, sans-serif; margin: 1em 1.5em; color: #222; }
h1, h2 { font-size: 17pt; color: #1f3f66; border-bottom: 2px solid #1f3f66; padding-bottom: 3px; }
h2 { font-size: 13pt; margin-top: 1.6em; border-bottom: 1px solid #c8d3e0; }
pre { font: 9.5pt Consolas, "Courier New", monospace; background: #f4f6f9; border: 1px solid #d8dfe8;
      padding: 6px 10px; white-space: pre-wrap; }
code { font: 9.5pt Consolas, "Courier New", monospace; color: #7a2d12; }
table { border-collapse: collapse; margin: 0.8em 0; }
th { text-align: left; background: #e7edf5; }
th, td { border: 1px solid #cdd6e2; padding: 3px 8px; vertical-align: top; font-size: 9.5pt; }
a { color: #1a5fb4; }
"""


def method_page(class_, method):
    # Viewers disagree on the place of an underscore in the sorted directory.
    return f"{class_.name}-{method.name.replace('_', '-')}.html"


def constants_page(class_):
    return f"{class_.name}-constants.html"


def constant_place(class_, constant):
    return f"{constants_page(class_)}#n{constant.number}"


def contexts(contract):
    """Context number -> page of the help file."""
    found = {contract.pages["LIBRARY_PAGE"]: "index.html", contract.pages["RECORDS_PAGE"]: "records.html",
             contract.pages["ENUMERATIONS_PAGE"]: "enumerations.html"}
    for class_ in contract.classes:
        found[class_.page] = f"{class_.name}.html"
        found |= {class_.page + constant.number: constant_place(class_, constant) for constant in class_.constants}
        found |= {class_.page + method.number: method_page(class_, method) for method in class_.methods}
    return found


class Links:
    """Where the links of a document lead in the help file."""

    def __init__(self, docs, contract):
        self.docs = docs
        self.members = {}
        for class_ in contract.classes:
            self.members[f"{class_.name}.html", "constants"] = constants_page(class_)
            for method in class_.methods:
                self.members[f"{class_.name}.html", slug(method.name)] = method_page(class_, method)

    def page_name(self, path):
        """The page's name; None for a file that is not in the help file."""
        if not path.is_relative_to(self.docs):
            return None
        folder, stem = path.relative_to(self.docs).parent.name, path.stem
        if path.suffix == ".md" and folder == "reference":
            return "index.html" if stem == "README" else f"{stem}.html"
        if path.suffix == ".md" and folder == "guide":
            return "guide.html" if stem == "README" else f"guide-{stem}.html"
        return path.name if path.suffix == ".png" else None

    def from_page(self, source):
        def link_of(target):
            if "://" in target:
                return target
            name, _, anchor = target.partition("#")
            page = self.page_name((source.parent / name).resolve() if name else source)
            if not page or not anchor:
                return page
            return self.members.get((page, anchor), f"{page}#{anchor}")

        return link_of


def page_html(title, text, link_of):
    return ('<!DOCTYPE html>\n<html><head><meta http-equiv="Content-Type" content="text/html; charset=windows-1252">\n'
            f'<title>{html.escape(title)}</title>\n<link rel="stylesheet" href="style.css"></head><body>\n'
            f"{body(text, link_of)}\n</body></html>\n")


def with_anchors(page, constants):
    """The table of constants with a place for each one's context."""
    for constant in constants:
        cell = f"<td><code>{constant.name}</code></td>"
        page = page.replace(cell, f'<td><a name="n{constant.number}"></a>{cell[4:]}', 1)
    return page


def class_pages(contract, class_, help_, link_of):
    """(name, HTML) of each page of a class."""
    def page(name, title, lines):
        return name, page_html(title, text_of(lines), link_of)

    yield page(f"{class_.name}.html", class_.name, class_head(class_, help_) + (
        ["", "[Constants](#constants)"] if class_.constants else []))
    for method in class_.methods:
        lines = method_lines(contract, class_, method, help_.entries[method.name])
        title = f"{class_.name}.{method.name}"
        yield page(method_page(class_, method), title, [f"# {title}", *lines[1:]])
    if class_.constants:
        title = f"{class_.name}: constants"
        name, text = page(constants_page(class_), title, [f"# {title}", *constants_lines(class_)[1:]])
        yield name, with_anchors(text, class_.constants)


def entry(name, place):
    return (f'<li><object type="text/sitemap"><param name="Name" value="{html.escape(name)}">'
            f'<param name="Local" value="{place}"></object>')


def sitemap(lines):
    return ('<!DOCTYPE HTML PUBLIC "-//IETF//DTD HTML//EN">\n<html><head></head><body>\n<ul>\n' + "\n".join(lines)
            + "\n</ul>\n</body></html>\n")


def contents(contract, guide_titles):
    lines = [entry("Guide", "guide.html"), "<ul>"]
    lines += [entry(title, name) for name, title in guide_titles if name != "guide.html"]
    lines += ["</ul>", entry("Reference", "index.html"), "<ul>"]
    for class_ in contract.classes:
        lines.append(entry(class_.name, f"{class_.name}.html"))
        below = [entry(method.name, method_page(class_, method)) for method in class_.methods]
        below += [entry("Constants", constants_page(class_))] if class_.constants else []
        lines += ["<ul>", *below, "</ul>"] if below else []
    lines += [entry("Records", "records.html"), entry("Enumerations", "enumerations.html"),
              entry("Fault numbers", "fault-numbers.html"), "</ul>"]
    return sitemap(lines)


def index(contract):
    names = [(class_.name, f"{class_.name}.html") for class_ in contract.classes]
    for class_ in contract.classes:
        names += [(f"{method.name} ({class_.name})", method_page(class_, method)) for method in class_.methods]
        names += [(f"{constant.name} ({class_.name})", constant_place(class_, constant))
                  for constant in class_.constants]
    names += [(record.name, f"records.html#{slug(record.name)}") for record in contract.records]
    names += [(e.name, f"enumerations.html#{slug(e.name)}") for e in contract.enumerations]
    return sitemap([entry(name, place) for name, place in sorted(names, key=lambda pair: pair[0].lower())])


def pages(root, contract, helps):
    """Name -> bytes of each file of the help file."""
    docs = root / "docs"
    links = Links(docs, contract)
    texts = {"style.css": STYLE}
    for name, lines in shared_pages(contract).items():
        source = docs / "reference" / name
        texts[links.page_name(source)] = page_html(lines[0][2:], text_of(lines), links.from_page(source))
    for class_ in contract.classes:
        link_of = links.from_page(docs / "reference" / f"{class_.name}.md")
        texts |= dict(class_pages(contract, class_, helps[class_.name], link_of))
    guide_titles = []
    for name in GUIDE:
        source = docs / "guide" / f"{name}.md"
        text = source.read_text(encoding="utf-8")
        guide_titles.append((links.page_name(source), text.split("\n")[0][2:]))
        texts[guide_titles[-1][0]] = page_html(guide_titles[-1][1], text, links.from_page(source))
    texts[f"{LIBRARY}.hhc"] = contents(contract, guide_titles)
    texts[f"{LIBRARY}.hhk"] = index(contract)
    files = {name: text.encode("cp1252", errors="xmlcharrefreplace") for name, text in texts.items()}
    return files | {picture.name: picture.read_bytes() for picture in sorted(docs.glob("*.png"))}
