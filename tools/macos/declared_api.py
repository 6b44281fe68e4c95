# SPDX-License-Identifier: MIT
"""What our own headers in tools/macos/frameworks declare of Apple's interfaces, as clang understands them.

Types are spelled as api_table.py spells them.
"""

import json
import re
import subprocess
import tempfile
from collections.abc import Iterable
from dataclasses import dataclass, field
from pathlib import Path

from api_table import Interface, Property

_CLANG = [
    "clang++-19", "-x", "objective-c++", "-std=c++23", "-fobjc-arc", "-fblocks", "-ffreestanding",
    "-nostdinc++", "-target", "arm64-apple-macos13", "-fsyntax-only", "-w", "-Xclang", "-ast-dump=json",
]  # fmt: skip

_BUILT_IN = {
    "void": "void", "bool": "bool", "char": "i8", "signed char": "bool", "unsigned char": "bool",
    "short": "i16", "unsigned short": "u16", "int": "i32", "unsigned int": "u32", "unsigned": "u32",
    "long": "i64", "unsigned long": "u64", "long long": "i64", "unsigned long long": "u64", "float": "f32",
    "double": "f64", "id": "id", "instancetype": "instancetype", "Class": "Class", "SEL": "SEL",
    "CFTypeRef": "id",
}  # fmt: skip
_NUMBER_WORDS = {"signed", "unsigned", "char", "short", "int", "long"}
_QUALIFIERS = {
    "const", "volatile", "struct", "enum", "union", "__kindof", "__strong", "__weak", "__autoreleasing",
    "__unsafe_unretained", "_Nonnull", "_Nullable", "_Null_unspecified", "_Nullable_result", "nonnull",
    "nullable",
}  # fmt: skip


@dataclass
class Declared:
    classes: dict[str, Interface] = field(default_factory=dict)
    protocols: dict[str, Interface] = field(default_factory=dict)
    enums: set[str] = field(default_factory=set)
    constants: dict[str, tuple[str | None, float]] = field(default_factory=dict)  # enumeration or none; value
    variables: dict[str, str] = field(default_factory=dict)
    functions: dict[str, str] = field(default_factory=dict)
    structs: dict[str, list] = field(default_factory=dict)
    types: dict[str, str] = field(default_factory=dict)
    frameworks: dict[str, str] = field(default_factory=dict)  # that of a class, variable or function


def read_declarations(frameworks: Path, enums: Iterable[str], assertions: Iterable[str] = ()) -> Declared:
    """`enums` are names of Apple's that stand for an enumeration: in C++ one of flags is declared as a plain
    integer. `assertions` are constant expressions that have to hold. Raises ValueError with clang's words when
    a header does not compile or one of them does not hold.
    """
    names = sorted(folder.stem for folder in frameworks.glob("*.framework"))
    lines = [f"#import <{name}/{name}.h>" for name in names]
    lines += [f"static_assert({assertion});" for assertion in assertions]
    with tempfile.TemporaryDirectory() as empty:
        result = subprocess.run(
            [*_CLANG, "-isysroot", empty, "-iframework", str(frameworks), "-"],
            input="\n".join(lines),
            capture_output=True,
            text=True,
        )
    if result.returncode != 0:
        raise ValueError(result.stderr)
    return _Collector(frameworks, enums).collect(json.loads(result.stdout))


class _Collector:
    def __init__(self, frameworks: Path, enums: Iterable[str]):
        self._folder = str(frameworks)
        self._file = ""
        self._declared = Declared()
        self._aliases: dict[str, str] = {}
        self._enums = set(enums)
        self._class_names: set[str] = set()
        self._pending: list[tuple[str, dict]] = []
        self._nameless: list | None = None  # the fields of a struct that the next typedef names

    def collect(self, unit: dict) -> Declared:
        self._gather(unit["inner"])
        for framework, node in self._pending:
            self._take(framework, node)
        return self._declared

    def _gather(self, nodes: list[dict]) -> None:
        for node in nodes:
            self._follow_files({key: node.get(key) for key in ("loc", "range")})
            file = self._file
            kind, name = node.get("kind"), node.get("name", "")
            if kind == "TypedefDecl":
                self._aliases[name] = node["type"]["qualType"]
            elif kind == "ObjCInterfaceDecl":
                self._class_names.add(name)
            elif kind == "EnumDecl" and name:
                self._enums.add(name)
            if kind == "LinkageSpecDecl":
                self._gather(node.get("inner", []))
                continue
            if file.startswith(self._folder) and not node.get("isImplicit"):
                framework = re.search(r"/(\w+)\.framework/", file).group(1)
                self._pending.append((framework, node))
            self._follow_files(node.get("inner", []))

    def _follow_files(self, part) -> None:
        """clang names the file of a place only where it differs from that of the place before."""
        if isinstance(part, dict):
            self._file = part.get("file", self._file)
            for key, value in part.items():
                if key != "includedFrom":
                    self._follow_files(value)
        elif isinstance(part, list):
            for value in part:
                self._follow_files(value)

    def _take(self, framework: str, node: dict) -> None:
        declared, kind, name = self._declared, node["kind"], node.get("name", "")
        if kind in ("ObjCInterfaceDecl", "ObjCCategoryDecl"):
            owner = node["interface"]["name"] if kind == "ObjCCategoryDecl" else name
            if kind == "ObjCInterfaceDecl" and "super" not in node and "inner" not in node:
                return  # @class
            into = declared.classes.setdefault(owner, Interface())
            if kind == "ObjCInterfaceDecl":
                into.superclass = node.get("super", {}).get("name")
                declared.frameworks[name] = framework
            self._take_members(into, node)
        elif kind == "ObjCProtocolDecl":
            if "inner" in node or "protocols" in node:
                self._take_members(declared.protocols.setdefault(name, Interface()), node)
        elif kind == "EnumDecl":
            if name:
                declared.enums.add(name)
            self._take_constants(name or None, node)
        elif kind == "FunctionDecl":
            declared.functions[name] = self._signature_of(node["type"]["qualType"])
            declared.frameworks[name] = framework
        elif kind == "VarDecl":
            if "init" in node:
                declared.constants[name] = (None, _value(node["inner"][0]))
            else:
                declared.variables[name] = self.spell(node["type"]["qualType"])
                declared.frameworks[name] = framework
        elif kind in ("RecordDecl", "CXXRecordDecl"):
            fields = [part for part in node.get("inner", []) if part["kind"] == "FieldDecl"]
            spelled = [[part["name"], self.spell(part["type"]["qualType"])] for part in fields]
            if name and fields:
                declared.structs[name] = spelled
            self._nameless = None if name else spelled
        elif kind == "TypedefDecl":
            declared.types[name] = self.spell(node["type"]["qualType"])
            if self._nameless:
                declared.structs[name] = self._nameless
            self._nameless = None
        elif kind not in ("ObjCTypeParamDecl", "EmptyDecl", "StaticAssertDecl"):
            raise ValueError(f"{framework}: no check knows what to do with the {kind} {name}")

    def _take_members(self, into: Interface, node: dict) -> None:
        names = [protocol["name"] for protocol in node.get("protocols", [])]
        into.protocols = sorted({*into.protocols, *names})
        parameters = [part["name"] for part in node.get("inner", []) if part["kind"] == "ObjCTypeParamDecl"]
        hidden = {name: self._aliases.get(name) for name in parameters}
        self._aliases.update({name: "id" for name in parameters})
        for part in node.get("inner", []):
            if part.get("isImplicit"):
                continue
            if part["kind"] == "ObjCMethodDecl":
                arguments = [
                    self.spell(argument["type"]["qualType"])
                    for argument in part.get("inner", [])
                    if argument["kind"] == "ParmVarDecl" and not argument.get("isImplicit")
                ]
                if part.get("variadic"):
                    arguments.append("...")
                level = "-" if part.get("instance") else "+"
                into.methods[level + part["name"]] = (
                    f"{self.spell(part['returnType']['qualType'])};{','.join(arguments)}"
                )
            elif part["kind"] == "ObjCPropertyDecl":
                name = part["name"]
                getter = part.get("getter", {}).get("name", name)
                setter = part.get("setter", {}).get("name", f"set{name[0].upper()}{name[1:]}:")
                level = "+" if part.get("class") else "-"
                into.properties[level + name] = Property(
                    self.spell(part["type"]["qualType"]), getter, None if part.get("readonly") else setter
                )
        for name, alias in hidden.items():
            if alias is None:
                del self._aliases[name]
            else:
                self._aliases[name] = alias

    def _take_constants(self, enum: str | None, node: dict) -> None:
        value = -1
        for case in node.get("inner", []):
            if case["kind"] == "EnumConstantDecl":
                value = _value(case["inner"][0]) if case.get("inner") else value + 1
                self._declared.constants[case["name"]] = (enum, value)

    def _signature_of(self, text: str) -> str:
        """Of a function's type, such as `void (int, char *)`."""
        opening = _matching_parenthesis(text)
        return f"{self.spell(text[:opening])};{self._arguments(text[opening + 1 : text.rindex(')')])}"

    def _arguments(self, text: str) -> str:
        parts = _split(text)
        return ",".join(part if part == "..." else self.spell(part) for part in parts if part != "void")

    def spell(self, text: str) -> str:
        text = text.strip()
        pointer = re.search(r"\((\^|\*)[^()]*\)\s*\(", text)
        if pointer and _matching_parenthesis(text) == pointer.end() - 1:
            arguments = text[pointer.end() : text.rindex(")")]
            kind = "block" if pointer[1] == "^" else "function"
            return f"{kind}({self.spell(text[: pointer.start()])};{self._arguments(arguments)})"
        if array := re.fullmatch(r"(.*)\[(\d+)\]", text):
            return f"{self.spell(array[1])}[{array[2]}]"
        flat = _without_generics(text)
        stars = flat.count("*")
        if record := re.search(r"\bstruct (\w+)", flat):
            return f"struct {record[1]}{'*' * stars}"
        words = [word for word in re.findall(r"\w+", flat) if word not in _QUALIFIERS]
        promised = re.search(r"<(.*)>", text)
        return self._named(words, promised[1] if promised else None, stars)

    def _named(self, words: list[str], promised: str | None, stars: int) -> str:
        name = " ".join(words)
        if len(words) > 1:
            assert set(words) <= _NUMBER_WORDS | {"double"}, name
            name = re.sub(r"^(signed )?(long long|long|short)( int)?$", r"\2", name)
        if name == "id" and promised:
            base = f"id<{','.join(sorted(_split(promised)))}>"
        elif name in _BUILT_IN:
            base = _BUILT_IN[name]
            if base == "i8" and stars:
                base, stars = "char*", stars - 1
            elif base == "void" and stars:
                base, stars = "void*", stars - 1
        elif name in self._class_names:
            base, stars = name + "*", stars - 1
        elif name in self._enums:
            base = "i64"
        elif name in self._aliases:
            alias = self._aliases[name]
            base = self.spell(f"{alias}<{promised}>" if alias == "id" and promised else alias)
        else:
            base = "struct " + name
        return base + "*" * stars


def _value(node: dict) -> int | float:
    """Of a constant expression; literals keep theirs only deep inside."""
    if "value" in node:
        return float(node["value"]) if node["kind"] == "FloatingLiteral" else int(node["value"], 0)
    parts = [_value(part) for part in node.get("inner", [])]
    match node.get("opcode"):
        case "-":
            return -parts[0] if len(parts) == 1 else parts[0] - parts[1]
        case "~":
            return ~parts[0]
        case "|":
            return parts[0] | parts[1]
        case "<<":
            return parts[0] << parts[1]
        case None if len(parts) == 1:
            return parts[0]
    raise ValueError(f"cannot read the value of {node['kind']} {node.get('opcode', '')}")


def _split(text: str) -> list[str]:
    """At the commas that stand in no brackets."""
    parts, depth, start = [], 0, 0
    for place, character in enumerate(text):
        depth += (character in "(<[") - (character in ")>]")
        if character == "," and depth == 0:
            parts.append(text[start:place].strip())
            start = place + 1
    return [part for part in [*parts, text[start:].strip()] if part]


def _without_generics(text: str) -> str:
    while "<" in text:
        text = re.sub(r"<[^<>]*>", "", text)
    return text


def _matching_parenthesis(text: str) -> int:
    """The place of the one that opens the last argument list; -1 if there is none."""
    depth = 0
    for place in range(len(text) - 1, -1, -1):
        depth += (text[place] == ")") - (text[place] == "(")
        if text[place] == "(" and depth == 0:
            return place
    return -1
