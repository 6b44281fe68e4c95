# SPDX-License-Identifier: MIT
"""Reads of Mach-O files, which are Apple's programs and libraries, what they need to be loaded."""

import struct
from dataclasses import dataclass, field
from pathlib import Path

PROCESSORS = {0x01000007: "x86_64", 0x0100000C: "arm64"}
UNIVERSAL = {b"\xca\xfe\xba\xbe": ">II II I", b"\xca\xfe\xba\xbf": ">II QQ II"}  # a list of files, and its entries
MAGIC = b"\xcf\xfa\xed\xfe"  # of one file: 64 bits, little-endian

# Load commands. The first group names a library: required, weak, re-exported, lazy, upward.
LIBRARY = {0x0C, 0x80000018, 0x8000001F, 0x20, 0x80000023}
SEARCH_PATH = 0x8000001C
VERSION_MIN_MACOS, BUILD_VERSION = 0x24, 0x32


@dataclass
class Image:
    """What a file has for one processor."""

    processor: str
    oldest: tuple = (0, 0)  # the oldest macOS that loads it
    libraries: list = field(default_factory=list)
    search_paths: list = field(default_factory=list)  # for libraries whose names begin with @rpath


def read_images(file: Path) -> list:
    """Empty for a file of another kind."""
    data = file.read_bytes()
    entry = UNIVERSAL.get(data[:4])
    if not entry:
        return [_image(data)] if data[:4] == MAGIC else []
    (count,) = struct.unpack_from(">I", data, 4)
    size = struct.calcsize(entry)
    starts = [struct.unpack_from(entry, data, 8 + size * index)[2] for index in range(count)]
    return [_image(data[start:]) for start in starts]


def _image(data: bytes) -> Image:
    processor, _, _, commands = struct.unpack_from("<4I", data, 4)
    image = Image(PROCESSORS.get(processor, hex(processor)))
    at = 32
    for _ in range(commands):
        command, size, value, second = struct.unpack_from("<4I", data, at)
        if command in LIBRARY or command == SEARCH_PATH:
            text = data[at + value : at + size].split(b"\0")[0].decode()
            (image.search_paths if command == SEARCH_PATH else image.libraries).append(text)
        elif command in (VERSION_MIN_MACOS, BUILD_VERSION):
            version = value if command == VERSION_MIN_MACOS else second
            image.oldest = (version >> 16, version >> 8 & 0xFF)
        at += size
    return image
