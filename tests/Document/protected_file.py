"""Writes and checks protected rule files by the rules of the format alone.

    protected_file.py write <rule file> <password file>
    protected_file.py check <rule file> <password file>

The password file holds the password as UTF-8. `write` makes a rule file with that password
and three rules; `check` ends with 1, and says why, if the file doesn't carry the password
and the digest that it should.
"""

import base64
import hashlib
import shutil
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

ROOT_ATTRIBUTES = ["Name", "Createdby", "CreatedOn", "Unit", "AngularUnit", "Version", "Password", "RulesData"]
LINE_CHARACTERS = 76

RULES = [
    ("Rule", {"RuleModule": "VSTA Rule", "RuleName": "First"}, []),
    ("Rule", {"RuleModule": "VSTA Rule", "RuleName": "R\u00e8gle \u65e5\u672c \U0001f600",
              "Summary": "Text with <, >, & and \" and ' in\ttwo\nlines", "Unknown": "kept"},
     [("Unknown", {"Depth": "2"}, [("Deeper", {}, [])])]),
    ("Rule", {"RuleModule": "Interactive User Defined Rule", "RuleName": ""}, []),
]


def pack(password):
    """The attribute's text: two characters of the base64 text make one."""
    data = (password + "\0").encode("utf-16-le")
    encoded = base64.b64encode(data).decode("ascii")
    # Only whole groups of three bytes make lines; a last, shorter group goes on with the last.
    whole = len(data) // 3 * 4
    text = ""
    for start in range(0, whole, LINE_CHARACTERS):
        line = encoded[start:min(start + LINE_CHARACTERS, whole)]
        text += line + ("\r\n" if len(line) == LINE_CHARACTERS else "")
    text += encoded[whole:]
    return text.encode("ascii").decode("utf-16-le")


def unpack(packed):
    data = base64.b64decode(packed.encode("utf-16-le"))
    return data.decode("utf-16-le").partition("\0")[0]


def escaped(text):
    """The text of an attribute, in which a > needs no escape."""
    for plain, markup in (("&", "&amp;"), ("<", "&lt;"), ('"', "&quot;")):
        text = text.replace(plain, markup)
    return "".join(f"&#{ord(character):02};" if ord(character) < 0x20 else character for character in text)


def markup_of(element):
    """The compact markup that a digest is taken over."""
    attributes = "".join(f' {name}="{escaped(value)}"' for name, value in element.attrib.items())
    children = "".join(markup_of(child) for child in element)
    return f"<{element.tag}{attributes}>{children}</{element.tag}>" if children else f"<{element.tag}{attributes}/>"


def digest_of(elements):
    return hashlib.md5("".join(markup_of(element) for element in elements).encode("utf-16-le")).hexdigest()


def make_element(name, attributes, children):
    element = ElementTree.Element(name, attributes)
    element.extend(make_element(*child) for child in children)
    return element


def write(path, password):
    rules = [make_element(*rule) for rule in RULES]
    values = ["", "", "", "3", "1", "v3.3", pack(password), digest_of(rules)]
    root = ElementTree.Element("Lumeq", dict(zip(ROOT_ATTRIBUTES, values)))
    root.extend(rules)
    # Another indentation than the program's, which no digest may notice.
    ElementTree.indent(root, "\t")
    ElementTree.ElementTree(root).write(path, encoding="utf-8", xml_declaration=True)


def output_of(command, data):
    """What a tool makes of the data; None where the tool is not installed."""
    if shutil.which(command[0]) is None:
        return None
    return subprocess.run(command, input=data, stdout=subprocess.PIPE, check=True).stdout


def check(path, password):
    root = ElementTree.parse(path).getroot()
    yield "attributes", list(root.attrib), ROOT_ATTRIBUTES
    packed = root.get("Password")
    rules = root.findall("Rule")
    yield "number of rules", len(rules), len(RULES)
    yield "password", unpack(packed), password
    yield "packed password", packed, pack(password)
    yield "digest", root.get("RulesData"), digest_of(rules)
    # The same by programs that have nothing to do with this one.
    decoded = output_of(["base64", "--decode", "--ignore-garbage"], packed.encode("utf-16-le"))
    if decoded is not None:
        yield "password by base64", decoded, (password + "\0").encode("utf-16-le")
    hashed = output_of(["openssl", "md5", "-r"], "".join(map(markup_of, rules)).encode("utf-16-le"))
    if hashed is not None:
        yield "digest by openssl", hashed.decode().split()[0], root.get("RulesData")


def main():
    if len(sys.argv) != 4 or sys.argv[1] not in ("write", "check"):
        print(__doc__, file=sys.stderr)
        return 2
    with open(sys.argv[3], encoding="utf-8", newline="") as file:
        password = file.read()
    if sys.argv[1] == "write":
        write(sys.argv[2], password)
        return 0
    wrong = [(what, found, wanted) for what, found, wanted in check(sys.argv[2], password) if found != wanted]
    for what, found, wanted in wrong:
        print(f"{what}: {found!r} where {wanted!r} should be", file=sys.stderr)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
