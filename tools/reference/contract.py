"""The published contract as data: classes, members, records and enumerations, read from the IDL and its lists.

The type library is compiled from the same files, so what is read here is what a host finds there
(tests/contract proves the type library against tables of its own).
"""

import dataclasses
import re

LIBRARY = "VelmoSAV_DLL14"
# IDL type -> name that a reader of the reference finds; the automation type of that name.
TYPE_NAMES = {
    "BSTR": "String", "short": "Integer", "long": "Long", "double": "Double", "unsigned char": "Byte",
    "VARIANT_BOOL": "Boolean", "CURRENCY": "Currency", "VARIANT": "Variant", "IDispatch*": "Object",
    "SAFEARRAY(VARIANT)": "Variant()", "SAFEARRAY(LPDISPATCH)": "Object()",
}
CONSTANT_TYPES = {"Text": "String"}


@dataclasses.dataclass
class Parameter:
    name: str
    idl_type: str  # as the IDL has it, with the asterisk of a reference
    by_reference: bool
    optional: bool
    default: str | None

    @property
    def type_name(self):
        plain = self.idl_type[:-1] if self.by_reference else self.idl_type
        return TYPE_NAMES.get(plain, plain)

    @property
    def default_text(self):
        """The default as a reader writes it; None for an optional argument that may be missing."""
        if not self.optional or (self.default is None and self.type_name == "Variant"):
            return None
        if self.type_name == "Boolean":
            return "True" if self.default == "-1" else "False"
        if self.type_name == "String":
            return self.default or '""'
        return self.default or "0"


@dataclasses.dataclass
class Method:
    number: int
    name: str
    help: str
    parameters: list
    result: str | None  # IDL type of the result
    remains: str | None = None  # what a fault leaves: "" for nothing; None where nobody says

    @property
    def result_name(self):
        return TYPE_NAMES.get(self.result, self.result) if self.result else None


@dataclasses.dataclass
class Constant:
    number: int
    name: str
    type_name: str
    initial: str  # as a Basic host writes it; a number as the list has it
    help: str


@dataclasses.dataclass
class Class:
    name: str
    help: str
    page: int
    class_id: str
    interface_id: str
    constants: list
    methods: list


@dataclasses.dataclass
class Field:
    name: str
    type_name: str
    help: str


@dataclasses.dataclass
class Record:
    name: str
    help: str
    fields: list


@dataclasses.dataclass
class Enumeration:
    name: str
    help: str
    values: list  # (name, number, help)


@dataclasses.dataclass
class Fault:
    number: int
    text: str


@dataclasses.dataclass
class Contract:
    help: str
    pages: dict  # LIBRARY_PAGE, RECORDS_PAGE, ENUMERATIONS_PAGE
    classes: list
    records: list
    enumerations: list
    faults: list


def unquoted(text):
    return text[1:-1] if text.startswith('"') else text


def read_parameter(text):
    attributes, rest = re.fullmatch(r"\[(.*?)\]\s*(.*)", text.strip(), re.S).groups()
    idl_type, name = re.fullmatch(r"(.*?)\s*(\w+)", rest, re.S).groups()
    flags = [flag.strip() for flag in re.sub(r"defaultvalue\(.*?\)", "", attributes).split(",")]
    default = re.search(r"defaultvalue\((.*?)\)", attributes)
    by_reference = "out" in flags
    return "retval" in flags, Parameter(name, idl_type, by_reference, "optional" in flags,
                                        default.group(1) if default else None)


def read_method(match):
    number, help_text, name, listed = match.groups()
    parameters, result = [], None
    for text in re.split(r",\s*(?=\[)", listed.strip()) if listed.strip() else []:
        is_result, parameter = read_parameter(text)
        if is_result:
            result = parameter.idl_type[:-1]
        else:
            parameters.append(parameter)
    return Method(int(number), name, help_text, parameters, result)


METHOD = re.compile(r'\[id\((\d+)\), helpcontext\(PAGE\), helpstring\("(.*?)"\)\]\s*'
                    r"HRESULT (\w+)\((.*?)\);", re.S)
CONSTANT = re.compile(r'^CONSTANT\((\d+), (\w+), (\w+), (.*), "(.*)"\)$', re.M)
IDENTITY = re.compile(r'uuid\(([0-9A-F-]+)\), helpcontext\(PAGE\),\s*helpstring\("(.*?)"\)\]\s*(interface|coclass)')


def basic_value(kind, literal):
    """A constant's literal of C++ as a Basic host writes it."""
    if kind == "Boolean":
        return {"VARIANT_TRUE": "True", "VARIANT_FALSE": "False"}[literal]
    if kind != "Text":
        return literal
    escaped = re.findall(r"\\(.)", literal)
    if set(escaped) - set('\\"'):
        raise ValueError(f"{literal}: an escape that the reference cannot show")
    return '"' + re.sub(r"\\(.)", r"\1", unquoted(literal)).replace('"', '""') + '"'


def read_constants(path, published_names):
    if not path.exists():
        return []
    found = CONSTANT.findall(path.read_text(encoding="utf-8"))
    return [Constant(int(number), published_names.get(name, name), CONSTANT_TYPES.get(kind, kind),
                     basic_value(kind, value), help_text)
            for number, kind, name, value, help_text in found]


def read_class(folder, name, published_names):
    text = (folder / "classes" / f"{name}.idl").read_text(encoding="utf-8")
    identities = {kind: (identifier, help_text) for identifier, help_text, kind in IDENTITY.findall(text)}
    page = int(re.match(r"#define PAGE (\d+)\n", text).group(1))
    methods = [read_method(match) for match in METHOD.finditer(text)]
    if len(methods) != text.count("HRESULT "):
        raise ValueError(f"{name}.idl: a method is not written as the others are")
    constants = read_constants(folder / "constants" / f"{name}.def", published_names)
    return Class(name, identities["coclass"][1], page, identities["coclass"][0], identities["interface"][0],
                 constants, methods)


def read_accented_names(folder):
    """The published names of the members that the IDL spells without their accents."""
    listed = re.search(r"set\(ACCENTED_NAMES(.*?)\)", (folder / "CMakeLists.txt").read_text(encoding="utf-8"), re.S)
    return dict(pair.split("=") for pair in listed.group(1).split())


FIELDS = {
    "FIELD": lambda a: (a[1], TYPE_NAMES.get(a[0], CONSTANT_TYPES.get(a[0], a[0])), a[2]),
    "ENUMERATION_FIELD": lambda a: (a[1], a[0], a[2]),
    "RECORD_FIELD": lambda a: (a[1], a[0], a[2]),
    "RECORD_TABLE_FIELD": lambda a: (a[1], f"{a[0]}(0 to {int(a[2]) - 1})", a[3]),
    "ARRAY_FIELD": lambda a: (a[1], CONSTANT_TYPES.get(a[0], a[0]) + "()", a[2]),
    "RECORD_ARRAY_FIELD": lambda a: (a[1], a[0] + "()", a[2]),
}


def arguments(text):
    return [unquoted(part.strip()) for part in re.findall(r'\s*("[^"]*"|[^,"]+)', text)]


def read_records(folder):
    records = []
    order = re.findall(r'^#include "(records/\w+\.def)"', (folder / "records.def").read_text(encoding="utf-8"), re.M)
    for path in order:
        for kind, listed in re.findall(r"^\s*([A-Z_]+)\((.*)\)$", (folder / path).read_text(encoding="utf-8"), re.M):
            values = arguments(listed)
            if kind == "RECORD_BEGIN":
                records.append(Record(values[0], values[2], []))
            elif kind in FIELDS:
                records[-1].fields.append(Field(*FIELDS[kind](values)))
            elif kind != "RECORD_END":
                raise ValueError(f"{path}: {kind} is not known here")
    return records


def read_enumerations(folder):
    enumerations = []
    text = (folder / "enumerations.def").read_text(encoding="utf-8")
    for kind, listed in re.findall(r"^\s*([A-Z_]+)\((.*)\)$", text, re.M):
        values = arguments(listed)
        if kind == "ENUMERATION_BEGIN":
            enumerations.append(Enumeration(values[0], values[2], []))
        elif kind in ("ENUMERATOR", "LAST_ENUMERATOR"):
            enumerations[-1].values.append((values[1], values[2], values[3]))
    return enumerations


def read_faults(root):
    text = (root / "src" / "automation" / "faults.def").read_text(encoding="utf-8")
    return [Fault(int(number), words) for number, words in re.findall(r'^FAULT\((\d+), \w+, "(.*)"\)$', text, re.M)]


def read_remains(root):
    """(class, method) -> what a fault leaves of the steps done before it; empty when everything is as it was."""
    text = (root / "tests" / "atomicity" / "methods.def").read_text(encoding="utf-8")
    unchanged = re.findall(r"^UNCHANGED\((\w+), (\w+)\)$", text, re.M)
    steps = re.findall(r'^STEPS\((\w+), (\w+), "(.*)"\)$', text, re.M)
    return {names: "" for names in unchanged} | {(class_, method): left for class_, method, left in steps}


def read_contract(root):
    folder = root / "interface"
    library = (folder / f"{LIBRARY}.idl").read_text(encoding="utf-8")
    names = re.findall(r"^AUTOMATION_CLASS\((\w+)\)$", (folder / "classes.def").read_text(encoding="utf-8"), re.M)
    accented = read_accented_names(folder)
    classes = [read_class(folder, name, accented) for name in names]
    remains = read_remains(root)
    for class_ in classes:
        for method in class_.methods:
            method.remains = remains.get((class_.name, method.name))
    return Contract(
        re.search(r'helpcontext\(LIBRARY_PAGE\), helpstring\("(.*?)"\)', library).group(1),
        {name: int(number) for name, number in re.findall(r"^#define (\w+_PAGE) (\d+)$", library, re.M)},
        classes, read_records(folder), read_enumerations(folder), read_faults(root))
