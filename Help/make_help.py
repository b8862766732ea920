#!/usr/bin/env python3
"""Makes the help of one language, and the numbers of its topics for the program.

    make_help.py topics <topics.toml> <header>
        The topics as an enumeration.
    make_help.py pages <tree> <language> <folder> <dependency file>
        The pages for a browser, their style sheet, and topics.txt with a line
        `<number> <page>` for each topic.
    make_help.py chm <tree> <language> <work folder> <help file> <dependency file>
        The help file, compiled by chmcmd.

Help/topics.toml names the topics and languages. The text of a topic is what stands between the
title and the end of its page, in Help/<language>/<page>.html, well-formed and in UTF-8. What the
program itself says is named, not repeated: <ui text="CommandLog"/> becomes that text of
Lang/<language>.
"""

import html
import os
import re
import subprocess
import sys
import tomllib
import xml.etree.ElementTree as ElementTree

sys.dont_write_bytecode = True  # nothing is left in the tree
HERE = os.path.dirname(os.path.abspath(__file__))
sys.path[:0] = [HERE, os.path.join(HERE, "..", "Lang")]
import chm_file  # pylint: disable=wrong-import-position
import make_texts  # pylint: disable=wrong-import-position

ELEMENTS = {"page", "h2", "p", "ul", "ol", "li", "table", "tr", "th", "td", "strong", "em", "kbd", "code", "a", "ui"}
FILE_NAME = "vantrel"

# The window of the viewer: panes beside the page that follow it, favourites, the title of the
# help file, and the place where the user left it; the search where there is one.
NAVIGATION = 0x20 | 0x100 | 0x1000 | 0x2000 | 0x40000
SEARCH = 0x400 | 0x20000
# Show and hide the panes, back, forward, home, options, print.
BUTTONS = 0x2 | 0x4 | 0x8 | 0x40 | 0x1000 | 0x2000


class HelpError(Exception):
    """What is wrong with the sources, for the one who changes them."""


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def write(path, data):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as file:
        file.write(data)


def load_topics(path):
    with open(path, "rb") as file:
        return tomllib.load(file)


class Help:
    """The help of one language."""

    def __init__(self, tree, language):
        self.folder = os.path.join(tree, "Help")
        self.table = load_topics(os.path.join(self.folder, "topics.toml"))
        self.topics = self.table["topic"]
        self.language = self.table["language"][language]
        self.name = language
        self.sources = [os.path.join(self.folder, "topics.toml"), os.path.join(self.folder, "style.css")]
        self.texts = self.program_texts(os.path.join(tree, "Lang", language))
        self.pages = {topic["page"] for topic in self.topics}
        self.check_topics()

    def check_topics(self):
        for key in ("number", "name", "page"):
            values = [topic[key] for topic in self.topics]
            if len(set(values)) != len(values):
                raise HelpError(f"topics.toml: two topics have the same {key}")
        for topic in self.topics:
            if not re.fullmatch(r"[a-z0-9-]+", topic["page"]):
                raise HelpError(f"topics.toml: {topic['page']} is no name for a page")
            if topic.get("parent", topic["page"]) not in self.pages:
                raise HelpError(f"topics.toml: {topic['page']} stands below {topic['parent']}, which there isn't")
        folder = os.path.join(self.folder, self.name)
        stray = {name for name in os.listdir(folder) if name.removesuffix(".html") not in self.pages}
        if stray:
            raise HelpError(f"Help/{self.name}: in no line of topics.toml: {' '.join(sorted(stray))}")

    def program_texts(self, folder):
        """The texts of the program by name, without what only menus need."""
        self.sources += [os.path.join(folder, name) for name in sorted(os.listdir(folder)) if name.endswith(".texts")]
        texts = {}
        for _, name, text in make_texts.read_texts(folder):
            # Where letters that choose an item are of another script, they stand in brackets.
            text = re.sub(r"\s*\(&.\)", "", text.split("\t")[0]).replace("&", "")
            texts[name] = text.removesuffix("...").removesuffix("\u2026").rstrip(":\uff1a \u00a0")
        return texts

    def title(self, topic):
        return topic["title"][self.name]

    def body(self, topic):
        """The text of a topic as elements."""
        path = os.path.join(self.folder, self.name, topic["page"] + ".html")
        self.sources.append(path)
        try:
            page = ElementTree.fromstring(f"<page>{read(path)}</page>")
        except ElementTree.ParseError as error:
            raise HelpError(f"{path}: {error}") from error
        for element in page.iter():
            if element.tag not in ELEMENTS:
                raise HelpError(f"{path}: <{element.tag}> is not among the elements of a page")
            if element.tag == "ui":
                name = element.attrib.pop("text")
                if name not in self.texts:
                    raise HelpError(f"{path}: the program has no text {name}")
                element.tag = "strong"
                element.text = self.texts[name]
            if element.tag == "a" and element.get("href", "").removesuffix(".html") not in self.pages:
                raise HelpError(f"{path}: there is no page {element.get('href')}")
        return page

    def page(self, topic, charset, navigation):
        """A whole page as text. `navigation` stands before what the page says."""
        body = self.body(topic)
        body.text = (body.text or "").lstrip()
        inner = ElementTree.tostring(body, encoding="unicode", method="html")
        inner = inner.removeprefix("<page>").removesuffix("</page>").strip()
        title = html.escape(self.title(topic))
        return (
            "<!DOCTYPE html>\n"
            f'<html lang="{self.language["tag"]}">\n'
            "<head>\n"
            '<meta http-equiv="X-UA-Compatible" content="IE=edge">\n'
            f'<meta http-equiv="Content-Type" content="text/html; charset={charset}">\n'
            '<meta name="viewport" content="width=device-width, initial-scale=1">\n'
            '<meta name="color-scheme" content="light dark">\n'
            f"<title>{title}</title>\n"
            '<link rel="stylesheet" type="text/css" href="style.css">\n'
            "</head>\n"
            "<body>\n"
            f"{navigation}"
            '<div class="page">\n'
            f"<h1>{title}</h1>\n"
            f"{inner}\n"
            "</div>\n"
            "</body>\n"
            "</html>\n"
        )

    def contents(self, parent, item):
        """The contents below a topic (None: all) as a list of `item` texts."""
        lines = []
        for topic in self.topics:
            if topic.get("parent") == parent:
                lines.append(f"<li>{item(topic)}")
                below = self.contents(topic["page"], item)
                lines += ["<ul>", *below, "</ul>"] if below else []
                lines.append("</li>")
        return lines

    def navigation(self, current):
        """The contents for a browser, which has no pane of its own for them."""

        def item(topic):
            title = html.escape(self.title(topic))
            return f"<strong>{title}</strong>" if topic is current else f'<a href="{topic["page"]}.html">{title}</a>'

        lines = "\n".join(self.contents(None, item))
        heading = html.escape(self.language["contents"])
        return f'<div class="contents" role="navigation">\n<p>{heading}</p>\n<ul>\n{lines}\n</ul>\n</div>\n'

    def make_pages(self, folder):
        os.makedirs(folder, exist_ok=True)
        made = {"style.css": read(os.path.join(self.folder, "style.css")).encode("utf-8")}
        for topic in self.topics:
            text = self.page(topic, "utf-8", self.navigation(topic))
            made[topic["page"] + ".html"] = text.encode("utf-8")
        for name in os.listdir(folder):
            if name.endswith(".html") and name not in made:
                os.remove(os.path.join(folder, name))  # of a topic that is no more
        made["topics.txt"] = "".join(f"{topic['number']} {topic['page']}.html\n" for topic in self.topics).encode("ascii")
        for name, data in made.items():
            write(os.path.join(folder, name), data)

    # --- the help file ---

    def coded(self, text):
        """In the code page of the language; viewers read contents and index in no other."""
        return text.encode(self.language["codec"], "xmlcharrefreplace")

    def sitemap_item(self, name, page):
        return (
            f'<OBJECT type="text/sitemap"><param name="Name" value="{html.escape(name)}">'
            f'<param name="Local" value="{page}.html"></OBJECT>'
        )

    def sitemap(self, lines):
        head = '<!DOCTYPE HTML PUBLIC "-//IETF//DTD HTML//EN">\n<HTML>\n<HEAD>\n</HEAD>\n<BODY>\n<UL>\n'
        return self.coded(head + "\n".join(lines) + "\n</UL>\n</BODY>\n</HTML>\n")

    def index(self):
        entries = set()
        for topic in self.topics:
            entries |= {(word, topic["page"]) for word in [self.title(topic), *topic.get("index", {}).get(self.name, [])]}
        ordered = sorted(entries, key=lambda entry: (entry[0].casefold(), entry))
        return [f"<LI>{self.sitemap_item(*entry)}" for entry in ordered]

    def contents_lines(self):
        lines = self.contents(None, lambda topic: self.sitemap_item(self.title(topic), topic["page"]))
        return [line.replace("<li>", "<LI>") for line in lines if line != "</li>"]

    def project(self):
        title = self.language["title"]
        first = self.topics[0]["page"] + ".html"
        search = self.language["search"]
        navigation = NAVIGATION | (SEARCH if search else 0)
        files = "\n".join([*(topic["page"] + ".html" for topic in self.topics), "style.css"])
        return self.coded(
            "[OPTIONS]\n"
            "Compatibility=1.1 or later\n"
            f"Compiled file={FILE_NAME}.chm\n"
            f"Contents file={FILE_NAME}.hhc\n"
            f"Index file={FILE_NAME}.hhk\n"
            f"Default topic={first}\n"
            f"Title={title}\n"
            f"Language=0x{self.language['lcid']:X}\n"
            "Binary Index=No\n"
            "Binary TOC=No\n"
            f"Full-text search={'Yes' if search else 'No'}\n"
            "Default Window=main\n"
            "\n[WINDOWS]\n"
            f'main="{title}","{FILE_NAME}.hhc","{FILE_NAME}.hhk","{first}","{first}",,,,,'
            f"0x{navigation:X},260,0x{BUTTONS:X},[80,60,1080,760],,,,,,,0\n"
            f"\n[FILES]\n{files}\n"
        )

    def make_chm(self, folder, target):
        made = {
            FILE_NAME + ".hhp": self.project(),
            FILE_NAME + ".hhc": self.sitemap(self.contents_lines()),
            FILE_NAME + ".hhk": self.sitemap(self.index()),
            "style.css": read(os.path.join(self.folder, "style.css")).encode("utf-8"),
        }
        for topic in self.topics:
            made[topic["page"] + ".html"] = self.coded(self.page(topic, self.language["charset"], ""))
        for name, data in made.items():
            write(os.path.join(folder, name), data)
        compiled = os.path.join(folder, FILE_NAME + ".chm")
        strings = os.path.join(folder, "strings")
        for path in (compiled, strings):
            if os.path.exists(path):
                os.remove(path)
        run("chmcmd", "--no-html-scan", FILE_NAME + ".hhp", cwd=folder, made=compiled)
        run("chmls", "extract", FILE_NAME + ".chm", "/#STRINGS", "strings", cwd=folder, made=strings)
        with open(compiled, "rb") as file:
            data = file.read()
        with open(strings, "rb") as file:
            texts = file.read()
        pages = [(topic["number"], topic["page"] + ".html") for topic in self.topics]
        write(target, chm_file.finished(data, texts, pages, not self.language["search"]))


def run(*command, cwd, made):
    """Runs a program that says by its file, not by its status, whether it has done its work."""
    environment = {**os.environ, "LC_ALL": "C.UTF-8"}  # they stop at characters that the locale lacks
    result = subprocess.run(command, cwd=cwd, env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
    said = result.stdout.decode("utf-8", "replace")
    if result.returncode != 0 or not os.path.exists(made) or "does not exist" in said:
        raise HelpError(f"{' '.join(command)} failed:\n{said}")


def make_header(topics):
    lines = "".join(f"    {topic['name']} = {topic['number']},\n" for topic in topics)
    return (
        "#pragma once\n\n"
        "/// The topics of the help by their numbers; made from Help/topics.toml.\n"
        f"enum class HelpTopic : unsigned int\n{{\n{lines}}};\n"
    )


def write_dependencies(path, target, sources):
    names = " ".join(source.replace(" ", "\\ ") for source in sources)
    write(path, f"{target}: {names}\n".encode())


def main():
    command, *arguments = sys.argv[1:] or [""]
    if command == "topics" and len(arguments) == 2:
        write(arguments[1], make_header(load_topics(arguments[0])["topic"]).encode())
    elif command == "pages" and len(arguments) == 4:
        made = Help(*arguments[:2])
        made.make_pages(arguments[2])
        write_dependencies(arguments[3], os.path.join(arguments[2], "topics.txt"), made.sources)
    elif command == "chm" and len(arguments) == 5:
        made = Help(*arguments[:2])
        made.make_chm(*arguments[2:4])
        write_dependencies(arguments[4], arguments[3], made.sources)
    else:
        print(__doc__, file=sys.stderr)
        return 2
    return 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except (HelpError, make_texts.Failure, OSError, ValueError) as problem:
        print(f"make_help: {problem}", file=sys.stderr)
        sys.exit(1)
