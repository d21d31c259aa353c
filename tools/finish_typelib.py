#!/usr/bin/env python3
"""Finish the type library that the IDL compiler wrote (MSFT format).

Four things the compiler cannot do:
  - lay records out on 4 bytes (it aligns a Double on 8);
  - carry an identifier with an accent: the IDL holds an ASCII stand-in of the same length;
  - compute the help context of a member, that of its class plus its dispatch identifier;
  - write the same file twice: it stamps the time of day into its comment and its custom data.

Usage: finish_typelib.py INPUT OUTPUT [STAND_IN=NAME ...]
"""

import struct
import sys
import uuid

PACKING = 4
(SEG_TYPEINFO, _, _, _, _, SEG_GUID, SEG_NAMEHASH, SEG_NAME, _, SEG_TYPEDESC, SEG_ARRAYDESC, SEG_CUSTDATA,
 SEG_CUSTDATA_LIST) = range(13)
TYPEINFO_SIZE = 0x64
TKIND_ENUM, TKIND_RECORD, TKIND_INTERFACE, TKIND_DISPATCH, TKIND_MASK = 0, 1, 3, 4, 0xF
ALIGNMENT_MASK = 0xF800
VT_PTR, VT_SAFEARRAY, VT_CARRAY, VT_USERDEFINED = 26, 27, 28, 29
# Variant type -> size in a record: I2, I4, R8, Currency, BSTR, IDispatch, Boolean, VARIANT, UI1, pointer, array.
SIZES = {2: 2, 3: 4, 5: 8, 6: 8, 8: 4, 9: 4, 11: 2, 12: 16, 17: 1, VT_PTR: 4, VT_SAFEARRAY: 4}
# How the platform's name hash folds a letter: to its upper-case code, but for these.
HASH_FOLD = {"é": ord("E"), "W": ord("V"), "Y": ord("U")}
COMMENT_MARK = b"Created by WIDL version "
# Custom data in which a compiler leaves the time.
TIMESTAMP = uuid.UUID("DE77BA63-517C-11D1-A2DA-0000F8773CE9").bytes_le


class TypeLibrary:
    def __init__(self, data):
        self.data = bytearray(data)
        if self.data[:4] != b"MSFT":
            sys.exit("finish_typelib: not a type library in MSFT format")
        flags, count = self.dword(0x14), self.dword(0x20)
        directory = 0x54 + (4 if flags & 0x100 else 0) + 4 * count
        self.segments = [struct.unpack_from("<ii", self.data, directory + 16 * i) for i in range(15)]
        self.count = count

    def dword(self, offset):
        return struct.unpack_from("<i", self.data, offset)[0]

    def put(self, offset, value):
        struct.pack_into("<I", self.data, offset, value & 0xFFFFFFFF)

    def start(self, segment):
        return self.segments[segment][0]

    def typeinfo(self, index):
        return self.start(SEG_TYPEINFO) + TYPEINFO_SIZE * index

    def type_name(self, info):
        entry = self.start(SEG_NAME) + self.dword(info + 0x34)
        length = self.data[entry + 8]
        return self.data[entry + 12 : entry + 12 + length].decode("cp1252")

    # --- record layout -------------------------------------------------------------------------------------

    def size_and_alignment(self, datatype):
        """Size and alignment of a field; the records it embeds must have been laid out before."""
        if datatype < 0:
            return self.plain(datatype & 0x7FFF)
        desc = self.start(SEG_TYPEDESC) + datatype
        vartype, reference = self.dword(desc) & 0x7FFF, self.dword(desc + 4)
        if vartype == VT_USERDEFINED:
            info = self.start(SEG_TYPEINFO) + (reference & ~3)
            kind = self.dword(info) & TKIND_MASK
            if kind == TKIND_ENUM:
                return 4, 4
            if kind == TKIND_RECORD and info in self.laid_out:
                return self.laid_out[info]
            sys.exit(f"finish_typelib: {self.type_name(info)} is used before it is complete")
        if vartype == VT_CARRAY:
            array = self.start(SEG_ARRAYDESC) + reference
            element, dimensions = self.dword(array), self.dword(array + 4) & 0xFFFF
            size, alignment = self.size_and_alignment(element)
            for i in range(dimensions):
                size *= self.dword(array + 8 + 8 * i)
            return size, alignment
        return self.plain(vartype)

    @staticmethod
    def plain(vartype):
        if vartype not in SIZES:
            sys.exit(f"finish_typelib: no size known for variant type {vartype}")
        size = SIZES[vartype]
        return size, min(size, PACKING)

    def pack_records(self):
        self.laid_out = {}
        for index in range(self.count):
            info = self.typeinfo(index)
            if self.dword(info) & TKIND_MASK == TKIND_RECORD:
                self.laid_out[info] = self.pack_record(info)

    def pack_record(self, info):
        field_count = (self.dword(info + 0x18) >> 16) & 0xFFFF
        record = self.dword(info + 4) + 4
        offset, widest = 0, 1
        for _ in range(field_count):
            size, alignment = self.size_and_alignment(self.dword(record + 4))
            offset = -(-offset // alignment) * alignment
            self.put(record + 16, offset)
            offset += size
            widest = max(widest, alignment)
            record += self.dword(record) & 0xFFFF
        size = -(-offset // widest) * widest
        self.put(info, (self.dword(info) & ~ALIGNMENT_MASK) | (widest << 11))
        self.put(info + 0x50, size)
        return size, widest

    # --- help contexts ---------------------------------------------------------------------------------------

    def number_members(self):
        """A member's context stands as its class's: its dispatch identifier is added."""
        for index in range(self.count):
            info = self.typeinfo(index)
            function_count = self.dword(info + 0x18) & 0xFFFF
            if self.dword(info) & TKIND_MASK not in (TKIND_INTERFACE, TKIND_DISPATCH) or not function_count:
                continue
            page, members = self.dword(info + 0x44), self.dword(info + 4)
            identifiers = members + 4 + self.dword(members)
            record = members + 4
            for position in range(function_count):
                if self.dword(record + 0x18) != page:
                    sys.exit(f"finish_typelib: {self.type_name(info)}: a member without helpcontext(PAGE)")
                self.put(record + 0x18, page + self.dword(identifiers + 4 * position))
                record += self.dword(record) & 0xFFFF

    # --- names ---------------------------------------------------------------------------------------------

    @staticmethod
    def name_hash(name):
        value = 0x0DEADBEE
        for letter in name:
            upper = letter if letter in HASH_FOLD else letter.upper()
            code = HASH_FOLD.get(upper, ord(upper))
            value = (value * 37 + code) & 0xFFFFFFFF
        return value % 65599

    def names(self):
        """(offset in the segment, name) of each entry, in order."""
        start, length = self.segments[SEG_NAME]
        offset = 0
        while offset < length:
            size = self.data[start + offset + 8]
            text = self.data[start + offset + 12 : start + offset + 12 + size].decode("cp1252")
            yield offset, text
            offset += 12 + -(-size // 4) * 4

    def rename(self, stand_in, name):
        start = self.start(SEG_NAME)
        found = [offset for offset, text in self.names() if text == stand_in]
        if len(found) != 1 or len(stand_in) != len(name):
            sys.exit(f"finish_typelib: {stand_in}: expected once in the name table, found {len(found)} times")
        entry = start + found[0]
        self.data[entry + 12 : entry + 12 + len(name)] = name.encode("cp1252")
        flags = self.dword(entry + 8) & 0xFFFF
        self.put(entry + 8, (self.name_hash(name) & 0xFFFF) << 16 | flags)

    def rebuild_name_chains(self):
        """Each bucket of the hash table heads a chain of entries, the latest first."""
        table, length = self.segments[SEG_NAMEHASH]
        start = self.start(SEG_NAME)
        buckets = length // 4
        for bucket in range(buckets):
            self.put(table + 4 * bucket, -1)
        for offset, text in self.names():
            stored = (self.dword(start + offset + 8) >> 16) & 0xFFFF
            if stored != self.name_hash(text) & 0xFFFF:
                sys.exit(f"finish_typelib: the hash of {text} is not the one the compiler computed")
            bucket = table + 4 * (stored & (buckets - 1))
            self.put(start + offset + 4, self.dword(bucket))
            self.put(bucket, offset)

    # --- reproducible output -------------------------------------------------------------------------------

    def drop_date(self):
        at = self.data.find(COMMENT_MARK)
        if at < 0:
            sys.exit("finish_typelib: the compiler's dated comment was not found")
        stamp = self.data.find(b" at ", at) + 4
        end = stamp + len("Sat Jan 01 00:00:00 2000")
        self.data[stamp:end] = b"a fixed date".ljust(end - stamp)
        start, length = self.segments[SEG_CUSTDATA_LIST]
        for item in range(start, start + length, 12):
            identifier = self.start(SEG_GUID) + self.dword(item)
            if self.data[identifier : identifier + 16] == TIMESTAMP:
                self.put(self.start(SEG_CUSTDATA) + self.dword(item + 4) + 2, 0)


def main(arguments):
    source, target, *renames = arguments
    with open(source, "rb") as file:
        library = TypeLibrary(file.read())
    library.pack_records()
    library.number_members()
    for rename in renames:
        library.rename(*rename.split("="))
    library.rebuild_name_chains()
    library.drop_date()
    with open(target, "wb") as file:
        file.write(library.data)


if __name__ == "__main__":
    main(sys.argv[1:])
