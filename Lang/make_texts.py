#!/usr/bin/env python3
"""Makes sources from the texts of the program.

    make_texts.py ids <texts folder> <header>      the enum of all numbers
    make_texts.py table <texts folder> <source>    one language as a table in C++
    make_texts.py rc <texts folder> <script>       one language as a string table for a resource compiler
    make_texts.py rules <texts file> <header>      the texts of rules, for the tables of rule modules

A texts folder holds `*.texts`, one file for each part of the program. A line of one is

    <number> <Name> = <text>

or empty, or starts with `#`. In a text `\\n` and `\\t` stand for a line end and a tab, `\\s` for a
blank at its start or end, and `\\\\` for a backslash. A number or name may stand only once in a
folder. What has not changed is not written again.

The texts of rules stand in `rules-*.texts`. The program shows them by number alone, so the enum
leaves them out. Where names differ in nothing but the ends Name, Summary and Detail, or Label and
Help, their header has the set of them too, under what they have in common.
"""

import os
import re
import sys

LINE = re.compile(r"(\d+) ([A-Z][A-Za-z0-9]*) =(?: (.*))?")
ESCAPES = {"n": "\n", "t": "\t", "s": " ", "\\": "\\"}
LARGEST_NUMBER = 0xFFFF  # Resource compilers have 16 bits for it.
RULE_FILE = re.compile(r"rules-[a-z-]+\.texts")
RULE_SETS = (("RuleTextSet", ("Name", "Summary", "Detail")), ("ParamTextSet", ("Label", "Help")))


class Failure(Exception):
    """What is wrong with a source of texts, and where."""


def unescaped(text, where):
    def replacement(match):
        if match.group(1) not in ESCAPES:
            raise Failure(f"{where}: \\{match.group(1)} stands for nothing")
        return ESCAPES[match.group(1)]
    return re.sub(r"\\(.?)", replacement, text)


def read_lines(path):
    """(where, number, name, text) of each text in a file."""
    with open(path, encoding="utf-8") as stream:
        lines = stream.read().split("\n")
    for index, line in enumerate(lines, 1):
        where = f"{path}:{index}"
        if not line.strip() or line.startswith("#"):
            continue
        match = LINE.fullmatch(line)
        if match is None or line != line.rstrip():
            raise Failure(f"{where}: not of the form <number> <Name> = <text>")
        number, name = int(match.group(1)), match.group(2)
        if not 0 < number <= LARGEST_NUMBER:
            raise Failure(f"{where}: the number {number} is out of range")
        yield where, number, name, unescaped(match.group(3) or "", where)


def read_texts(folder, with_rules=True):
    """(number, name, text) of a language, in the order of the numbers."""
    texts = {}
    names = {}
    for file in sorted(os.listdir(folder)):
        if not file.endswith(".texts") or (RULE_FILE.fullmatch(file) and not with_rules):
            continue
        for where, number, name, text in read_lines(os.path.join(folder, file)):
            if number in texts or name in names:
                raise Failure(f"{where}: {number} {name} stands there already, at {names.get(name, texts.get(number))}")
            texts[number] = (number, name, text)
            names[name] = where
    if not texts:
        raise Failure(f"{folder}: holds no texts")
    return [texts[number] for number in sorted(texts)]


def cpp_literal(text):
    """A wide literal in ASCII, which no compiler reads in another code page."""
    result = ""
    for character in text:
        code = ord(character)
        simple = {"\n": "\\n", "\t": "\\t", '"': '\\"', "\\": "\\\\"}.get(character)
        if simple is None:
            simple = character if 0x20 <= code < 0x7F else f"\\U{code:08X}" if code > 0xFFFF else f"\\u{code:04X}"
        result += simple
    return f'L"{result}"'


def ids(texts):
    lines = ["#pragma once", "", "#include <cstdint>", "",
             "/// Numbers of the texts that a user reads. They are stable: language libraries, which hold",
             "/// the translations, are made against them.",
             "enum class TextId : std::uint32_t", "{"]
    lines += [f"    {name} = {number}," for number, name, _ in texts]
    return "\n".join(lines + ["};", ""])


def table(texts):
    lines = ['#include "Lang/TextTable.h"', "", "namespace", "{", "",
             "constexpr TextTableEntry Entries[] = {"]
    lines += [f"    {{ {number}, {cpp_literal(text)} }}," for number, _, text in texts]
    lines += ["};", "", "} // namespace", "", "std::span<const TextTableEntry> TextTable()", "{",
              "    return Entries;", "}", ""]
    return "\n".join(lines)


def resource_script(texts):
    lines = ["#pragma code_page(65001)", "STRINGTABLE", "BEGIN"]
    for number, _, text in texts:
        escaped = text.replace("\\", "\\\\").replace('"', '""').replace("\n", "\\n").replace("\t", "\\t")
        lines.append(f'    {number} L"{escaped}"')
    return "\n".join(lines + ["END", ""])


def rule_sets(names):
    """(type, what they have in common, names) of the sets that are whole."""
    for kind, ends in RULE_SETS:
        for name in sorted(names):
            stem = name.removesuffix(ends[0])
            members = [stem + end for end in ends]
            if stem != name and all(member in names for member in members):
                yield kind, stem, members


def rule_header(texts):
    lines = ["#pragma once", "", '#include "RuleModules/Kit/RuleText.h"', "", "namespace RuleTexts", "{", ""]
    lines += [f"inline constexpr RuleText {name} = {{ {number}, {cpp_literal(text)} }};"
              for number, name, text in texts]
    lines.append("")
    lines += [f"inline constexpr {kind} {stem} = {{ {', '.join(members)} }};"
              for kind, stem, members in rule_sets({name for _, name, _ in texts})]
    return "\n".join(lines + ["", "} // namespace RuleTexts", ""])


KINDS = {
    "ids": lambda folder: ids(read_texts(folder, with_rules=False)),
    "table": lambda folder: table(read_texts(folder)),
    "rc": lambda folder: resource_script(read_texts(folder)),
    "rules": lambda path: rule_header([entry[1:] for entry in read_lines(path)]),
}


def write_if_changed(path, content):
    try:
        with open(path, encoding="utf-8") as stream:
            if stream.read() == content:
                return
    except OSError:
        pass
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8", newline="\n") as stream:
        stream.write(content)


def main(arguments):
    if len(arguments) != 3 or arguments[0] not in KINDS:
        print(__doc__.strip(), file=sys.stderr)
        return 2
    kind, source, path = arguments
    try:
        write_if_changed(path, KINDS[kind](source))
    except (Failure, OSError, UnicodeDecodeError) as failure:
        print(f"make_texts.py: {failure}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
