"""Reads the staged help with programs that did not make it and holds it against its sources.

Usage: help_test.py <tree> <staged tree> [unittest arguments]
Needs chmls and xmllint, and chmcmd to make help again.
"""

import html.parser
import os
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import tomllib
import unittest

TREE = ""
STAGE = ""

VOID_ELEMENTS = {"meta", "link", "br"}


def read_bytes(path):
    with open(path, "rb") as file:
        return file.read()


def chmls(*arguments):
    """What the reader of help files says. It would stop at characters that the locale lacks."""
    environment = {**os.environ, "LC_ALL": "C.UTF-8"}
    return subprocess.run(["chmls", *arguments], check=True, capture_output=True, env=environment).stdout


class Page(html.parser.HTMLParser):
    """What a page holds, and whether its elements are closed where they should be."""

    def __init__(self, text):
        super().__init__(convert_charrefs=True)
        self.open = []
        self.problems = []
        self.elements = []
        self.links = []
        self.chunks = []
        self.titles = {"title": "", "h1": ""}
        self.charset = ""
        self.feed(text)
        self.close()
        self.problems += [f"<{tag}> is not closed" for tag in self.open]

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        if tag == "meta" and "charset=" in attributes.get("content", ""):
            self.charset = attributes["content"].split("charset=")[1]
        if tag not in VOID_ELEMENTS:
            self.open.append(tag)
        inside = "div.page" in self.open or "body" not in self.open
        if tag == "div" and attributes.get("class") == "page":
            self.open[-1] = "div.page"
        elif tag == "div" and attributes.get("class") == "contents":
            self.open[-1] = "div.contents"
        elif inside and "head" not in self.open and tag != "html":
            self.elements.append(tag)
        if tag == "a":
            self.links.append(attributes["href"])

    def handle_endtag(self, tag):
        if not self.open or self.open[-1].split(".")[0] != tag:
            self.problems.append(f"line {self.getpos()[0]}: </{tag}> does not close {self.open[-1:]}")
            return
        self.open.pop()

    def handle_startendtag(self, tag, attrs):
        if tag == "ui":  # in a source
            self.elements.append("strong")
        else:
            self.handle_starttag(tag, attrs)

    def handle_data(self, data):
        if self.open and self.open[-1] in self.titles:
            self.titles[self.open[-1]] += data
        elif data.strip() and not {"head", "div.contents"} & set(self.open):
            self.chunks.append(" ".join(data.split()))

    def text(self):
        return " ".join(self.chunks)


class Sitemap(html.parser.HTMLParser):
    """Names and pages of the contents or the index of a help file."""

    def __init__(self, text):
        super().__init__(convert_charrefs=True)
        self.entries = []
        self.feed(text)

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        if tag == "param" and attributes["name"] == "Name":
            self.entries.append([attributes["value"], ""])
        elif tag == "param" and attributes["name"] == "Local":
            self.entries[-1][1] = attributes["value"]


class HelpTest(unittest.TestCase):
    def setUp(self):
        self.table = tomllib.loads(read_bytes(os.path.join(TREE, "Help/topics.toml")).decode())
        self.topics = self.table["topic"]
        self.pages = [topic["page"] + ".html" for topic in self.topics]
        self.folder = tempfile.mkdtemp(prefix="vantrel-help-test-")
        self.addCleanup(shutil.rmtree, self.folder)

    def languages(self):
        """Each language with its properties and staged folder."""
        for name, language in self.table["language"].items():
            yield name, language, os.path.join(STAGE, "Lang", name)

    def help_file(self, name):
        """A copy of the help file of a language: the reader locks what it reads, and other tests read the same."""
        copy = os.path.join(self.folder, name + ".chm")
        if not os.path.exists(copy):
            shutil.copy(os.path.join(STAGE, "Lang", name, "vantrel.chm"), copy)
        return copy

    def extracted(self, name):
        """Folder with everything that the help file of a language holds."""
        folder = os.path.join(self.folder, name)
        os.makedirs(folder)
        chmls("extractall", self.help_file(name), folder)
        return folder

    def browser_page(self, name, page):
        return Page(read_bytes(os.path.join(STAGE, "Lang", name, "help", page)).decode("utf-8"))

    def make_help(self, *arguments):
        command = [sys.executable, os.path.join(TREE, "Help/make_help.py"), *arguments]
        return subprocess.run(command, capture_output=True, text=True, check=False)

    # --- pages ---

    def test_every_language_has_the_pages_of_the_table_and_no_other(self):
        for _, _, staged in self.languages():
            names = [name for name in os.listdir(os.path.join(staged, "help")) if name.endswith(".html")]
            self.assertEqual(sorted(names), sorted(self.pages))
            self.assertGreaterEqual(len(names), 17)

    def test_pages_are_well_formed_html(self):
        for name, _, staged in self.languages():
            for page in self.pages:
                self.assertEqual(self.browser_page(name, page).problems, [], page)
            paths = [os.path.join(staged, "help", page) for page in self.pages]
            result = subprocess.run(["xmllint", "--html", "--noout", *paths], capture_output=True, text=True, check=False)
            self.assertEqual((result.returncode, result.stderr), (0, ""))

    def test_every_link_leads_to_a_page(self):
        for name, _, staged in self.languages():
            for page in self.pages:
                links = self.browser_page(name, page).links
                self.assertGreaterEqual(len(links), len(self.pages) - 1, page)
                for link in links:
                    self.assertTrue(os.path.isfile(os.path.join(staged, "help", link)), f"{page}: {link}")

    def test_every_page_has_its_title_from_the_table(self):
        for name, _, _ in self.languages():
            for topic in self.topics:
                page = self.browser_page(name, topic["page"] + ".html")
                self.assertEqual(page.titles, {"title": topic["title"][name], "h1": topic["title"][name]})
            titles = [topic["title"][name] for topic in self.topics]
            self.assertEqual(len(set(titles)), len(titles))

    def test_translations_say_as_much_as_the_english_pages_in_their_own_words(self):
        script = {"japanese": r"[\u3040-\u30ff]", "korean": r"[\uac00-\ud7a3]", "zh_CN": r"[\u4e00-\u9fff]",
                  "zh_TW": r"[\u4e00-\u9fff]", "french": r"[a-z\u00e0-\u00ff]"}
        for page in self.pages:
            english = self.browser_page("english", page)
            self.assertGreater(len(english.text()), 150, page)
            for name, _, _ in self.languages():
                if name == "english":
                    continue
                translated = self.browser_page(name, page)
                self.assertEqual(translated.elements, english.elements, page)
                self.assertEqual(sorted(translated.links), sorted(english.links), page)
                letters = len(re.findall(script[name], translated.text()))
                self.assertGreater(letters, len(english.text()) // 8, page)
                same = [chunk for chunk in translated.chunks if chunk in english.chunks and len(chunk.split()) > 3]
                self.assertEqual(same, [], page)

    def test_what_a_page_says_is_what_its_source_says(self):
        for name, _, _ in self.languages():
            for page in self.pages:
                source = Page("<body><div class='page'>" + read_bytes(os.path.join(TREE, "Help", name, page)).decode("utf-8")
                              + "</div></body>")
                made = self.browser_page(name, page)
                self.assertEqual(source.problems, [], page)
                self.assertEqual(made.elements, ["h1", *(tag for tag in source.elements if tag != "body")], page)
                text, position = made.text(), 0
                for chunk in source.chunks:
                    position = text.find(chunk, position)
                    self.assertNotEqual(position, -1, f"{page}: {chunk}")
                    position += len(chunk)

    def test_names_of_commands_are_those_of_the_program(self):
        for name, word in (("english", "Set Password"), ("french", "D\u00e9finir le mot de passe"),
                           ("japanese", "\u30d1\u30b9\u30ef\u30fc\u30c9\u306e\u8a2d\u5b9a"), ("zh_CN", "\u8bbe\u7f6e\u5bc6\u7801")):
            chunks = self.browser_page(name, "protect-file.html").chunks
            self.assertIn(word, chunks)
        for name, _, _ in self.languages():
            for page in self.pages:
                text = self.browser_page(name, page).text()
                self.assertIsNone(re.search(r"&[A-Za-z]|\(&|\\t|%\d", text), page)

    def test_a_list_tells_the_numbers_of_the_pages_with_the_first_topic_first(self):
        expected = "".join(f"{topic['number']} {topic['page']}.html\n" for topic in self.topics)
        self.assertTrue(expected.startswith("1000 overview.html\n"))
        for _, _, staged in self.languages():
            self.assertEqual(read_bytes(os.path.join(staged, "help/topics.txt")).decode("ascii"), expected)

    # --- the help file ---

    def test_a_help_file_holds_each_page_in_the_code_page_that_it_names(self):
        for name, language, _ in self.languages():
            folder = self.extracted(name)
            for page in self.pages:
                inside = Page(read_bytes(os.path.join(folder, page)).decode(language["codec"]))
                browser = self.browser_page(name, page)
                self.assertEqual(inside.problems, [], page)
                self.assertEqual(inside.charset, language["charset"])
                self.assertEqual(inside.titles, browser.titles)
                self.assertEqual(inside.elements, browser.elements)
                self.assertEqual(inside.text(), browser.text())
                self.assertLessEqual(set(inside.links), set(self.pages))
            self.assertEqual(read_bytes(os.path.join(folder, "style.css")), read_bytes(os.path.join(TREE, "Help/style.css")))

    def test_a_help_file_maps_every_number_to_its_page(self):
        expected = {(topic["number"], topic["page"] + ".html") for topic in self.topics}
        for name, _, _ in self.languages():
            file = self.help_file(name)
            base = os.path.splitext(file)[0]
            chmls("extractalias", file, base, "N")
            aliases = dict(line.split("=") for line in read_bytes(base + ".ali").decode("ascii").split())
            numbers = dict(line.split()[1:] for line in read_bytes(base + ".h").decode("ascii").splitlines() if line)
            self.assertEqual({(int(numbers[alias]), page) for alias, page in aliases.items()}, expected)

    def test_every_topic_stands_in_the_contents_in_order_and_in_the_index(self):
        for name, language, _ in self.languages():
            folder = self.extracted(name)
            contents = Sitemap(read_bytes(os.path.join(folder, "vantrel.hhc")).decode(language["codec"])).entries
            titled = [[topic["title"][name], topic["page"] + ".html"] for topic in self.topics]
            self.assertEqual(contents, titled)
            index = Sitemap(read_bytes(os.path.join(folder, "vantrel.hhk")).decode(language["codec"])).entries
            for entry in titled:
                self.assertIn(entry, index)
            for topic in self.topics:
                for word in topic["index"][name]:
                    self.assertIn([word, topic["page"] + ".html"], index)
            self.assertEqual(index, sorted(index, key=lambda entry: (entry[0].casefold(), entry)))

    def inner_file(self, name, inner):
        """A file of the container as it is: the reader's listings of them are text for people."""
        target = os.path.join(self.folder, name + "-" + inner.strip("#"))
        chmls("extract", self.help_file(name), "/" + inner, target)
        return read_bytes(target)

    def system_records(self, name):
        """What a viewer reads first, by the numbers of the records."""
        data = self.inner_file(name, "#SYSTEM")
        records = {}
        at = 4
        while at < len(data):
            code, length = struct.unpack_from("<HH", data, at)
            records[code] = data[at + 4:at + 4 + length]
            at += 4 + length
        return records

    def test_a_help_file_knows_its_language_title_and_first_page(self):
        for name, language, _ in self.languages():
            system = self.system_records(name)
            locale, double_byte = struct.unpack_from("<II", system[4])
            self.assertEqual(locale, language["lcid"])
            self.assertEqual(double_byte, len("\u5b57".encode(language["codec"], "ignore")) == 2)
            self.assertEqual(system[3].rstrip(b"\0"), language["title"].encode(language["codec"]))
            self.assertEqual(system[2].rstrip(b"\0"), b"overview.html")

    def test_the_viewer_offers_a_search_where_words_are_indexed(self):
        searching = []
        for name, _, _ in self.languages():
            count, size = struct.unpack_from("<II", windows := self.inner_file(name, "#WINDOWS"))
            self.assertEqual((count, size, len(windows)), (1, 196, 8 + 196))
            style, = struct.unpack_from("<I", windows, 8 + 0x10)
            first, = struct.unpack_from("<I", windows, 8 + 0x68)
            strings = self.inner_file(name, "#STRINGS")
            indexed = b"$FIftiMain" in chmls("list", self.help_file(name))
            self.assertEqual(bool(style & 0x400), indexed)
            self.assertEqual(strings[first:strings.index(b"\0", first)], b"overview.html")
            searching += [name] if indexed else []
        self.assertEqual(searching, ["english", "french"])

    def test_the_same_sources_make_the_same_help_file(self):
        for name, _, staged in self.languages():
            again = os.path.join(self.folder, name, "again.chm")
            work = os.path.join(self.folder, "work with a longer name", name)
            result = self.make_help("chm", TREE, name, work, again, os.path.join(self.folder, "again.d"))
            self.assertEqual(result.returncode, 0, result.stderr)
            self.assertEqual(read_bytes(again), read_bytes(os.path.join(staged, "vantrel.chm")))

    # --- mistakes in the sources ---

    def copied_tree(self):
        tree = os.path.join(self.folder, "tree")
        shutil.rmtree(tree, ignore_errors=True)
        shutil.copytree(os.path.join(TREE, "Help"), os.path.join(tree, "Help"))
        shutil.copytree(os.path.join(TREE, "Lang/english"), os.path.join(tree, "Lang/english"))
        return tree

    def assert_refused(self, tree, reason):
        target = os.path.join(self.folder, "out")
        for command in (["pages", tree, "english", target, target + ".d"],
                        ["chm", tree, "english", target + "-work", target + ".chm", target + ".d"]):
            result = self.make_help(*command)
            self.assertEqual(result.returncode, 1, command)
            self.assertRegex(result.stderr, reason)
            self.assertNotIn("Traceback", result.stderr)
            self.assertFalse(os.path.exists(os.path.join(target, "topics.txt")))
            self.assertFalse(os.path.exists(target + ".chm"))

    def test_a_mistake_in_a_page_stops_the_build_and_is_told(self):
        for text, reason in (
            ("<p>Not closed", "log.html: mismatched tag"),
            ('<p><a href="nowhere.html">x</a></p>', "log.html: there is no page nowhere.html"),
            ('<p><a href="https://example.org/">x</a></p>', "log.html: there is no page https"),
            ("<p>Press <b>x</b></p>", "log.html: <b> is not among the elements"),
            ('<p><ui text="NoSuchText"/></p>', "log.html: the program has no text NoSuchText"),
        ):
            tree = self.copied_tree()
            with open(os.path.join(tree, "Help/english/log.html"), "w", encoding="utf-8") as file:
                file.write(text)
            self.assert_refused(tree, reason)

    def test_a_page_that_is_missing_or_in_no_line_of_the_table_stops_the_build(self):
        tree = self.copied_tree()
        os.remove(os.path.join(tree, "Help/english/log.html"))
        self.assert_refused(tree, "log.html")
        tree = self.copied_tree()
        shutil.copy(os.path.join(tree, "Help/english/log.html"), os.path.join(tree, "Help/english/left.html"))
        self.assert_refused(tree, "in no line of topics.toml: left.html")

    def test_a_number_that_is_given_twice_stops_the_build(self):
        tree = self.copied_tree()
        path = os.path.join(tree, "Help/topics.toml")
        table = read_bytes(path).replace(b"number = 1210\n", b"number = 1000\n")
        with open(path, "wb") as file:
            file.write(table)
        self.assert_refused(tree, "two topics have the same number")


if __name__ == "__main__":
    TREE, STAGE = (os.path.abspath(argument) for argument in sys.argv[1:3])
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
