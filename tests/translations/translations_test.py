# SPDX-License-Identifier: MIT
"""translations_test.py SOURCE_FOLDER: every text of the sources is translated, whole, into each language of
resources/translations. Reads the sources by itself, so that a text that the translation tools pass over is missed."""
import collections
import pathlib
import re
import sys
import unittest
import xml.etree.ElementTree

SOURCES = pathlib.Path()
LITERALS = r'((?:"(?:[^"\\]|\\.)*"\s*)+)'
CONTEXT = "chimewell::texts" # in which src/ui/look/words.cpp asks for a text
TEXT = r"\b(?:Text|onLinux)\(\s*" + LITERALS + r"\)"
MANY = r'\bmany\(\s*"chimewell::texts",\s*' + LITERALS + r"\)"
PARTS = r"%[0-9n]|\*\*"


def joined(literals):
    return re.sub(r"\\(.)", r"\1", "".join(re.findall(r'"((?:[^"\\]|\\.)*)"', literals)))


def found(pattern):
    files = [file for file in (SOURCES / "src").rglob("*") if file.suffix in (".h", ".cpp")]
    return {joined(text) for file in files for text in re.findall(pattern, file.read_text(encoding="utf-8"))}


class Translation:
    """One message of a file of translations."""
    def __init__(self, context, message):
        self.key = (context, message.findtext("source"))
        inside = message.find("translation")
        self.is_finished = inside.get("type") is None
        self.is_counted = message.get("numerus") == "yes"
        self.forms = [form.text or "" for form in inside.findall("numerusform")] or [inside.text or ""]


class Translations(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.languages = {}
        for file in sorted((SOURCES / "resources/translations").glob("*.ts")):
            root = xml.etree.ElementTree.parse(file).getroot()
            self.languages[root.get("language")] = [Translation(context.findtext("name"), message)
                                                    for context in root.iter("context")
                                                    for message in context.iter("message")]
        self.assertIn("de", self.languages)

    def test_every_text_is_translated_and_nothing_else_is(self):
        texts = {(CONTEXT, text) for text in found(TEXT) | found(MANY)}
        self.assertGreater(len(texts), 150)
        for language, translations in self.languages.items():
            with self.subTest(language):
                self.assertEqual(sorted(texts), sorted(translation.key for translation in translations))

    def test_no_translation_is_left_unfinished(self):
        unfinished = [(language, translation.key) for language, translations in self.languages.items()
                      for translation in translations if not translation.is_finished or not all(translation.forms)]
        self.assertEqual(unfinished, [])

    def test_nothing_of_a_text_is_lost(self):
        for language, translations in self.languages.items():
            for translation in translations:
                parts = collections.Counter(re.findall(PARTS, translation.key[1]))
                for form in translation.forms:
                    with self.subTest(language, text=form):
                        self.assertEqual(collections.Counter(re.findall(PARTS, form)), parts)

    def test_counts_are_counted(self):
        for language, translations in self.languages.items():
            counted = {translation.key[1] for translation in translations if translation.is_counted}
            self.assertEqual(counted, found(MANY), language)


if __name__ == "__main__":
    SOURCES = pathlib.Path(sys.argv.pop())
    unittest.main()
