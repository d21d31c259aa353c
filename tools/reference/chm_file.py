"""Writes a compiled help file (ITSF container, version 3): files stored as they are, a sorted directory, and the few
internal streams by which a viewer finds the contents, the index and the pages of help contexts.

Nothing in it depends on time or place: the same files make the same bytes.
"""

import struct
import uuid

CHUNK = 0x1000
QUICK_REFERENCE_DENSITY = 2  # every (1 + 2 ** 2)th entry of a chunk is listed at its end
FRENCH = 0x40C
# Names of the container's parts, as every writer of the format has them.
CONTAINER = uuid.UUID("7C01FD10-7BAA-11D0-9E0C-00A0C922E6EC"), uuid.UUID("7C01FD11-7BAA-11D0-9E0C-00A0C922E6EC")
DIRECTORY = uuid.UUID("5D02926A-212E-11D0-9DF9-00A0C922E6EC")
NONE = 0xFFFFFFFF


def packed(number):
    """A number in groups of seven bits, the highest first; all but the last are marked."""
    groups = [number & 0x7F]
    while number := number >> 7:
        groups.insert(0, number & 0x7F | 0x80)
    return bytes(groups)


def named(name, *numbers):
    text = name.encode("ascii")
    return packed(len(text)) + text + b"".join(map(packed, numbers))


def chunks_of(entries, head_size):
    """Entries (name, bytes) gathered into lists that fit a chunk with its references."""
    step = 1 + (1 << QUICK_REFERENCE_DENSITY)
    current, size = [], 0
    for name, data in entries:
        references = 2 + 2 * (len(current) // step)
        if current and head_size + size + len(data) + references > CHUNK:
            yield current
            current, size = [], 0
        current.append((name, data))
        size += len(data)
    yield current


def chunk(mark, head, entries):
    """`head`: what stands between the size of the free part and the entries."""
    step = 1 + (1 << QUICK_REFERENCE_DENSITY)
    offsets, place = [], 0
    for number, (_, data) in enumerate(entries):
        if number and number % step == 0:
            offsets.append(place)
        place += len(data)
    tail = b"".join(struct.pack("<H", offset) for offset in reversed(offsets)) + struct.pack("<H", len(entries))
    body = b"".join(data for _, data in entries)
    free = CHUNK - len(mark) - 4 - len(head) - len(body)
    return mark + struct.pack("<I", free) + head + body + bytes(free - len(tail)) + tail


def directory(entries):
    """The directory of (name, bytes of its entry), sorted: listing chunks, and one index chunk above several."""
    lists = list(chunks_of(entries, 20))
    made = []
    for number, listed in enumerate(lists):
        before = number - 1 if number else NONE
        after = number + 1 if number + 1 < len(lists) else NONE
        made.append(chunk(b"PMGL", struct.pack("<III", 0, before, after), listed))
    depth, root = 1, NONE
    if len(lists) > 1:
        index = [(listed[0][0], named(listed[0][0], number)) for number, listed in enumerate(lists)]
        if len(list(chunks_of(index, 8))) > 1:
            raise ValueError("too many files for one index of the help file")
        depth, root = 2, len(made)
        made.append(chunk(b"PMGI", b"", index))
    head = struct.pack("<4s11I", b"ITSP", 1, 0x54, 0x0A, CHUNK, QUICK_REFERENCE_DENSITY, depth, root, 0,
                       len(lists) - 1, NONE, len(made))
    head += struct.pack("<I", 0x409) + DIRECTORY.bytes_le + struct.pack("<4I", 0x54, NONE, NONE, NONE)
    return head + b"".join(made)


def text_entry(code, text):
    data = text.encode("cp1252") + b"\0"
    return struct.pack("<HH", code, len(data)) + data


def system_stream(title, first_page, contents, index, stem):
    """What a viewer reads first."""
    settings = struct.pack("<5I2I2I", FRENCH, 0, 0, 0, 0, 0, 0, 0, 0)
    return (struct.pack("<I", 3) + struct.pack("<HHI", 10, 4, 0) + text_entry(9, "HHA Version 4.74.8702")
            + struct.pack("<HH", 4, len(settings)) + settings + text_entry(2, first_page) + text_entry(3, title)
            + text_entry(0, contents) + text_entry(1, index) + text_entry(6, stem))


def context_streams(contexts):
    """The table of contexts and the texts that it refers to; no text crosses a block of 4096 bytes."""
    texts, table = bytearray(b"\0"), bytearray()
    for number, place in sorted(contexts.items()):
        text = place.encode("ascii") + b"\0"
        if len(texts) % CHUNK + len(text) > CHUNK:
            texts += bytes(CHUNK - len(texts) % CHUNK)
        table += struct.pack("<II", number, len(texts))
        texts += text
    return struct.pack("<I", len(table)) + bytes(table), bytes(texts)


def name_list():
    """The container's one section, the uncompressed one."""
    name = "Uncompressed"
    data = struct.pack("<HH", 1, len(name)) + name.encode("utf-16-le") + b"\0\0"
    return struct.pack("<H", len(data) // 2 + 1) + data


def help_file(stem, first_page, files, contexts):
    """The bytes of <stem>.chm. `files`: name -> bytes, with <stem>.hhc and <stem>.hhk; `contexts`: number -> page."""
    table, texts = context_streams(contexts)
    streams = {f"/{name}": data for name, data in files.items()}
    streams |= {"/#SYSTEM": system_stream(stem, first_page, f"{stem}.hhc", f"{stem}.hhk", stem.lower()),
                "/#IVB": table, "/#STRINGS": texts, "::DataSpace/NameList": name_list()}
    content, entries = bytearray(), [("/", named("/", 0, 0, 0))]
    for name, data in sorted(streams.items(), key=lambda pair: pair[0].lower()):
        entries.append((name, named(name, 0, len(content), len(data))))
        content += data
    listed = directory(entries)
    start = 0x60 + 0x18
    whole = start + len(listed) + len(content)
    head = struct.pack("<4s5I", b"ITSF", 3, 0x60, 1, 0, FRENCH) + b"".join(part.bytes_le for part in CONTAINER)
    head += struct.pack("<5Q", 0x60, 0x18, start, len(listed), start + len(listed))
    return head + struct.pack("<IIQII", 0x1FE, 0, whole, 0, 0) + listed + bytes(content)
