#!/usr/bin/env python3
"""Runs clang-tidy on every source of a build.

    run-tidy.py <tree> <build folder> <jobs>

What was found clean is remembered in the user's cache folder under a digest of all that the
answer depends on, so that a second run looks only at what has changed, in another clone too.
"""

import concurrent.futures
import hashlib
import json
import os
import re
import subprocess
import sys
import time

TIDY = "clang-tidy-14"
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*[<"]([^>"]+)[>"]', re.MULTILINE)

# Before the first line of a finding; its notes belong to it.
FINDING = re.compile(r"^(?=/[^\n]*: (?:error|warning): )", re.MULTILINE)


# A month; marks that no run has asked for in that time are removed.
KEPT_SECONDS = 30 * 24 * 3600


def cache_folder():
    """Where marks are kept; made if it isn't there. Old ones go."""
    base = os.environ.get("XDG_CACHE_HOME") or os.path.expanduser("~/.cache")
    folder = os.path.join(base, "vantrel-tidy")
    os.makedirs(folder, exist_ok=True)
    oldest = time.time() - KEPT_SECONDS
    for entry in os.scandir(folder):
        if entry.stat().st_mtime < oldest:
            os.unlink(entry.path)
    return folder


def installed():
    """What tells one state of the system's headers from another."""
    with open("/var/lib/dpkg/status", "rb") as stream:
        return hashlib.sha256(stream.read()).hexdigest()


def digest(tree, path, folders, common):
    """Of the source, every header of ours that it reaches, and what they have in common. Where the tree is
    doesn't count."""
    seen = {}
    pending = [path]
    while pending:
        file = pending.pop()
        if file in seen:
            continue
        with open(file, "rb") as stream:
            data = stream.read()
        seen[file] = hashlib.sha256(data).hexdigest()
        for name in INCLUDE.findall(data.decode("utf-8", "replace")):
            for folder in [os.path.dirname(file), *folders]:
                candidate = os.path.normpath(os.path.join(folder, name))
                if os.path.isfile(candidate):
                    pending.append(candidate)
                    break
    text = common + "".join(f"{file} {value}\n" for file, value in sorted(seen.items()))
    text = text.replace(tree + os.sep, "").replace(tree, ".")
    return hashlib.sha256(text.encode()).hexdigest()


def main():
    if len(sys.argv) != 4:
        print(__doc__, file=sys.stderr)
        return 2
    tree, build, jobs = os.path.realpath(sys.argv[1]), os.path.realpath(sys.argv[2]), int(sys.argv[3])

    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as stream:
        commands = {}
        for entry in json.load(stream):
            path = os.path.realpath(os.path.join(entry["directory"], entry["file"]))
            # A source that two targets build is the same source.
            if path.startswith(tree + os.sep) and not path.startswith(os.path.join(tree, "build") + os.sep):
                commands.setdefault(path, entry.get("command") or " ".join(entry["arguments"]))
    if not commands:
        print("There is nothing to look at.")
        return 1

    version = subprocess.run([TIDY, "--version"], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, text=True,
                             check=True).stdout
    with open(os.path.join(tree, ".clang-tidy"), encoding="utf-8") as stream:
        settings = stream.read()
    folders = [tree, os.path.join(tree, "Framework", "include"), os.path.join(build, "generated", "include")]
    clean = cache_folder()
    common = version + settings + installed()
    # The build folder lies in the tree, so the folders of ours are named.
    names = sorted({path[len(tree) + 1:].split(os.sep)[0] for path in commands} | {"Framework", "Platform"})
    headers = "^" + re.escape(tree) + "/(" + "|".join(re.escape(name) for name in names) + ")/"

    def look(path):
        started = time.monotonic()
        mark = os.path.join(clean, digest(tree, path, folders, common + commands[path]))
        if os.path.exists(mark):
            os.utime(mark)
            return path, 0, "", None
        result = subprocess.run([TIDY, "-p", build, "--quiet", f"--header-filter={headers}",
                                 "--extra-arg=-Wno-unknown-warning-option", path],
                                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                                text=True, errors="replace", check=False)
        if result.returncode == 0:
            with open(mark, "w", encoding="utf-8"):
                pass
        return path, result.returncode, result.stdout, time.monotonic() - started

    failed = looked = 0
    seen = set()
    with concurrent.futures.ThreadPoolExecutor(max(1, jobs)) as pool:
        for path, status, text, seconds in pool.map(look, sorted(commands)):
            looked += seconds is not None
            if status != 0:
                failed += 1
                print(f"{os.path.relpath(path, tree)}: clang-tidy ended with status {status}")
                # What many sources see in one header is told once.
                for finding in FINDING.split(text.strip()):
                    if finding.strip() and finding not in seen:
                        seen.add(finding)
                        print(finding.rstrip())
                sys.stdout.flush()
    print(f"clang-tidy: {len(commands)} sources, {looked} looked at, {failed} with findings")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
