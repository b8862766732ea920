#!/usr/bin/env python3
"""Checks the tree: format, layering, build lists, scripts, and clang-tidy.

    lint.py [--jobs <n>] [--tree <folder>] [<check> ...]

Runs the named checks, or all of them. Prints each finding and then one line for each
check, `passed <check>` or `failed <check>`, which also go into build/lint-results.txt.
"""

import argparse
import os
import re
import subprocess
import sys
import traceback

# Rows of the layering, lowest first. An include goes down or stays within its row.
ROWS = [
    {"Lang", "Help"},
    {"Platform"},
    {"Framework"},
    {"RuleModules"},
    {"Compound", "Utilities"},
    {"Document", "Modules"},
    {"Application", "Explorer", "Authoring", "TypeLib", "ModuleChecker"},
]
ROW_OF = {folder: row for row, folders in enumerate(ROWS) for folder in folders}

# Where all code is free of windows. In other folders it is what `vantrel_engine` builds.
ENGINE_FOLDERS = {"Platform", "Framework", "RuleModules", "Compound", "ModuleChecker"}

# The only places that know which system they are made for.
PLATFORM_SOURCES = ("Platform/Posix/", "Platform/Windows/")

PLATFORM_MACRO = re.compile(
    r"\b(_?WIN(32|64)|_WIN32_\w+|WINVER|__WIN(32|64)__|__WINDOWS__|__MINGW(32|64)__|__CYGWIN__|_MSC_VER|"
    r"__GNUC__|__clang__|__linux(__)?|linux|__gnu_linux__|__unix(__)?|unix|__APPLE__|__MACH__|__FreeBSD__|"
    r"__ANDROID__|_POSIX_\w+|__WX(MSW|GTK|GTK3|X11|OSX|MAC|UNIVERSAL)\w*__|__WINE__)\b")

SYSTEM_HEADER = re.compile(
    r"^(windows|winbase|winreg|winnls|objbase|ole2|oleauto|shlobj|shellapi|shlwapi|tlhelp32|wincrypt|unistd|dlfcn|"
    r"fcntl|pwd|langinfo|iconv|spawn|dirent|poll|fnmatch|glob|md5|sys/\w+|linux/\w+|arpa/\w+|netinet/\w+)\.h$",
    re.IGNORECASE)

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]+)[>"]', re.MULTILINE)
CONDITION = re.compile(r"^[ \t]*#[ \t]*(?:if|ifdef|ifndef|elif|elifdef|elifndef)\b((?:[^\n]*\\\n)*[^\n]*)",
                       re.MULTILINE)


class Tree:
    """The files of the tree, without what was built."""

    def __init__(self, root):
        self.root = root
        self.files = []
        for folder, folders, names in os.walk(root):
            skipped = {"__pycache__"} | ({"build", ".git"} if folder == root else set())
            folders[:] = sorted(set(folders) - skipped)
            for name in sorted(names):
                self.files.append(os.path.relpath(os.path.join(folder, name), root).replace(os.sep, "/"))

    def path(self, file):
        return os.path.join(self.root, file)

    def read(self, file):
        with open(self.path(file), encoding="utf-8") as stream:
            return stream.read()

    def ending(self, *suffixes):
        return [file for file in self.files if file.endswith(suffixes)]

    def cpp(self):
        return self.ending(".cpp", ".h")

    def build_lists(self):
        return [file for file in self.files if file.split("/")[-1] == "CMakeLists.txt"]


def without_comments(text):
    """C++ text with comments blanked out; texts in quotes stay, lines keep their numbers."""
    def replacement(match):
        token = match.group(0)
        return re.sub(r"[^\n]", " ", token) if token.startswith("/") else token
    return re.sub(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])*\'', replacement, text, flags=re.DOTALL)


def line_of(text, position):
    return text.count("\n", 0, position) + 1


def includes(tree, file):
    """Line, kind of bracket and name of each include."""
    text = without_comments(tree.read(file))
    return [(line_of(text, match.start(1)), match.group(1), match.group(2)) for match in INCLUDE.finditer(text)]


def is_wx(name):
    return name.startswith("wx/")


def run(command, **options):
    return subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          text=True, errors="replace", check=False, **options)


# Each check takes the tree and the options and yields its findings, one text each.

def check_format(tree, options):
    """The formatter of a fixed version would change nothing."""
    files = tree.cpp()
    for start in range(0, len(files), 50):
        command = ["clang-format-14", "--dry-run", "-Werror", "--style=file", *files[start:start + 50]]
        result = run(command, cwd=tree.root)
        if result.returncode != 0:
            yield result.stdout.strip() or f"clang-format-14 ended with status {result.returncode}"


def check_platform(tree, options):
    """No source but those of Platform/Posix and Platform/Windows asks for the system."""
    for file in tree.cpp():
        if file.startswith(PLATFORM_SOURCES):
            continue
        text = without_comments(tree.read(file))
        for match in CONDITION.finditer(text):
            macro = PLATFORM_MACRO.search(match.group(1))
            if macro:
                yield f"{file}:{line_of(text, match.start(1))}: asks for the platform ({macro.group(0)})"
        if file.split("/")[0] not in ROW_OF:
            continue
        for line, _, name in includes(tree, file):
            if SYSTEM_HEADER.match(name):
                yield f"{file}:{line}: includes {name}, which only Platform's sources may"


def check_layers(tree, options):
    """Includes go down or sideways between the layers."""
    for file in tree.cpp():
        folder = file.split("/")[0]
        if folder not in ROW_OF:
            continue
        for line, bracket, name in includes(tree, file):
            where = f"{file}:{line}"
            if ".." in name.split("/"):
                yield f"{where}: {name}: give the path from the root of the tree"
                continue
            if name.startswith("Vantrel/"):
                target = "Framework"
                if bracket == '"':
                    yield f'{where}: "{name}": framework headers are included with <>'
            elif bracket == "<":
                continue
            else:
                target = name.split("/")[0]
                if target in ("tests", "fuzz", "bench"):
                    yield f"{where}: {name}: the program includes nothing of its tests"
                if target not in ROW_OF:
                    continue
                if folder == "RuleModules" and target == "Framework":
                    yield f"{where}: {name}: a rule module sees only the framework's public headers"
            if ROW_OF[target] > ROW_OF[folder]:
                yield f"{where}: {folder} includes {name}, which lies above it"
            elif ROW_OF[target] == ROW_OF["RuleModules"] and folder != "RuleModules":
                yield f"{where}: {name}: rule modules are loaded, not included"


def built_by(tree, function):
    """Sources, as paths from the root, that the build lists give to a function."""
    sources = set()
    for file in tree.build_lists():
        text = re.sub(r"#[^\n]*", "", tree.read(file))
        for match in re.finditer(r"\b" + function + r"\s*\(([^)]*)\)", text):
            for word in match.group(1).split():
                if word.endswith((".cpp", ".h")):
                    sources.add(os.path.normpath(os.path.join(os.path.dirname(file), word)))
    return sources


def check_engines(tree, options):
    """Engines include no window, neither directly nor through a header of ours."""
    engines = built_by(tree, "vantrel_engine") | built_by(tree, "vantrel_module")
    engines |= {file for file in tree.cpp() if file.split("/")[0] in ENGINE_FOLDERS}
    known = set(tree.files)
    seen = set()
    pending = [(file, file) for file in sorted(engines & known)]
    while pending:
        file, engine = pending.pop()
        if file in seen:
            continue
        seen.add(file)
        for line, _, name in includes(tree, file):
            if is_wx(name):
                through = "" if file == engine else f" (reached from {engine})"
                yield f"{file}:{line}: an engine includes {name}{through}"
            for candidate in (name, os.path.join(os.path.dirname(file), name), "Framework/include/" + name):
                candidate = os.path.normpath(candidate)
                if candidate in known:
                    pending.append((candidate, engine))
                    break


def check_headers(tree, options):
    """Each header says `#pragma once` before anything else."""
    for file in tree.ending(".h", ".h.in"):
        code = without_comments(tree.read(file)).split("\n")
        first = next((line.strip() for line in code if line.strip()), "")
        if first != "#pragma once":
            yield f"{file}: does not begin with #pragma once"


def check_lists(tree, options):
    """Each source, and so each test, is named in a build list at or above its folder."""
    named = {}
    for file in tree.build_lists() + tree.ending("/Sources.cmake"):
        text = re.sub(r"#[^\n]*", "", tree.read(file))
        # Names may be given with the folder in front, and that of the platform by its variable.
        text = re.sub(r"\$\{CMAKE_CURRENT_(SOURCE|LIST)_DIR\}/", "", text).replace("${VANTREL_PLATFORM}", "Posix")
        named[os.path.dirname(file)] = named.get(os.path.dirname(file), "") + text
    for file in tree.ending(".cpp"):
        parts = file.split("/")
        found = False
        for depth in range(len(parts)):
            # A list that another includes names its sources from the other's folder.
            names = "|".join(re.escape("/".join(parts[count:])) for count in range(depth + 1))
            text = named.get("/".join(parts[:depth]), "")
            found = found or re.search(rf"(?<![\w/.])(?:{names})(?![\w.])", text) is not None
        if not found:
            yield f"{file}: is in no CMakeLists.txt"


def check_scripts(tree, options):
    """Shell scripts parse and can be started; Python scripts compile."""
    for file in tree.files:
        path = tree.path(file)
        if os.path.islink(path) or os.path.getsize(path) == 0:
            continue
        with open(path, "rb") as stream:
            first = stream.readline(200)
        if file.endswith(".sh") or re.match(rb"#!.*\b(ba)?sh\b", first):
            result = run(["bash", "-n", path])
            if result.returncode != 0:
                yield result.stdout.strip()
        elif file.endswith(".py") or re.match(rb"#!.*\bpython", first):
            try:
                compile(tree.read(file), file, "exec")
            except (SyntaxError, ValueError) as error:
                yield f"{file}: {error}"
        else:
            continue
        if first.startswith(b"#!") and not os.access(path, os.X_OK):
            yield f"{file}: is a script that may not be executed"


def check_text(tree, options):
    """Our own text files are UTF-8, end with a line end, and have no tabs or blanks at line ends."""
    for file in tree.ending(".cpp", ".h", ".h.in", ".texts", ".toml", ".html", ".css", ".cmake", ".sh", ".py", "CMakeLists.txt", ".editorconfig",
                            "Makefile", ".ci/run"):
        with open(tree.path(file), "rb") as stream:
            data = stream.read()
        try:
            data.decode("utf-8")
        except UnicodeDecodeError as error:
            yield f"{file}: {error}"
            continue
        if data and not data.endswith(b"\n"):
            yield f"{file}: does not end with a line end"
        for number, line in enumerate(data.split(b"\n"), 1):
            if line.endswith((b" ", b"\t", b"\r")):
                yield f"{file}:{number}: blank at the end of the line"
            if b"\t" in line and not file.endswith("Makefile"):
                yield f"{file}:{number}: tab"


def check_tidy(tree, options):
    """clang-tidy finds nothing in any source."""
    # Sources that the build makes are there only once it has run.
    build = os.path.join(tree.root, "build", "test")
    for command in (["cmake", "--preset", "test"],
                    ["cmake", "--build", "--preset", "test", "--parallel", str(options.jobs)]):
        result = run(command, cwd=tree.root)
        if result.returncode != 0:
            yield f"{' '.join(command)} failed:\n" + "\n".join(result.stdout.splitlines()[-60:])
            return
    result = run([sys.executable, os.path.join(os.path.dirname(os.path.abspath(__file__)), "run-tidy.py"),
                  tree.root, build, str(options.jobs)])
    print(result.stdout, end="")
    if result.returncode != 0:
        yield f"run-tidy.py ended with status {result.returncode}"


CHECKS = {
    "format": check_format,
    "platform": check_platform,
    "layers": check_layers,
    "engines": check_engines,
    "headers": check_headers,
    "lists": check_lists,
    "scripts": check_scripts,
    "text": check_text,
    "tidy": check_tidy,
}


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--jobs", type=int, default=os.cpu_count() or 1)
    parser.add_argument("--tree", default=os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
    parser.add_argument("checks", nargs="*", metavar="check", help=", ".join(CHECKS))
    options = parser.parse_args()
    for name in options.checks:
        if name not in CHECKS:
            parser.error(f"there is no check {name}")

    tree = Tree(os.path.abspath(options.tree))
    results = []
    for name in options.checks or CHECKS:
        try:
            findings = list(CHECKS[name](tree, options))
        # A check that breaks has not passed, and the others still tell what they find.
        except Exception:  # pylint: disable=broad-except
            findings = [traceback.format_exc()]
        for finding in findings:
            print(finding)
        results.append(("failed " if findings else "passed ") + name)
        print(f"lint: {results[-1]}", flush=True)

    os.makedirs(os.path.join(tree.root, "build"), exist_ok=True)
    with open(os.path.join(tree.root, "build", "lint-results.txt"), "w", encoding="utf-8") as stream:
        stream.write("".join(result + "\n" for result in results))
    return 1 if any(result.startswith("failed") for result in results) else 0


if __name__ == "__main__":
    sys.exit(main())
