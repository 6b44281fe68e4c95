# SPDX-License-Identifier: MIT
"""Reads the description of Apple's interfaces that the npm package @nativescript/macos-node-api carries.

Its library holds a section `__objc_metadata`: the texts and eight parts, whose places stand in the header, made
of little-endian records without padding. Every name is a 32-bit place among the texts. Bit 31 of a name or a
place, or bit 7 of a byte, says that one more of its kind follows.

    constants    name, what follows (none, integer, double, text), the value or, for none, the type
    enumerations name, then per case its name without the common prefix, and a 64-bit value
    signatures   result type, argument types
    functions    name, signature
    protocols    name, protocols, members
    classes      name, an unused word, protocols, superclass, members
    structs      name, size, then per field name, offset, type
    unions       the same without offsets

Types are spelled here as: void bool i8 u8 ... f64, id, Class, SEL, instancetype, NSString*, id<P,Q>, struct S,
char*, void* (any pointer without a type), T* (pointer to T), block(R;A,B), function(R;A,B), vector.
All enumerations are i64, BOOL is bool, generic arguments are gone.
"""

import hashlib
import struct
import tarfile
from dataclasses import dataclass, field
from pathlib import Path

PACKAGE = "@nativescript/macos-node-api"
VERSION = "0.4.0"
SHA256 = "fa49477022566ede234db5274ea3a2e1d0b63009db3b1b1c3bc9b8789ad554f6"

_MORE = 1 << 31
_NOWHERE = _MORE - 1
_SCALARS = {
    0: "i8", 1: "i32", 2: "i16", 3: "i64", 4: "i64", 5: "u8", 6: "u32", 7: "u16", 8: "u64", 9: "u64",
    10: "f32", 11: "f64", 12: "bool", 13: "void", 14: "char*", 15: "id", 18: "instancetype", 19: "NSString*",
    20: "NSMutableString*", 21: "Class", 22: "SEL", 26: "void*", 28: "bool", 30: "u128", 31: "f80",
    32: "vector", 33: "vector", 34: "complex", 35: "f16",
}  # fmt: skip
_PROTOCOL_OBJECT, _CLASS_OBJECT, _ARRAY, _STRUCT, _POINTER = 16, 17, 23, 24, 25
_FUNCTION_POINTER, _BLOCK = 27, 29
_PROPERTY, _READONLY, _STATIC = 1, 2, 8


@dataclass(frozen=True)
class Property:
    type: str
    getter: str
    setter: str | None


@dataclass
class Interface:
    """A class or a protocol. The keys begin with "+" for the class's own members and "-" for its objects'."""

    superclass: str | None = None
    protocols: list[str] = field(default_factory=list)
    methods: dict[str, str] = field(default_factory=dict)
    properties: dict[str, Property] = field(default_factory=dict)


@dataclass
class Table:
    classes: dict[str, Interface] = field(default_factory=dict)
    protocols: dict[str, Interface] = field(default_factory=dict)
    enums: dict[str, dict[str, int]] = field(default_factory=dict)
    constants: dict[str, int | float] = field(default_factory=dict)
    variables: dict[str, str] = field(default_factory=dict)
    functions: dict[str, str] = field(default_factory=dict)
    structs: dict[str, list] = field(default_factory=dict)


def read_package(package: Path) -> Table:
    data = package.read_bytes()
    if hashlib.sha256(data).hexdigest() != SHA256:
        raise SystemExit(f"{package.name} is not {PACKAGE} {VERSION}")
    with tarfile.open(package) as files:
        library = next(m for m in files if m.name.endswith("/NativeScript") and ".framework/Versions" in m.name)
        return _Reader(_section(files.extractfile(library).read())).table()


def _section(library: bytes) -> bytes:
    """The content of `__objc_metadata` in a 64-bit Mach-O file."""
    place = 32
    for _ in range(struct.unpack_from("<I", library, 16)[0]):
        command, size = struct.unpack_from("<II", library, place)
        if command == 0x19 and library[place + 8 : place + 23] == b"__objc_metadata":
            length, start = struct.unpack_from("<QI", library, place + 72 + 40)
            return library[start : start + length]
        place += size
    raise SystemExit("the library holds no __objc_metadata")


class _Reader:
    def __init__(self, data: bytes):
        if data[:4] != b"NSMD":
            raise SystemExit("not the metadata that we know")
        self._data = data
        (self._constants, self._enums, self._signatures, self._functions, self._protocols, self._classes,
         self._structs, self._unions) = struct.unpack_from("<8I", data, 6)  # fmt: skip
        self._strings = 6 + 8 * 4
        self._at = 0

    def table(self) -> Table:
        table = Table()
        self._read_constants(table)
        self._read_enums(table)
        self._read_functions(table)
        self._read_interfaces(table)
        self._read_structs(table)
        return table

    def _byte(self) -> int:
        self._at += 1
        return self._data[self._at - 1]

    def _word(self) -> int:
        self._at += 4
        return struct.unpack_from("<I", self._data, self._at - 4)[0]

    def _number(self, form: str):
        size = struct.calcsize(form)
        self._at += size
        return struct.unpack_from(form, self._data, self._at - size)[0]

    def _name_at(self, place: int) -> str:
        start = self._strings + (place & ~_MORE)
        return self._data[start : self._data.index(b"\0", start)].decode()

    def _list(self, more) -> list[int]:
        places = []
        while more:
            more = self._word()
            places.append(more & ~_MORE)
            more &= _MORE
        return [place for place in places if place != _NOWHERE]

    def _type(self) -> tuple[str, bool]:
        """The type that stands here, and whether one more follows it."""
        kind = self._byte()
        return self._type_of(kind & 0x3F), bool(kind & 0x80)

    def _type_of(self, kind: int) -> str:
        if kind in _SCALARS:
            return _SCALARS[kind]
        if kind == _PROTOCOL_OBJECT:
            names = [self._name_at(self._word_at(self._protocols + place)) for place in self._list(True)]
            return f"id<{','.join(sorted(names))}>"
        if kind == _CLASS_OBJECT:
            place = self._word()
            self._list(place & _MORE)  # protocols that the class promises besides
            return self._name_at(self._word_at(self._classes + (place & ~_MORE))) + "*"
        if kind == _STRUCT:
            place = self._word()
            if place & ~_MORE == _NOWHERE:
                return "struct"
            start = self._unions if place & _MORE else self._structs
            return "struct " + self._name_at(self._word_at(start + (place & ~_MORE)))
        if kind == _POINTER:
            return self._type()[0] + "*"
        if kind == _FUNCTION_POINTER:
            return f"function({self._signature(self._word())})"
        if kind == _BLOCK:
            return f"block({self._signature(self._word())})"
        if kind == _ARRAY:
            count = self._number("<H")
            return f"{self._type()[0]}[{count}]"
        raise SystemExit(f"unknown kind of type {kind} at {self._at:#x}")

    def _word_at(self, place: int) -> int:
        return struct.unpack_from("<I", self._data, place)[0]

    def _signature(self, place: int) -> str:
        back, self._at = self._at, self._signatures + (place & ~_MORE)
        variadic = self._data[self._at] & 0x40
        result, more = self._type()
        arguments = []
        while more:
            argument, more = self._type()
            arguments.append(argument)
        self._at = back
        return f"{result};{','.join(arguments + ['...'] * bool(variadic))}"

    def _read_constants(self, table: Table) -> None:
        self._at = self._constants
        while self._at < self._enums:
            name = self._name_at(self._word())
            match self._byte():
                case 0:
                    table.variables[name] = self._type()[0]
                case 1:
                    table.constants[name] = self._number("<q")
                case 2:
                    table.constants[name] = self._number("<d")
                case _:
                    self._word()
                    table.variables[name] = "NSString*"

    def _read_enums(self, table: Table) -> None:
        self._at = self._enums
        while self._at < self._signatures:
            cases = table.enums.setdefault(self._name_at(self._word()), {})
            more = True
            while more:
                more = self._word()
                cases[self._name_at(more)] = self._number("<q")
                more &= _MORE

    def _read_functions(self, table: Table) -> None:
        self._at = self._functions
        while self._at < self._protocols:
            name = self._name_at(self._word())
            table.functions[name] = self._signature(self._word())

    def _read_interfaces(self, table: Table) -> None:
        self._at = self._protocols
        while self._at < self._classes:
            name = self._word()
            protocol = Interface(protocols=self._protocol_names(name & _MORE))
            self._read_members(protocol)
            table.protocols[self._name_at(name)] = protocol
        while self._at < self._structs:
            name = self._word()
            self._word()
            of = Interface(protocols=self._protocol_names(name & _MORE))
            parent = self._word()
            if parent & ~_MORE != _NOWHERE:
                of.superclass = self._name_at(self._word_at(self._classes + (parent & ~_MORE)))
            if parent & _MORE:
                self._read_members(of)
            table.classes[self._name_at(name)] = of

    def _protocol_names(self, more: int) -> list[str]:
        return [self._name_at(self._word_at(self._protocols + place)) for place in self._list(more)]

    def _read_members(self, into: Interface) -> None:
        more = True
        while more and (flags := self._byte()):
            more = flags & 0x80
            level = "+" if flags & _STATIC else "-"
            name = self._name_at(self._word())
            if not flags & _PROPERTY:
                into.methods[level + name] = self._signature(self._word())
                continue
            getter = self._name_at(self._word())
            kind = self._signature(self._word()).split(";")[0]
            setter = None
            if not flags & _READONLY:
                setter = self._name_at(self._word())
                self._word()
            into.properties[level + name] = Property(kind, getter, setter)

    def _read_structs(self, table: Table) -> None:
        for start, end, has_offsets in (
            (self._structs, self._unions, True),
            (self._unions, len(self._data), False),
        ):
            self._at = start
            while self._at + 10 <= end:
                name, size = self._name_at(self._word()), self._number("<H")
                fields = []
                more = _MORE
                while more:
                    more = self._word()
                    if more == _NOWHERE:  # declared and not defined
                        break
                    offset = self._number("<H") if has_offsets else 0
                    fields.append([self._name_at(more), offset, self._type()[0]])
                    more &= _MORE
                table.structs[name] = fields
