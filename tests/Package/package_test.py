"""Makes the archive that users get, unpacks it and does with it what the guide for module makers says.

Usage: package_test.py <build folder> <source folder> [unittest arguments]
Needs a display with a window manager, xdotool, readelf, and all that was built.
"""

import glob
import os
import re
import shutil
import subprocess
import sys
import unittest

sys.path.insert(0, os.path.join(os.path.dirname(os.path.realpath(__file__)), "..", "Program"))
from program_case import ProgramCase, read_bytes, xdotool  # noqa: E402  pylint: disable=wrong-import-position

BUILD = ""
SOURCE = ""

# What is started by a block of the guide that has nothing else in it.
PROGRAM_BLOCK = "~/vantrel/bin/VantrelRuleBuilderu"


def archives():
    return glob.glob(os.path.join(BUILD, "package", "vantrel-rule-manager-*.tar.gz"))


def code_blocks(name):
    """Language and text of each code block of a document, in their order."""
    with open(os.path.join(SOURCE, "docs", name), encoding="utf-8") as file:
        return re.findall(r"^```(\w*)\n(.*?)^```$", file.read(), re.MULTILINE | re.DOTALL)


def files_below(folder, *endings):
    for path, _, names in os.walk(folder):
        for name in names:
            if name.endswith(endings):
                yield os.path.join(path, name)


class PackageTest(ProgramCase):
    def setUp(self):
        super().setUp()
        self.home = self.environment["HOME"]
        # The guide is about a user who has set none of these.
        for name in ("XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"):
            self.environment.pop(name, None)

    def settings(self, name):
        return os.path.join(self.home, ".local/share/vantrel/Settings", name)

    def run_here(self, command, folder=None):
        result = subprocess.run(command, cwd=folder or self.folder, env=self.environment, stdin=subprocess.DEVNULL,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace",
                                check=False)
        self.assertEqual(result.returncode, 0, f"{command}:\n{result.stdout}")
        return result.stdout

    def unpack(self, name="tree"):
        folder = os.path.join(self.folder, name)
        os.makedirs(folder)
        self.run_here(["tar", "-xzf", archives()[0], "-C", folder, "--strip-components=1"])
        return folder

    # --- the tests ---

    def test_make_the_archive(self):
        for archive in archives():
            os.remove(archive)
        self.run_here(["cpack", "--config", os.path.join(BUILD, "CPackConfig.cmake")])
        self.assertEqual(len(archives()), 1)

    def test_archive_holds_what_users_and_module_makers_need_and_nothing_else(self):
        tree = self.unpack()
        self.assertEqual(sorted(os.listdir(tree)), ["CHANGELOG.md", "LICENSE", "Lang", "README.md",
                                                    "THIRD-PARTY-NOTICES.md", "bin", "docs", "include", "lib",
                                                    "samples"])
        stage = os.path.join(BUILD, "stage")
        for folder in ("bin", "Lang"):
            staged = {os.path.relpath(path, stage) for path in files_below(os.path.join(stage, folder), "")}
            installed = {os.path.relpath(path, tree) for path in files_below(os.path.join(tree, folder), "")}
            self.assertEqual(installed, staged)
        headers = set(os.listdir(os.path.join(SOURCE, "Framework/include/Vantrel")))
        self.assertEqual(set(os.listdir(os.path.join(tree, "include/Vantrel"))), headers - {"Export.h.in"} | {"Export.h"})
        self.assertEqual(os.listdir(os.path.join(tree, "include")), ["Vantrel"])
        self.assertEqual(sorted(os.listdir(os.path.join(tree, "samples/rule-module"))),
                         ["CMakeLists.txt", "EngravingRules.cpp"])

    def test_nothing_in_the_archive_names_the_folders_of_this_machine(self):
        tree = self.unpack()
        for path in files_below(tree, ".cmake", ".h", ".txt"):
            with open(path, encoding="utf-8") as file:
                text = file.read()
            self.assertNotIn(BUILD, text, path)
            self.assertNotIn(SOURCE, text, path)
        libraries = [path for path in files_below(tree, ".so")] + [os.path.join(tree, "bin", name) for name in
                                                                   ("VantrelRuleBuilderu", "vantrel-check-module")]
        self.assertGreater(len(libraries), 20)
        for path in libraries:
            run_paths = re.findall(r"\((?:RUNPATH|RPATH)\).*\[(.*)\]", self.run_here(["readelf", "-d", path]))
            to_bin = os.path.relpath(os.path.join(tree, "bin"), os.path.dirname(path))
            self.assertEqual(run_paths, ["$ORIGIN" if to_bin == "." else "$ORIGIN/" + to_bin], path)

    def test_install_to_a_prefix_gives_the_tree_of_the_archive(self):
        prefix = os.path.join(self.folder, "prefix with blanks")
        self.run_here(["cmake", "--install", BUILD, "--prefix", prefix])
        tree = self.unpack()
        installed = {os.path.relpath(path, prefix) for path in files_below(prefix, "")}
        self.assertEqual(installed, {os.path.relpath(path, tree) for path in files_below(tree, "")})

    def test_template_is_a_page(self):
        with open(os.path.join(SOURCE, "samples/rule-module/EngravingRules.cpp"), encoding="utf-8") as file:
            self.assertLess(len(file.readlines()), 60)

    def test_package_that_was_moved_to_a_folder_with_blanks_builds_modules(self):
        tree = self.unpack()
        moved = os.path.join(self.folder, "moved \u00e9 here")
        os.rename(tree, moved)
        source = os.path.join(moved, "samples", "rule-module")
        build = os.path.join(self.folder, "out")
        self.run_here(["cmake", "-S", source, "-B", build, f"-DCMAKE_PREFIX_PATH={moved}",
                       "-DCMAKE_CXX_FLAGS=-Wall -Wextra -Wpedantic -Werror"])
        self.run_here(["cmake", "--build", build])
        self.run_here(["ctest", "--test-dir", build, "--output-on-failure"])

    def test_package_of_another_version_is_not_taken(self):
        tree = self.unpack()
        source = os.path.join(self.folder, "source")
        os.makedirs(source)
        for version, is_taken in (("1.0", True), ("2.0", False), ("0.9", False), ("1.9", False)):
            with open(os.path.join(source, "CMakeLists.txt"), "w", encoding="utf-8") as file:
                file.write("cmake_minimum_required(VERSION 3.25)\nproject(Try LANGUAGES CXX)\n"
                           f"find_package(VantrelFramework {version} QUIET)\n"
                           "file(WRITE found.txt \"${VantrelFramework_FOUND}\")\n")
            self.run_here(["cmake", "-S", source, "-B", os.path.join(self.folder, version),
                           f"-DCMAKE_PREFIX_PATH={tree}"])
            with open(os.path.join(source, "found.txt"), encoding="utf-8") as file:
                self.assertEqual(file.read() == "1", is_taken, version)

    def test_guide_leads_from_the_archive_to_a_rule_in_a_file(self):
        shutil.copy(archives()[0], self.folder)
        blocks = code_blocks("module-guide.md")
        self.assertGreater(len(blocks), 5)
        starts = 0
        output = ""
        folder = self.folder
        for language, text in blocks:
            if language == "text":
                self.assertIn(text, output, "what the guide says that is printed")
            elif text.strip() == PROGRAM_BLOCK:
                starts += 1
                self.start_as_the_guide_says(starts)
            else:
                self.assertEqual(language, "sh")
                # The next block goes on in the folder that this one leaves.
                output = self.run_here(["bash", "-e", "-c", text + "\npwd > ~/folder"], folder)
                with open(os.path.join(self.home, "folder"), encoding="utf-8") as file:
                    folder = file.read().strip()
        self.assertEqual(starts, 2)

    def test_module_is_added_in_the_dialog_as_the_guide_says(self):
        tree = self.unpack("home/vantrel")
        self.run_here(["cmake", "-S", os.path.join(tree, "samples/rule-module"), "-B", "build",
                       f"-DCMAKE_PREFIX_PATH={tree}"])
        self.run_here(["cmake", "--build", "build"])
        process = self.start(program=os.path.join(tree, "bin", "VantrelRuleBuilderu"))
        self.focus("^unnamed1 - ")
        self.choose("m", "r")
        self.focus("^Rule Modules$")
        xdotool("type", "--clearmodifiers", os.path.join(self.folder, "build", "EngravingRules.so"))
        self.press("alt+a")
        self.wait_until(lambda: self.press("alt+o") or b"module10=" in read_bytes(self.settings("ConfigModule.ini")),
                        "the module in the list")
        self.tick_the_rule(process, "End")
        self.close(process)

    def tick_the_rule(self, process, key):
        """Ticks the row that the key leads to, which is to be the only rule of the module."""
        path = os.path.join(self.folder, "first.vrf")
        self.focus("^unnamed1 - ")
        self.press(key, "space")
        self.save_as(process, path)
        self.wait_until(lambda: os.path.exists(path) and self.rule_names(path) == ["EngravedLines"],
                        "the rule of the module in the file")

    def start_as_the_guide_says(self, time):
        program = os.path.join(self.home, "vantrel", "bin", "VantrelRuleBuilderu")
        process = self.start(program=program)
        self.focus("^unnamed1 - ")
        if time == 2:
            self.tick_the_rule(process, "Home")
        self.close(process)


if __name__ == "__main__":
    BUILD, SOURCE = (os.path.abspath(argument) for argument in sys.argv[1:3])
    ProgramCase.program = os.path.join(BUILD, "stage", "bin", "VantrelRuleBuilderu")
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
