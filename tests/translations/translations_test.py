# SPDX-License-Identifier: MIT
"""translations_test.py SOURCE_FOLDER: every text of the sources is translated, whole, into each language of
resources/translations. Reads the sources by itself, so that a text that the translation tools pass over is missed."""
import pathlib
import re
import sys
import unittest
import xml.etree.ElementTree

SOURCES = pathlib.Path()
LITERALS = r'((?:"(?:[^"\\]|\\.)*"\s*)+)'
CONTEXT = "chimewell::texts"  # in which src/ui/look/words.cpp asks for a text
TEXT = r"\b(?:Text|onLinux)\(\s*" + LITERALS + r"\)"
MANY = r'\bmany\(\s*"chimewell::texts",\s*' + LITERALS + r"\)"
PARTS = r"%[0-9n]|\*\*"


def joined(literals):
    return re.sub(r"\\(.)", r"\1", "".join(re.findall(r'"((?:[^"\\]|\\.)*)"', literals)))


def found(pattern):
    files = [file for file in (SOURCES / "src").rglob("*") if file.suffix in (".h", ".cpp")]
    return {joined(text) for file in files for text in re.findall(pattern, file.read_text(encoding="utf-8"))}


class Translations(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        files = (SOURCES / "resources/translations").glob("*.ts")
        languages = [xml.etree.ElementTree.parse(file).getroot() for file in files]
        self.messages = {language.get("language"): [(context.findtext("name"), message)
                                                    for context in language.iter("context")
                                                    for message in context.iter("message")]
                         for language in languages}
        self.assertIn("de", self.messages)

    def test_every_text_is_translated_and_nothing_else_is(self):
        texts, counted = found(TEXT), found(MANY)
        self.assertGreater(len(texts), 150)
        for language, messages in self.messages.items():
            with self.subTest(language):
                self.assertEqual(sorted((context, message.findtext("source")) for context, message in messages),
                                 sorted((CONTEXT, text) for text in texts | counted))
                self.assertEqual({message.findtext("source") for _, message in messages
                                  if message.get("numerus") == "yes"}, counted)

    def test_every_translation_is_finished_and_whole(self):
        for language, messages in self.messages.items():
            for _, message in messages:
                text, translation = message.findtext("source"), message.find("translation")
                forms = translation.findall("numerusform") or [translation]
                with self.subTest(language, text=text):
                    self.assertIsNone(translation.get("type"))
                    for form in forms:
                        self.assertTrue(form.text)
                        self.assertEqual(sorted(re.findall(PARTS, form.text)), sorted(re.findall(PARTS, text)))


if __name__ == "__main__":
    SOURCES = pathlib.Path(sys.argv.pop())
    unittest.main()
