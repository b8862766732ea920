"""Checks the texts of all languages against each other and against the sources.

Usage: texts_test.py <root of the tree> <language folder ...> [-- unittest arguments]
"""

import os
import re
import string
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True

ROOT = ""
FOLDERS = []
SOURCE_FOLDERS = ("Application", "Authoring", "Document", "Explorer", "Modules", "RuleModules", "TypeLib", "Utilities")

PLACEHOLDER = re.compile(r"%(?:\d|[a-z])")


def texts_of(folder):
    return make_texts.read_texts(os.path.join(ROOT, "Lang", folder))


class TextsTest(unittest.TestCase):
    def others(self):
        for folder in FOLDERS:
            if folder != "english":
                yield folder, {number: (name, text) for number, name, text in texts_of(folder)}

    def test_every_language_has_every_number_and_no_other(self):
        english = {number: name for number, name, _ in texts_of("english")}
        for folder, texts in self.others():
            self.assertEqual({number: name for number, (name, _) in texts.items()}, english, folder)

    def test_no_text_is_empty(self):
        for folder in FOLDERS:
            self.assertEqual([name for _, name, text in texts_of(folder) if not text.strip()], [], folder)

    def test_placeholders_agree(self):
        english = {number: sorted(PLACEHOLDER.findall(text)) for number, _, text in texts_of("english")}
        for folder, texts in self.others():
            for number, (name, text) in texts.items():
                self.assertEqual(sorted(PLACEHOLDER.findall(text)), english[number], f"{folder}: {name}")

    def test_keys_of_commands_agree(self):
        """What stands behind a tab is read by the toolkit, whatever the language."""
        english = {number: text.partition("\t")[2] for number, _, text in texts_of("english")}
        for folder, texts in self.others():
            for number, (name, text) in texts.items():
                self.assertEqual(text.partition("\t")[2], english[number], f"{folder}: {name}")

    def test_line_ends_agree(self):
        english = {number: text.count("\n") for number, _, text in texts_of("english")}
        for folder, texts in self.others():
            for number, (name, text) in texts.items():
                self.assertEqual(text.count("\n"), english[number], f"{folder}: {name}")

    def test_what_opens_by_a_letter_does_so_in_every_language(self):
        english = {number: "&" in text for number, _, text in texts_of("english")}
        for folder, texts in self.others():
            for number, (name, text) in texts.items():
                self.assertEqual("&" in text, english[number], f"{folder}: {name}")

    def test_every_text_is_used(self):
        used = set()
        for top in SOURCE_FOLDERS:
            for folder, _, files in os.walk(os.path.join(ROOT, top)):
                for file in files:
                    if file.endswith((".cpp", ".h")):
                        with open(os.path.join(folder, file), encoding="utf-8") as stream:
                            used.update(re.findall(r"\w+", stream.read()))
        # Rules use a set of texts by what their names have in common. Common texts of rules are there for
        # modules to choose from.
        common = os.path.join(ROOT, "Lang", "english", "rules-common.texts")
        used.update(name for _, _, name, _ in make_texts.read_lines(common))
        names = [name for _, name, _ in texts_of("english")]
        for _, stem, members in make_texts.rule_sets(set(names)):
            if stem in used:
                used.update(members)
        self.assertEqual([name for name in names if name not in used], [])

    def test_texts_are_translated(self):
        """A text of several words that is the English one was forgotten, but for names and fixed words."""
        fixed = {"AboutBuild", "ApplicationTitle", "RuleFileModified", "WrongPassword"}
        english = {number: text for number, _, text in texts_of("english")}
        for folder, texts in self.others():
            same = [name for number, (name, text) in texts.items()
                    if text == english[number] and len(text.split()) > 2 and name not in fixed]
            self.assertEqual(same, [], folder)

    def test_units_of_a_kind_have_different_names(self):
        """A unit is found by its name."""
        for folder in FOLDERS:
            texts = {number: text for number, _, text in texts_of(folder)}
            for numbers in (range(61546, 61557), (61567, 61568, 61571, 61572)):
                names = [texts[number] for number in numbers]
                self.assertEqual(len(set(names)), len(names), f"{folder}: {names}")


class SourceTest(unittest.TestCase):
    """What make_texts.py makes of a source, and what it refuses."""

    def texts(self, content):
        with tempfile.TemporaryDirectory() as folder:
            with open(os.path.join(folder, "a.texts"), "w", encoding="utf-8") as file:
                file.write(content)
            return make_texts.read_texts(folder)

    def test_escapes_stand_for_characters(self):
        self.assertEqual(self.texts("1 A = \\sa\\tb\\nc\\\\d\\s\n"), [(1, "A", " a\tb\nc\\d ")])

    def test_wrong_sources_are_refused(self):
        for content in ("", "1 A\n", "1 a = x\n", "0 A = x\n", "65536 A = x\n", "1 A = x\\q\n", "1 A = x \n",
                        "1 A = x\n1 B = y\n", "1 A = x\n2 A = y\n", "A = x\n"):
            with self.subTest(content=content), self.assertRaises(make_texts.Failure):
                self.texts(content)

    def test_literals_are_ascii_and_quote_what_c_would_read(self):
        literal = make_texts.cpp_literal('a"b\\c\né\U0001F600')
        self.assertEqual(literal, 'L"a\\"b\\\\c\\n\\u00E9\\U0001F600"')
        self.assertTrue(set(literal) <= set(string.printable))

    def test_the_texts_of_rules_are_no_numbers_of_the_program(self):
        with tempfile.TemporaryDirectory() as folder:
            for name, content in (("a", "1 A = x\n"), ("rules-b", "2 B = y\n")):
                with open(os.path.join(folder, name + ".texts"), "w", encoding="utf-8") as file:
                    file.write(content)
            self.assertNotIn("B = 2", make_texts.KINDS["ids"](folder))
            self.assertIn('{ 2, L"y" }', make_texts.KINDS["table"](folder))

    def test_the_header_of_rules_has_the_sets_that_are_whole(self):
        header = make_texts.rule_header([(1, "AName", "a"), (2, "ASummary", "b"), (3, "ADetail", "c"),
                                         (4, "ABLabel", "d"), (5, "ABHelp", "e"), (6, "CHelp", "f")])
        self.assertIn("inline constexpr RuleTextSet A = { AName, ASummary, ADetail };", header)
        self.assertIn("inline constexpr ParamTextSet AB = { ABLabel, ABHelp };", header)
        self.assertIn('inline constexpr RuleText CHelp = { 6, L"f" };', header)
        self.assertNotIn(" C =", header)

    def test_a_string_table_doubles_quotes(self):
        self.assertIn('    7 L"a""b\\\\n\\n"', make_texts.resource_script([(7, "A", 'a"b\\n\n')]))


if __name__ == "__main__":
    arguments = sys.argv[1:]
    rest = []
    if "--" in arguments:
        position = arguments.index("--")
        arguments, rest = arguments[:position], arguments[position + 1:]
    ROOT, *FOLDERS = arguments
    sys.path.insert(0, os.path.join(ROOT, "Lang"))
    import make_texts
    unittest.main(argv=[sys.argv[0], *rest])
