"""The pages of docs/reference: text by text, from the contract and the help entries."""

from .contract import LIBRARY
from .help_entries import BY_HAND, variable_of

MOST_COLUMNS = 100
NOTICE = "<!-- Written by ./sav reference from interface/: edit there. -->"


def row(*cells):
    return "| " + " | ".join(cell.replace("|", "\\|") for cell in cells) + " |"


def table(*rows):
    return [row(*rows[0]), "| " + " | ".join("---" for _ in rows[0]) + " |", *(row(*cells) for cells in rows[1:])]


def wrapped(head, parts, tail):
    """A signature on one line, or folded between its parameters."""
    line = head + ", ".join(parts) + tail
    if len(line) <= MOST_COLUMNS:
        return [line]
    lines, current = [], head
    for i, part in enumerate(parts):
        piece = part + (", " if i + 1 < len(parts) else tail)
        if len(current) + len(piece.rstrip()) > MOST_COLUMNS:
            lines.append(current.rstrip())
            current = "    "
        current += piece
    return [*lines, current]


def basic_parameter(parameter):
    text = ("" if parameter.by_reference else "ByVal ") + f"{parameter.name} As {parameter.type_name}"
    if not parameter.optional:
        return text
    default = parameter.default_text
    return f"[{text}]" if default is None else f"[{text} = {default}]"


def basic_signature(method):
    parts = [basic_parameter(parameter) for parameter in method.parameters]
    if method.result:
        return wrapped(f"Function {method.name}(", parts, f") As {method.result_name}")
    return wrapped(f"Sub {method.name}(", parts, ")")


def cpp_type(idl_type):
    if idl_type.startswith("SAFEARRAY("):
        return "SAFEARRAY*" + idl_type[idl_type.index(")") + 1:]
    return {"CURRENCY": "CY"}.get(idl_type, idl_type)


def cpp_signature(method):
    parts = [f"{cpp_type(parameter.idl_type)} {parameter.name}" for parameter in method.parameters]
    if method.result:
        parts.append(f"{cpp_type(method.result)}* Resultat")
    return wrapped(f"HRESULT {method.name}(", parts, ");")


def type_link(type_name, contract):
    """The name of a type, leading to its own part where it has one."""
    plain = type_name.split("(")[0]
    if any(plain == record.name for record in contract.records):
        return f"[{type_name}](records.md#{plain.lower()})"
    if any(plain == enumeration.name for enumeration in contract.enumerations):
        return f"[{type_name}](enumerations.md#{plain.lower()})"
    return type_name


def parameter_rows(contract, method, entry):
    yield "Parameter", "Type", "Passed", "Default", "Meaning"
    for parameter in method.parameters:
        default = parameter.default_text
        if not parameter.optional:
            default = "required"
        elif default is None:
            default = "may be left out"
        yield (f"`{parameter.name}`", type_link(parameter.type_name, contract),
               "by reference" if parameter.by_reference else "by value", default, entry.parameters[parameter.name])
    if method.result:
        yield "result", type_link(method.result_name, contract), "", "", entry.result


def fault_lines(method, entry, faults):
    texts = {str(fault.number): fault.text for fault in faults}
    if not entry.faults:
        return ["No run-time fault of its own."]
    lines = []
    for number, when in entry.faults:
        name = f"**{number}** {texts[number]}" if number in texts else "the called object's own failure is passed on"
        lines.append(f"- {name}: {when}")
    left = "After a fault everything is as it was."
    if method.remains:
        left = f"What remains after a fault: {method.remains}."
    return [*lines, "", left]


def example_lines(class_, example):
    language = example.language.removesuffix(BY_HAND)
    yield f"```{language}"
    if language == "vbs":
        variable = variable_of(class_.name)
        yield f'Dim {variable}: Set {variable} = CreateObject("{LIBRARY}.{class_.name}")'
    yield from example.lines
    yield "```"


def trimmed(lines):
    lines = list(lines)
    while lines and not lines[0]:
        lines.pop(0)
    while lines and not lines[-1]:
        lines.pop()
    return lines


def method_lines(contract, class_, method, entry):
    lines = [f"## {method.name}", "", f"*{method.help}*", "", "```basic", *basic_signature(method), "```", "",
             "```cpp", *cpp_signature(method), "```", "", *trimmed(entry.text), ""]
    rows = list(parameter_rows(contract, method, entry))
    if len(rows) > 1:
        lines += [*table(*rows), ""]
    lines += ["**Faults**", "", *fault_lines(method, entry, contract.faults), ""]
    for example in entry.examples:
        lines += [*example_lines(class_, example), ""]
    return lines


def class_head(class_, help_):
    lines = [f"# {class_.name}", NOTICE, "", f"*{class_.help}*", "", *trimmed(help_.text), "",
             *table(("ProgID", "Class", "Interface"),
                    (f"`{LIBRARY}.{class_.name}`", f"`{{{class_.class_id}}}`",
                     f"`_{class_.name}` `{{{class_.interface_id}}}`")), ""]
    if class_.methods:
        lines += [*table(("No.", "Method", ""),
                         *((str(m.number), f"[{m.name}](#{m.name.lower()})", m.help) for m in class_.methods)), ""]
    return lines


def constants_lines(class_):
    return ["## Constants", "",
            "Properties, read and written; a value that a host assigns holds for that instance.", "",
            *table(("No.", "Name", "Type", "Value", ""),
                   *((str(c.number), f"`{c.name}`", c.type_name, f"`{c.initial}`", c.help)
                     for c in class_.constants)), ""]


def class_page(contract, class_, help_):
    lines = class_head(class_, help_)
    for method in class_.methods:
        lines += method_lines(contract, class_, method, help_.entries[method.name])
    return lines + (constants_lines(class_) if class_.constants else [])


def records_page(contract):
    lines = ["# Records", NOTICE, "",
             "The host owns every record; [Records and arrays](../guide/records.md) says who frees what. Fields are",
             "laid out in this order on 4 bytes (an Integer or a Boolean on 2). `Name()` is a dynamic array, a",
             "SAFEARRAY that is null until it is dimensioned; its elements count from 0.", "",
             *table(("Record", ""), *((f"[{r.name}](#{r.name.lower()})", r.help) for r in contract.records)), ""]
    for record in contract.records:
        lines += [f"## {record.name}", "", f"*{record.help}*", ""]
        rows = [("Field", "Type", "")]
        for field in record.fields:
            rows.append((f"`{field.name}`", type_link(field.type_name, contract), field.help))
        lines += [*table(*rows), ""]
    return lines


def enumerations_page(contract):
    lines = ["# Enumerations", NOTICE, "",
             "32-bit values. In C++ an enumerator carries its enumeration's name (`IndMenuPop_Liste`): two",
             "enumerations may use one name.", "",
             *table(("Enumeration", ""), *((f"[{e.name}](#{e.name.lower()})", e.help) for e in contract.enumerations)),
             ""]
    for enumeration in contract.enumerations:
        lines += [f"## {enumeration.name}", "", f"*{enumeration.help}*", "",
                  *table(("Name", "Value", ""),
                         *((f"`{name}`", number, text) for name, number, text in enumeration.values)), ""]
    return lines


def faults_page(contract):
    return ["# Fault numbers", NOTICE, "",
            "The numbers that the library raises. [Faults](../guide/faults.md) says how a host meets them.", "",
            *table(("Number", "HRESULT", "Text"),
                   *((str(f.number), f"`0x{0x800A0000 + f.number:08X}`", f.text) for f in contract.faults)), ""]


# What the index says before its table of classes.
INDEX_TEXT = f"""\
The type library `{LIBRARY}`: its classes, created by ProgID `{LIBRARY}.<Class>`, and the types that
cross their interfaces. Each page gives its members' signatures twice: as a Basic host declares them, and
as the vtable has them. In C++ examples the objects are created already, and the helpers (`Text`, `set`,
`dimension`, `element`) are those of [sav.h](../../examples/premier_appel/sav.h).

What holds for every member:

- A date is a text. `dd/mm/yy`, `dd/mm/yyyy` and `dd/mm/yyyy hh:nn` are the forms that come back, as said
  member by member; what goes in is read by the user's regional settings
  ([Regional settings](../guide/regional-settings.md)).
- An amount is a Double in the currency's unit, a rate is in percent (20 is 20 %). HT is before tax, TTC
  tax included.
- A count is the number of elements, and -1 for an array that was never dimensioned.
- A record, a required argument by reference or a result at a null address fails with `E_POINTER`; memory
  that runs out with `E_OUTOFMEMORY`. Faults are run-time numbers: a host sees `0x800A0000` + number, the
  source `VelmoSAV_DLL14.<Class>` and a French text ([Faults](../guide/faults.md)).
- A late-bound argument of another type is converted as the run-time converts it (13 when it cannot be, 6
  when it is out of range).
"""


def index_page(contract):
    lines = ["# Reference", NOTICE, "",
             f"*{contract.help}*", "",
             *INDEX_TEXT.split("\n"),
             *table(("Class", "", "Methods", "Constants"),
                    *((f"[{c.name}]({c.name}.md)", c.help, str(len(c.methods)), str(len(c.constants)))
                      for c in contract.classes)), "",
             "- [Records](records.md)", "- [Enumerations](enumerations.md)", "- [Fault numbers](fault-numbers.md)", ""]
    return lines


def shared_pages(contract):
    return {"README.md": index_page(contract), "records.md": records_page(contract),
            "enumerations.md": enumerations_page(contract), "fault-numbers.md": faults_page(contract)}


def text_of(lines):
    return "\n".join(trimmed(lines)) + "\n"


def all_pages(contract, helps):
    """File name -> text of each page."""
    pages = shared_pages(contract)
    for class_ in contract.classes:
        pages[f"{class_.name}.md"] = class_page(contract, class_, helps[class_.name])
    return {name: text_of(lines) for name, lines in pages.items()}
