# SPDX-License-Identifier: MIT
"""What our headers in tools/macos/frameworks declare of Apple's interfaces, as clang reads them, in the words of
TypeScript."""

import json
import re
import subprocess
from dataclasses import dataclass, field
from pathlib import Path

FRAMEWORKS = Path(__file__).resolve().parent / "frameworks"

_QUALIFIERS = re.compile(r"\b(_N\w+|__strong|__autoreleasing|__unsafe_unretained|const|struct)\b")
_NUMBERS = {"unsigned", "char", "short", "int", "long", "float", "double"}
_WORDS = {
    "BOOL": "boolean", "SEL": "string", "Class": "id", "CFTypeRef": "id",
    "instancetype": "this", "NSString *": "string", "char *": "string",
}  # fmt: skip


@dataclass
class Type:
    """A class, a protocol or a struct: the signatures of its methods, and types of its properties or fields."""

    parents: list[str] = field(default_factory=list)
    members: dict[str, str] = field(default_factory=dict)
    settable: set[str] = field(default_factory=set)


def method_name(selector: str) -> str:
    """The name that JavaScript has for a method: without colons, every further part with a capital."""
    first, *others = selector.rstrip(":").split(":")
    return first + "".join(part[0].upper() + part[1:] for part in others)


class Declarations:
    def __init__(self):
        self.types: dict[str, Type] = {}
        self.constants: dict[str, tuple[str | None, int]] = {}  # enumeration, value
        self.variables: dict[str, str] = {}
        self.functions: dict[str, str] = {}
        self.classes: set[str] = set()
        self._aliases: dict[str, str] = {}
        self._enums: set[str] = set()
        self.headers = {header.stem: header.read_text() for header in FRAMEWORKS.glob("*/Headers/*.h")}
        imports = "".join(f"#import <{name}/{name}.h>\n" for name in self.headers)
        command = ["clang++-19", "-x", "objective-c++", "-std=c++23", "-fobjc-arc", "-target", "arm64-apple-macos13",
                   "-iframework", FRAMEWORKS, "-fsyntax-only", "-Xclang", "-ast-dump=json", "-"]  # fmt: skip
        read = subprocess.run(command, input=imports.encode(), stdout=subprocess.PIPE, check=True).stdout
        for node in json.loads(read)["inner"]:
            for each in node["inner"] if node["kind"] == "LinkageSpecDecl" else [node]:
                take = getattr(self, "_" + each["kind"], None)
                if take and "isImplicit" not in each:
                    take(each, each.get("inner", []))

    def of_framework(self, framework: str, names) -> list[str]:
        """Those classes, variables or functions that its header declares."""
        text = self.headers[framework]
        return [name for name in names if re.search(rf"@interface {name}\b|[ *]{name}( =|[;(])", text)]

    def _TypedefDecl(self, node, _inner) -> None:
        self._aliases[node["name"]] = node["type"]["qualType"]

    def _EnumDecl(self, node, inner) -> None:
        # Options are, in C++, the plain integer that was declared last, beside an enumeration without a name.
        is_options = any(each["kind"] == "FlagEnumAttr" for each in inner)
        name = next(reversed(self._aliases)) if is_options else node.get("name")
        self._enums.add(name)
        value = -1
        for case in inner:
            if case["kind"] == "EnumConstantDecl":
                value = _value(case, value + 1)
                self.constants[case["name"]] = name, value

    def _CXXRecordDecl(self, node, inner) -> None:
        fields = {each["name"]: self._spell(each["type"]["qualType"]) for each in inner if each["kind"] == "FieldDecl"}
        if fields and "name" in node:
            self.types[node["name"]] = Type(members=fields)

    def _ObjCInterfaceDecl(self, node, inner) -> None:
        self.classes.add(node["name"])
        self._ObjCProtocolDecl(node, inner)

    def _ObjCProtocolDecl(self, node, inner) -> None:
        into = self.types.setdefault(node["name"], Type())
        above = [node.get("super", {}), *node.get("protocols", [])]
        into.parents += [each["name"] for each in above if "name" in each]
        for member in inner:
            if member["kind"] == "ObjCPropertyDecl":
                key = ("static " if "class" in member else "") + member["name"]
                into.members[key] = self._spell(member["type"]["qualType"])
                if "readonly" not in member:
                    into.settable.add(key)
            if member["kind"] == "ObjCMethodDecl" and "isImplicit" not in member:
                key = ("" if member["instance"] else "static ") + method_name(member["name"])
                into.members[key] = self._signature(member, member["returnType"]["qualType"])

    def _FunctionDecl(self, node, _inner) -> None:
        self.functions[node["name"]] = self._signature(node, node["type"]["qualType"].split(" (")[0])

    def _VarDecl(self, node, _inner) -> None:
        self.variables[node["name"]] = self._spell(node["type"]["qualType"])

    def _signature(self, node, result: str) -> str:
        arguments = [each["type"]["qualType"] for each in node.get("inner", []) if each["kind"] == "ParmVarDecl"]
        return f"({', '.join(map(self._spell, arguments))}) => {self._spell(result)}"

    def _spell(self, kind: str) -> str:
        kind = " ".join(_QUALIFIERS.sub("", kind).replace("*", " * ").split())
        if block := re.match(r"(.*?) \(\^ ?\)\((.*)\)$", kind):
            arguments = block[2].split(",") if block[2] else []
            return f"({', '.join(map(self._spell, arguments))}) => {self._spell(block[1])}"
        while re.search(r"<.*> \*", kind):
            kind = re.sub(r"<[^<>]*>", "", kind)
        kind = " ".join(kind.split())
        if kind in _WORDS:
            return _WORDS[kind]
        if kind in self._enums:
            return kind
        if self._aliases.get(kind, kind) != kind:
            return self._spell(self._aliases[kind])
        if promised := re.fullmatch(r"(?:id|KeyType) ?< ?(\w+) ?>", kind):
            return promised[1]
        if kind.startswith("__CF"):  # CoreFoundation's own objects
            return "id"
        name = kind.removesuffix(" *")
        if kind != name and name not in self.classes:
            return "pointer"
        return "number" if set(name.split()) <= _NUMBERS else name


def _value(case, following: int) -> int:
    """The value that is given to a case, or the one that follows the case before."""
    for each in case.get("inner", []):
        return int(each["value"]) if "value" in each else _value(each, following)
    return following
