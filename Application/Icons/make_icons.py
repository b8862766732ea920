#!/usr/bin/env python3
"""Makes one header of all icons of this folder: make_icons.py <folder> <header>

An icon is an SVG picture of 16 by 16 units. It has two colours, for each of which the program puts
in one of the user's theme: INK for lines, ACCENT for what tells the icon apart. The program's own
icon is shown outside its windows too, so it has colours of its own. What has not changed is not
written again.
"""

import os
import re
import sys
import xml.etree.ElementTree as ElementTree

INK = "#1f1f1f"
ACCENT = "#2a78d0"
OWN_COLOURS = {"program"}
NAME = re.compile(r"[a-z]+(-[a-z]+)*")
ELEMENTS = {"path", "circle"}


class Failure(Exception):
    """What is wrong with an icon."""


def checked_icon(name, text):
    if not NAME.fullmatch(name):
        raise Failure(f"{name}: a name has small letters and hyphens")
    root = ElementTree.fromstring(text)
    if root.get("viewBox") != "0 0 16 16" or root.get("width") != "16" or root.get("height") != "16":
        raise Failure(f"{name}: not of 16 by 16 units")
    for element in root:
        if element.tag.split("}")[-1] not in ELEMENTS:
            raise Failure(f"{name}: {element.tag} is not drawn by the toolkit")
    colours = set(re.findall(r'"(#[^"]*)"', text))
    if name not in OWN_COLOURS and colours != {INK, ACCENT}:
        raise Failure(f"{name}: has the colours {', '.join(sorted(colours))} instead of {INK} and {ACCENT}")
    return re.sub(r">\s+<", "><", text.strip())


def header(folder):
    lines = [
        "// Made from the pictures in Application/Icons by make_icons.py.",
        "#pragma once",
        "",
        "#include <array>",
        "#include <string_view>",
        "",
        "struct IconSource",
        "{",
        "    std::string_view name;",
        "    std::string_view svg;",
        "};",
        "",
        f'inline constexpr std::string_view IconInk = "{INK}";',
        f'inline constexpr std::string_view IconAccent = "{ACCENT}";',
        "",
        "inline constexpr std::array IconSources = {",
    ]
    for file in sorted(os.listdir(folder)):
        name, extension = os.path.splitext(file)
        if extension == ".svg":
            with open(os.path.join(folder, file), encoding="utf-8") as stream:
                lines.append(f'    IconSource{{ "{name}", R"svg({checked_icon(name, stream.read())})svg" }},')
    return "\n".join(lines + ["};", ""])


def main(arguments):
    if len(arguments) != 2:
        print(__doc__.strip(), file=sys.stderr)
        return 2
    folder, path = arguments
    try:
        text = header(folder)
    except (Failure, OSError, ElementTree.ParseError) as failure:
        print(f"make_icons.py: {failure}", file=sys.stderr)
        return 1
    if not os.path.exists(path) or open(path, encoding="utf-8").read() != text:
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as stream:
            stream.write(text)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
