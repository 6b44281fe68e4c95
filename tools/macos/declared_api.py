# SPDX-License-Identifier: MIT
"""What our headers in tools/macos/frameworks declare of Apple's interfaces, in the words of TypeScript.

The headers are written by hand in a plain style; whatever has another form is an error.
"""

import re
from dataclasses import dataclass, field
from pathlib import Path

FRAMEWORKS = Path(__file__).resolve().parent / "frameworks"

_NOISE = re.compile(
    r"//[^\n]*|/\*.*?\*/|^#(?:[^\n]*\\\n)*[^\n]*"  # comments, and what is for the preprocessor
    r"|__attribute__\(\(.*?\)\)|\b(?:_Nullable|_Nonnull|nullable|__unsafe_unretained|__covariant|const|static)\b"
    r'|\bNS_EXTERN\b|\bextern(?: "C")?|@optional|@class \w+;|\bstruct \w+;',
    re.MULTILINE | re.DOTALL,
)
_NUMBERS = {"unsigned", "char", "short", "int", "long", "float", "double"}
_GENERIC = {"ObjectType", "KeyType"}
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


@dataclass
class Declarations:
    types: dict[str, Type] = field(default_factory=dict)
    constants: dict[str, tuple[str | None, int | None]] = field(default_factory=dict)  # enumeration, value
    variables: dict[str, str] = field(default_factory=dict)
    functions: dict[str, str] = field(default_factory=dict)
    classes: set[str] = field(default_factory=set)
    frameworks: dict[str, str] = field(default_factory=dict)  # of each class, variable and function


def method_name(selector: str) -> str:
    """The name that JavaScript has for a method: without colons, every further part with a capital."""
    first, *others = selector.rstrip(":").split(":")
    return first + "".join(part[0].upper() + part[1:] for part in others)


def read_declarations(frameworks: Path = FRAMEWORKS) -> Declarations:
    reader = _Reader()
    base = ["CoreFoundation", "CoreServices", "Foundation"]  # their types are used by the others
    for name in base + sorted({path.stem for path in frameworks.glob("*.framework")} - {*base}):
        reader.read(name, (frameworks / f"{name}.framework/Headers/{name}.h").read_text())
    return reader.declared


class _Reader:
    def __init__(self):
        self.declared = Declarations()
        self._aliases: dict[str, str] = {}
        self._enums: set[str] = set()
        self._forms = [
            (r"typedef (?:NS|CF)_(?:ENUM|OPTIONS)\([^,]*, (\w+)\) \{(.*?)\};", self._enum),
            (r"enum\s?(\w+)?\s?(?:: \w+ )?\{(.*?)\};", self._enum),
            (r"typedef struct()() \{.*?\} \w+;", lambda *_: None),  # just for the compiler
            (r"struct (\w+) \{(.*?)\};", self._struct),
            (r"typedef ([^;]*?)(\w+);", lambda kind, name: self._aliases.update({name: kind.strip()})),
            (r"@(interface|protocol) (\w+)([^-+@{]*)(.*?)@end", self._type),
            (r"([\w *]*?)(\w+)\(([^)]*)\);", self._function),
            (r"([\w *]*?)(\w+)(?: = [^;]*)?;", self._variable),
        ]

    def read(self, framework: str, text: str) -> None:
        self.declared.classes.update(re.findall(r"@(?:class|interface) (\w+)", text))
        text = " ".join(_NOISE.sub("", text).replace("*", " * ").split())
        self._framework = framework
        while text:
            found = next((f for f in ((re.match(p, text), take) for p, take in self._forms) if f[0]), None)
            if not found:
                raise SystemExit(f"{framework}.h: cannot read: {text[:100]}")
            found[1](*found[0].groups(default=""))
            text = text[found[0].end() :].strip()

    def _enum(self, name: str, body: str) -> None:
        self._enums.add(name)
        value: int | None = -1
        for case in filter(None, (part.strip() for part in body.split(","))):
            constant, _, given = case.partition(" = ")
            if given:  # the four characters of a code are told nowhere
                value = None if "'" in given else eval(given.replace("ULL", ""))
            else:
                value += 1
            self.declared.constants[constant] = (name or None, value)

    def _struct(self, name: str, body: str) -> None:
        fields = re.findall(r"([^;]+?)(\w+);", body)
        self.declared.types[name] = Type(members={name: self._spell(kind) for kind, name in fields})

    def _type(self, kind: str, name: str, parents: str, body: str) -> None:
        if kind == "interface":
            self.declared.frameworks[name] = self._framework
        into = self.declared.types.setdefault(name, Type())
        into.parents += [word for word in re.findall(r"\w+", parents) if word not in _GENERIC]
        for attributes, kind, member in re.findall(r"@property (?:\(([^)]*)\) )?([^;]*?)(\w+);", body):
            key = ("static " if "class" in attributes else "") + member
            into.members[key] = self._spell(kind)
            if "readonly" not in attributes:
                into.settable.add(key)
        for level, text in re.findall(r"(?<![\w)*] )([-+]) ?(\([^;]*);", body):
            kind, text = _parenthesised(text)
            selector, arguments = "", []
            while ":" in text:
                part, _, text = text.partition(":")
                argument, text = _parenthesised(text.strip())
                selector += part.strip() + ":"
                arguments.append(self._spell(argument))
                text = text.strip().partition(" ")[2]
            key = ("static " if level == "+" else "") + method_name(selector or text.strip())
            into.members[key] = f"({', '.join(arguments)}) => {self._spell(kind)}"

    def _function(self, kind: str, name: str, arguments: str) -> None:
        spelled = [self._spell(re.sub(r"\w+$", "", part)) for part in arguments.split(",") if part != "void"]
        self.declared.functions[name] = f"({', '.join(spelled)}) => {self._spell(kind)}"
        self.declared.frameworks[name] = self._framework

    def _variable(self, kind: str, name: str) -> None:
        self.declared.variables[name] = self._spell(kind)
        self.declared.frameworks[name] = self._framework

    def _spell(self, kind: str) -> str:
        kind = kind.strip()
        if block := re.match(r"(.*?) ?\( ?\^ ?\) ?\((.*)\)$", kind):
            arguments = [re.sub(r"(?<=[ *])\w+$", "", part) for part in block[2].split(",") if part != "void"]
            return f"({', '.join(map(self._spell, arguments))}) => {self._spell(block[1])}"
        while re.search(r"<.*> \*", kind):
            kind = re.sub(r"<[^<>]*>", "", kind)
        kind = kind.replace("struct ", "").replace("  ", " ")
        if kind in _WORDS:
            return _WORDS[kind]
        if kind in self._enums:
            return kind
        if kind in self._aliases:
            return self._spell(self._aliases[kind])
        if promised := re.fullmatch(r"(?:id|KeyType) ?< ?(\w+) ?>", kind):
            return promised[1]
        if kind.startswith("__CF"):  # CoreFoundation's own objects
            return "id"
        if kind.endswith("]") or (kind.endswith("*") and kind.removesuffix(" *") not in self.declared.classes):
            return "pointer"
        name = kind.removesuffix(" *")
        return "number" if set(name.split()) <= _NUMBERS else re.sub(r"<.*", "", name)


def _parenthesised(text: str) -> tuple[str, str]:
    """What stands in the parentheses with which the text begins, and what follows them."""
    depth = 0
    for place, character in enumerate(text):
        depth += (character == "(") - (character == ")")
        if depth == 0:
            return text[1:place], text[place + 1 :]
    raise ValueError(text)
