"""The little of Markdown that the documents use, as HTML: headings, text, lists, tables, code, pictures, links."""

import html
import re

SPAN = re.compile(r"`([^`]+)`|!\[([^\]]*)\]\(([^)]+)\)|\[((?:[^\]`]|`[^`]*`)+)\]\(([^)]+)\)"
                  r"|\*\*([^*]+)\*\*|\*([^*]+)\*")


def slug(heading):
    """A heading's anchor, as the usual viewers of Markdown make it."""
    return re.sub(r"[^\w -]", "", heading.lower()).replace(" ", "-")


def inline(text, link_of):
    """`link_of`: the address of a link's target, None for one that is not among the pages."""
    parts, place = [], 0
    for match in SPAN.finditer(text):
        parts.append(html.escape(text[place : match.start()], quote=False))
        code, picture, source, label, target, strong, emphasis = match.groups()
        if code:
            parts.append(f"<code>{html.escape(code, quote=False)}</code>")
        elif source:
            parts.append(f'<img src="{link_of(source)}" alt="{html.escape(picture)}">')
        elif target:
            address, words = link_of(target), inline(label, link_of)
            parts.append(f'<a href="{html.escape(address)}">{words}</a>' if address else words)
        elif strong:
            parts.append(f"<b>{inline(strong, link_of)}</b>")
        else:
            parts.append(f"<i>{inline(emphasis, link_of)}</i>")
        place = match.end()
    return "".join(parts) + html.escape(text[place:], quote=False)


def cells(line):
    parts = re.split(r"(?<!\\)\|", line.strip().strip("|") if not line.strip().endswith("\\|") else line.strip()[1:])
    return [part.strip().replace("\\|", "|") for part in parts]


def table(lines, link_of):
    head, _, *rows = [cells(line) for line in lines]
    yield "<table>"
    if any(head):
        yield "<tr>" + "".join(f"<th>{inline(cell, link_of)}</th>" for cell in head) + "</tr>"
    for row in rows:
        yield "<tr>" + "".join(f"<td>{inline(cell, link_of)}</td>" for cell in row) + "</tr>"
    yield "</table>"


def items(lines, tag, link_of):
    """A list whose items may be folded over several lines."""
    texts = []
    for line in lines:
        if match := re.match(r"(?:-|\d+\.) (.*)", line):
            texts.append(match.group(1))
        else:
            texts[-1] += " " + line.strip()
    yield f"<{tag}>"
    yield from (f"<li>{inline(text, link_of)}</li>" for text in texts)
    yield f"</{tag}>"


def block(lines, link_of):
    first = lines[0]
    if match := re.match(r"(#+) (.*)", first):
        level = len(match.group(1))
        yield f'<h{level}><a name="{slug(match.group(2))}"></a>{inline(match.group(2), link_of)}</h{level}>'
        if lines[1:]:
            yield from block(lines[1:], link_of)
    elif first.startswith("<!--"):
        return
    elif first.startswith("|"):
        yield from table(lines, link_of)
    elif first.startswith("- "):
        yield from items(lines, "ul", link_of)
    elif re.match(r"\d+\. ", first):
        yield from items(lines, "ol", link_of)
    else:
        yield f"<p>{inline(' '.join(lines), link_of)}</p>"


def body(text, link_of):
    """The HTML of a document's text."""
    produced, waiting, code = [], [], None
    for line in [*text.split("\n"), ""]:
        if code is not None:
            if line == "```":
                produced.append("<pre>" + html.escape("\n".join(code), quote=False) + "</pre>")
                code = None
            else:
                code.append(line)
            continue
        if line.startswith("```") or not line:
            if waiting:
                produced += block(waiting, link_of)
                waiting = []
            code = [] if line else None
        else:
            waiting.append(line)
    return "\n".join(produced)
