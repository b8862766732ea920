#!/usr/bin/env python3
"""Makes sources from the texts of the program.

    make_texts.py ids <texts folder> <header>      the enum of all numbers
    make_texts.py table <texts folder> <source>    one language as a table in C++
    make_texts.py rc <texts folder> <script>       one language as a string table for a resource compiler

A texts folder holds `*.texts`, one file for each part of the program. A line of one is

    <number> <Name> = <text>

or empty, or starts with `#`. In a text `\\n` and `\\t` stand for a line end and a tab, `\\s` for a
blank at its start or end, and `\\\\` for a backslash. A number or name may stand only once in a
folder. What has not changed is not written again.
"""

import os
import re
import sys

LINE = re.compile(r"(\d+) ([A-Z][A-Za-z0-9]*) =(?: (.*))?")
ESCAPES = {"n": "\n", "t": "\t", "s": " ", "\\": "\\"}
LARGEST_NUMBER = 0xFFFF  # Resource compilers have 16 bits for it.


class Failure(Exception):
    """What is wrong with a source of texts, and where."""


def unescaped(text, where):
    def replacement(match):
        if match.group(1) not in ESCAPES:
            raise Failure(f"{where}: \\{match.group(1)} stands for nothing")
        return ESCAPES[match.group(1)]
    return re.sub(r"\\(.?)", replacement, text)


def read_texts(folder):
    """(number, name, text) of a language, in the order of the numbers."""
    texts = {}
    names = {}
    for file in sorted(os.listdir(folder)):
        if not file.endswith(".texts"):
            continue
        with open(os.path.join(folder, file), encoding="utf-8") as stream:
            lines = stream.read().split("\n")
        for index, line in enumerate(lines, 1):
            where = f"{os.path.join(folder, file)}:{index}"
            if not line.strip() or line.startswith("#"):
                continue
            match = LINE.fullmatch(line)
            if match is None or line != line.rstrip():
                raise Failure(f"{where}: not of the form <number> <Name> = <text>")
            number, name = int(match.group(1)), match.group(2)
            if not 0 < number <= LARGEST_NUMBER:
                raise Failure(f"{where}: the number {number} is out of range")
            if number in texts or name in names:
                raise Failure(f"{where}: {number} {name} stands there already, at {names.get(name, texts.get(number))}")
            texts[number] = (number, name, unescaped(match.group(3) or "", where))
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


KINDS = {"ids": ids, "table": table, "rc": resource_script}


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
    kind, folder, path = arguments
    try:
        write_if_changed(path, KINDS[kind](read_texts(folder)))
    except (Failure, OSError, UnicodeDecodeError) as failure:
        print(f"make_texts.py: {failure}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
