"""Starts the real program on a folder of its own and looks at files, windows and exit status.

Usage: program_test.py <program> <samples folder> [unittest arguments]
Needs a display with a window manager, xdotool, xev and xmllint.
"""

import fcntl
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
import urllib.parse
import xml.etree.ElementTree as ElementTree

PROGRAM = ""
SAMPLES = ""
LIMIT_SECONDS = 60

RULE_MODULES = [
    (1, "QoxMillRulesu.dll"),
    (2, "QoxTurnRulesu.dll"),
    (3, "QoxSMRulesu.dll"),
    (4, "QOXIMRulesu.dll"),
    (5, "QOXAssemblyRulesu.dll"),
    (6, "QoxGenericRulesu.dll"),
    (7, "QOXCastingRulesu.dll"),
    (8, "QOXDieCastRulesu.dll"),
    (9, "QoxToleranceRulesu.dll"),
    (12, "QOXTubingRulesu.dll"),
]


RULE_NAMES_DIR = os.path.join(os.path.dirname(os.path.realpath(__file__)), "..", "data", "rule-modules")


def rules_on_record(module):
    """The names of the rules of a module, without its ending."""
    with open(os.path.join(RULE_NAMES_DIR, module + ".txt"), encoding="utf-8") as file:
        lines = file.read().splitlines()
    return [line.split()[0] for line in lines[1:] if not line.startswith(" ")]  # those set in are parameters


def first_modules():
    """The modules that a first start loads: the program reads up to the first gap in the numbers."""
    return [os.path.splitext(module)[0] for place, (number, module) in enumerate(RULE_MODULES, 1) if number == place]


def offered_rules():
    """How many rules the modules that a first start loads offer, by the names that are on record."""
    return sum(len(rules_on_record(module)) for module in first_modules())


def read_bytes(path):
    with open(path, "rb") as file:
        return file.read()


def xdotool(*arguments):
    """Output lines of xdotool; none if it found nothing."""
    result = subprocess.run(["xdotool", *arguments], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    return result.stdout.split("\n")[:-1]


class ProgramTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="vantrel-program-test-")
        self.addCleanup(shutil.rmtree, self.folder)
        self.environment = dict(os.environ)
        for name in ("vantrel_data_dir", "VANTREL_DATABASE_DIR", "VANTREL_TEMPFOLDER", "TEMP", "appdata"):
            self.environment.pop(name, None)
        for name, folder in (
            ("HOME", "home"),
            ("XDG_CONFIG_HOME", "home/config"),
            ("XDG_DATA_HOME", "home/data"),
            ("XDG_CACHE_HOME", "home/cache"),
            ("XDG_RUNTIME_DIR", "run"),
            ("TMPDIR", "tmp"),
            ("VANTREL_TEMPFOLDER", "log"),
        ):
            path = os.path.join(self.folder, folder)
            os.makedirs(path, mode=0o700, exist_ok=True)
            self.environment[name] = path
        self.processes = []
        self.addCleanup(self.end_all)

    # --- the program ---

    def start(self, *arguments, program=None, **environment):
        process = subprocess.Popen(
            [program or PROGRAM, *arguments],
            env=self.environment | environment,
            cwd=self.folder,
            stderr=subprocess.DEVNULL,
        )
        self.processes.append(process)
        return process

    def start_for_another_user(self, *arguments):
        """A program that has nothing to do with the first one but the files on the disk."""
        folders = {}
        for name in ("HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"):
            folders[name] = os.path.join(self.folder, "another-user", name)
            os.makedirs(folders[name], mode=0o700)
        return self.start(*arguments, **folders)

    def end_all(self):
        for process in self.processes:
            if process.poll() is None:
                process.kill()
            process.wait()

    def wait_until(self, condition, what):
        end = time.monotonic() + LIMIT_SECONDS
        while time.monotonic() < end:
            result = condition()
            if result:
                return result
            time.sleep(0.05)
        self.fail(f"not within {LIMIT_SECONDS} s: {what}; windows: {self.titles()}")

    def titles(self, process=None):
        pid = ["--all", "--pid", str(process.pid)] if process else []
        names = (xdotool("getwindowname", window) for window in xdotool("search", "--onlyvisible", *pid, "--name", "."))
        return [name[0] for name in names if name]

    def windows(self, process):
        return xdotool("search", "--onlyvisible", "--all", "--pid", str(process.pid), "--name", ".")

    def can_lock(self, path):
        with open(path, "r+b") as file:
            try:
                fcntl.flock(file, fcntl.LOCK_EX | fcntl.LOCK_NB)
            except BlockingIOError:
                return False
        return True

    def wait_for_title(self, process, pattern):
        return self.wait_until(
            lambda: [title for title in self.titles(process) if re.search(pattern, title)], f"a window {pattern!r}"
        )

    def wait_for_end(self, process):
        return process.wait(LIMIT_SECONDS)

    def focus(self, pattern):
        window = self.wait_until(lambda: xdotool("search", "--onlyvisible", "--name", pattern), f"window {pattern!r}")
        xdotool("windowactivate", "--sync", window[0])

    def cover(self, window):
        """Opens a window of another program, which becomes the active one."""
        other = subprocess.Popen(["xev", "-geometry", "1200x900+0+0"], stdout=subprocess.DEVNULL)
        self.processes.append(other)
        self.wait_until(lambda: xdotool("search", "--onlyvisible", "--name", "^Event Tester$"), "the other window")
        xdotool("windowactivate", "--sync", xdotool("search", "--onlyvisible", "--name", "^Event Tester$")[0])
        self.wait_until(lambda: xdotool("getactivewindow") not in ([], [window]), "the other window in front")

    def press(self, *keys):
        for key in keys:
            xdotool("key", "--clearmodifiers", key)

    def choose(self, menu, *keys):
        """Opens a menu by its letter and goes on with keys once it is there, or some would be lost."""
        def opened():
            return xdotool("search", "--onlyvisible", "--name", f"^{os.path.basename(PROGRAM)}$")

        self.press("alt+" + menu)
        self.wait_until(opened, f"the menu {menu!r}")
        self.press(*keys)
        self.wait_until(lambda: not opened(), f"the end of the menu {menu!r}")

    def close(self, process):
        self.press("ctrl+q")
        self.assertEqual(self.wait_for_end(process), 0)

    def activate(self, process):
        """Brings the only window of a process to the front."""
        window = self.wait_until(lambda: self.windows(process), "a window")[0]
        xdotool("windowactivate", "--sync", window)

    def save_as(self, process, path):
        """With the document's window active: gives it a name in the file dialog."""
        self.press("ctrl+shift+s")
        self.focus("^Save As$")
        self.press("ctrl+a")  # the extension isn't selected by itself
        xdotool("type", "--clearmodifiers", path)
        self.press("Return")
        self.wait_for_title(process, f"^{os.path.basename(path)} - ")

    # --- files ---

    def settings(self, name):
        return os.path.join(self.folder, "home/data/vantrel/Settings", name)

    def registry(self):
        path = os.path.join(self.folder, "home/config/vantrel/registry.reg")
        return read_bytes(path).decode() if os.path.exists(path) else ""

    def copy_sample(self, name, to=None):
        path = os.path.join(self.folder, to or name)
        shutil.copy(os.path.join(SAMPLES, name), path)
        return path

    def rule_names(self, path):
        return [rule.get("RuleName") for rule in ElementTree.parse(path).getroot().findall("Rule")]

    def expected_configuration(self):
        folder = os.path.dirname(os.path.realpath(PROGRAM))
        lines = [" [RULE_CONFIGURATION_MODULES]"]
        lines += [f" module{number}={folder}/{name}" for number, name in RULE_MODULES]
        lines += [" [RULE_DATABASE_MODULES]", f" module1={folder}/QoxSqliteDatabaseu.dll"]
        return "".join(line + "\n" for line in lines)

    # --- the tests ---

    def test_first_start_in_an_empty_folder_writes_two_sections_and_eleven_keys(self):
        # A server start makes no document, so nothing but the module lists is asked for.
        process = self.start("-Embedding")
        path = self.settings("ConfigModule.ini")
        self.wait_until(lambda: ".vrf" in self.registry(), "the file type")
        self.assertEqual(read_bytes(path).decode(), self.expected_configuration())
        self.assertEqual(self.titles(process), [])
        self.assertNotIn("CLSID", self.registry())

    def test_file_of_a_later_start_shows_what_was_started_as_a_server(self):
        server = self.start("-Embedding")
        self.wait_until(lambda: ".vrf" in self.registry(), "the file type")
        second = self.start(self.copy_sample("milled-bracket.vrf"))
        self.assertEqual(self.wait_for_end(second), 0)
        self.wait_for_title(server, "^milled-bracket.vrf - ")
        self.close(server)

    def test_first_start_with_a_document_adds_the_script_location(self):
        process = self.start()
        self.wait_for_title(process, "^unnamed1 - Vantrel Rule Manager$")
        script_folder = self.settings("ScriptDir")
        self.assertEqual(
            read_bytes(self.settings("ConfigModule.ini")).decode(),
            self.expected_configuration() + f" [RULE_SCRIPT_LOCATION]\n directory={script_folder}\n",
        )
        self.assertTrue(os.path.exists(os.path.join(script_folder, "UserDefinedFile.xml")))
        self.close(process)

    def test_second_start_hands_its_file_over_and_ends(self):
        first = self.start(self.copy_sample("milled-bracket.vrf"))
        self.wait_for_title(first, "^milled-bracket.vrf - ")
        self.copy_sample("moulded-housing.vrf", "second file \u00e9.vrf")
        second = self.start("second file \u00e9.vrf")  # relative to its own folder
        self.assertEqual(self.wait_for_end(second), 0)
        self.wait_for_title(first, "^second file \u00e9.vrf - ")
        self.assertEqual(self.titles(second), [])

    def test_a_file_that_is_handed_over_during_a_question_waits_for_the_answer(self):
        held = self.copy_sample("milled-bracket.vrf")
        first = self.start(held)
        self.focus("^milled-bracket.vrf - ")
        self.press("ctrl+w")
        self.focus("^Vantrel Rule Manager$")
        other = open(held, "r+b")
        self.addCleanup(other.close)
        fcntl.flock(other, fcntl.LOCK_EX)
        self.choose("f", "1")
        self.wait_until(lambda: len(self.windows(first)) == 2, "the question")
        second = self.copy_sample("moulded-housing.vrf")
        self.assertEqual(self.wait_for_end(self.start(second)), 0)
        self.assertTrue(self.can_lock(second), "it isn't open")
        self.focus("^Vantrel Rule Manager$")  # the question
        self.press("alt+y")
        self.focus("^moulded-housing.vrf - ")
        self.assertFalse(self.can_lock(second))
        self.press("ctrl+w")
        self.wait_for_title(first, r"^milled-bracket.vrf \[Read-Only\] ")
        self.close(first)

    def test_second_start_without_a_file_brings_the_first_forward_and_ends(self):
        first = self.start(self.copy_sample("milled-bracket.vrf"))
        self.wait_for_title(first, "^milled-bracket.vrf - ")
        window = xdotool("search", "--onlyvisible", "--name", "^milled-bracket.vrf - ")[0]
        self.cover(window)
        self.assertEqual(self.wait_for_end(self.start()), 0)
        self.wait_until(lambda: xdotool("getactivewindow") == [window], "the window in front of the other")
        xdotool("windowminimize", "--sync", window)
        self.wait_until(lambda: self.titles(first) == [], "the minimised window")
        second = self.start()
        self.assertEqual(self.wait_for_end(second), 0)
        self.wait_for_title(first, "^milled-bracket.vrf - ")

    def test_a_file_that_is_open_is_brought_forward_and_not_opened_twice(self):
        path = self.copy_sample("milled-bracket.vrf")
        first = self.start(path)
        self.wait_for_title(first, "^milled-bracket.vrf - ")
        self.assertEqual(self.wait_for_end(self.start(path)), 0)
        self.focus("^milled-bracket.vrf - ")
        self.press("ctrl+w")
        self.wait_for_title(first, "^Vantrel Rule Manager$")

    def test_ticking_a_row_and_saving_changes_the_file_by_that_rule_and_unticking_changes_it_back(self):
        path = self.copy_sample("milled-bracket.vrf")
        before = read_bytes(path)
        names = self.rule_names(path)
        process = self.start(path)
        self.focus("^milled-bracket.vrf - ")
        self.press("End", "space")
        self.wait_for_title(process, r"^milled-bracket.vrf\* - ")
        self.press("ctrl+s")
        self.wait_for_title(process, "^milled-bracket.vrf - ")
        after = read_bytes(path)
        self.assertEqual(self.rule_names(path), names + ["MillSetUps"])
        self.assertTrue(after.startswith(before[: -len(b"</Lumeq>\n")]))
        subprocess.run(["xmllint", "--noout", path], check=True)

        self.press("space")
        self.wait_for_title(process, r"^milled-bracket.vrf\* - ")
        self.press("ctrl+s")
        self.wait_for_title(process, "^milled-bracket.vrf - ")
        self.assertEqual(read_bytes(path), before)
        self.close(process)

    def test_a_path_that_goes_back_behind_a_link_names_the_file_that_the_system_has_there(self):
        os.makedirs(os.path.join(self.folder, "real", "inner"))
        os.symlink(os.path.join("real", "inner"), os.path.join(self.folder, "link"))
        self.copy_sample("milled-bracket.vrf", os.path.join("real", "behind.vrf"))
        process = self.start(os.path.join(self.folder, "link", "..", "behind.vrf"))
        self.focus("^behind.vrf - ")
        self.close(process)

    def test_what_a_save_replaces_is_kept_whole_in_the_users_data_folder(self):
        path = self.copy_sample("milled-bracket.vrf")
        before = read_bytes(path)
        process = self.start(path)
        self.focus("^milled-bracket.vrf - ")
        self.press("End", "space", "ctrl+s")
        self.wait_until(lambda: read_bytes(path) != before, "the saved file")
        self.close(process)
        kept = os.path.join(self.folder, "home/data/vantrel/KeptVersions")
        (folder,) = os.listdir(kept)
        self.assertRegex(folder, "^milled-bracket.vrf-[0-9a-f]{16}$")
        folder = os.path.join(kept, folder)
        note, version = sorted(os.listdir(folder), reverse=True)
        self.assertEqual(read_bytes(os.path.join(folder, note)).decode(), os.path.realpath(path) + "\n")
        self.assertRegex(version, r"^1 \d{4}-\d\d-\d\d \d\d-\d\d-\d\d [0-9a-f]{8}\.vrf$")
        self.assertEqual(read_bytes(os.path.join(folder, version)), before)

    def test_the_rows_that_are_selected_are_ticked_together(self):
        path = self.copy_sample("milled-bracket.vrf")
        process = self.start(path)
        self.focus("^milled-bracket.vrf - ")
        self.press("End", "shift+Up", "shift+Up", "space", "ctrl+s")  # the rows of the file stand first
        self.wait_until(lambda: len(self.rule_names(path)) == 14, "three more rules in the file")
        self.press("ctrl+a", "space", "ctrl+s")  # the focused row is ticked: all are cleared
        self.wait_until(lambda: self.rule_names(path) == [], "no rule in the file")
        self.press("space", "ctrl+s")
        self.wait_until(lambda: len(self.rule_names(path)) == offered_rules(), "all rules in the file")
        self.close(process)

    def root_attributes(self, path):
        return ElementTree.parse(path).getroot().attrib

    def type_into_box(self, title, text, key="Return"):
        self.focus(title)
        xdotool("type", "--clearmodifiers", text)
        self.press(key)

    def test_a_password_that_was_set_is_asked_for_by_the_first_save_after_a_restart(self):
        name = "^milled-bracket.vrf"
        path = self.copy_sample("milled-bracket.vrf")
        names = self.rule_names(path)
        process = self.start(path)
        self.focus(f"{name} - ")
        self.press("ctrl+l")
        self.type_into_box("^Set Password$", "Sec ret")
        self.focus(rf"{name}\* - ")
        self.press("ctrl+l")  # does nothing any more
        self.press("ctrl+s")
        self.wait_for_title(process, f"{name} - ")
        # Sec ret with its end: UwBlAGMAIAByAGUAdAAAAA== by pairs.
        packed = "UwBlAGMAIAByAGUAdAAAAA==".encode().decode("utf-16-le")
        self.assertEqual(self.root_attributes(path)["Password"], packed)
        self.assertRegex(self.root_attributes(path)["RulesData"], "^[0-9a-f]{32}$")
        self.assertEqual(self.rule_names(path), names)
        subprocess.run(["xmllint", "--noout", path], check=True)
        self.press("ctrl+l")
        self.close(process)

        saved = read_bytes(path)
        process = self.start(path)
        self.focus(f"{name} - ")
        self.press("End", "space")
        self.wait_for_title(process, rf"{name}\* - ")
        self.press("ctrl+s")
        self.type_into_box("^Enter Password$", "", "Escape")
        self.focus(rf"{name}\* - ")
        self.press("ctrl+s")
        self.type_into_box("^Enter Password$", "wrong")
        self.focus("^Vantrel Rule Manager$")
        self.press("Return")
        self.focus(rf"{name}\* - ")
        self.assertEqual(read_bytes(path), saved)

        self.press("ctrl+s")
        self.type_into_box("^Enter Password$", "Sec ret")
        self.wait_for_title(process, f"{name} - ")
        self.assertEqual(self.rule_names(path), names + ["MillSetUps"])
        self.assertEqual(self.root_attributes(path)["Password"], packed)
        self.press("space", "ctrl+s")
        self.wait_until(lambda: read_bytes(path) == saved, "a save that doesn't ask again")
        self.close(process)

    def test_rules_that_were_changed_by_hand_are_told_when_a_protected_file_is_opened(self):
        path = self.copy_sample("milled-bracket.vrf")
        process = self.start(path)
        self.focus("^milled-bracket.vrf - ")
        self.press("ctrl+l")
        self.type_into_box("^Set Password$", "a")
        self.focus(r"^milled-bracket.vrf\* - ")
        self.press("ctrl+s")
        self.wait_until(lambda: "Password" in self.root_attributes(path), "the password in the file")
        self.close(process)
        changed = read_bytes(path).replace(b'Criticality="', b'Criticality=" ', 1)
        with open(path, "wb") as file:
            file.write(changed)
        process = self.start(path)
        self.focus("^Vantrel Rule Manager$")
        self.press("Return")
        self.wait_for_title(process, "^milled-bracket.vrf - ")
        self.assertEqual(read_bytes(path), changed)
        self.close(process)

    def test_a_file_that_another_user_holds_opens_read_only_and_is_saved_once_it_is_free(self):
        path = self.copy_sample("milled-bracket.vrf")
        other = open(path, "r+b")
        self.addCleanup(other.close)
        fcntl.flock(other, fcntl.LOCK_EX)
        process = self.start(path)
        self.focus("^Vantrel Rule Manager$")  # the question
        self.press("alt+y")
        self.focus(r"^milled-bracket.vrf \[Read-Only\] ")
        before = read_bytes(path)
        self.press("End", "space", "ctrl+s")
        self.wait_until(lambda: len(self.windows(process)) == 2, "the refusal")
        self.press("Return")
        self.wait_until(lambda: len(self.windows(process)) == 1, "the end of the refusal")
        self.assertEqual(read_bytes(path), before)
        fcntl.flock(other, fcntl.LOCK_UN)
        self.focus(r"^milled-bracket.vrf \[Read-Only\] ")
        self.press("ctrl+s")
        self.wait_until(lambda: len(self.windows(process)) == 2, "the warning")
        self.press("Return")
        self.wait_until(lambda: len(self.rule_names(path)) == 12, "one more rule in the file")
        self.wait_until(lambda: not self.can_lock(path), "the lock of the program")
        self.wait_for_title(process, "^milled-bracket.vrf - ")
        self.close(process)
        self.assertTrue(self.can_lock(path))

    def test_a_new_document_holds_the_file_that_it_was_saved_to_and_lets_go_at_the_end(self):
        process = self.start()
        self.focus("^unnamed1 - ")
        path = os.path.join(self.folder, "held.vrf")
        self.save_as(process, path)
        self.wait_until(lambda: not self.can_lock(path), "the lock after the first save")
        before = read_bytes(path)
        self.press("space")
        self.wait_for_title(process, r"^held.vrf\* - ")
        self.press("ctrl+s")
        self.wait_until(lambda: read_bytes(path) != before, "the second save")
        self.wait_for_title(process, "^held.vrf - ")
        self.assertFalse(self.can_lock(path))
        self.close(process)
        self.assertTrue(self.can_lock(path))

    def test_a_save_that_is_refused_at_the_password_leaves_the_file_free_until_the_next(self):
        path = self.copy_sample("milled-bracket.vrf")
        process = self.start(path)
        self.focus("^milled-bracket.vrf - ")
        self.press("ctrl+l")
        self.type_into_box("^Set Password$", "a")
        self.focus(r"^milled-bracket.vrf\* - ")
        self.press("ctrl+s")
        self.wait_for_title(process, "^milled-bracket.vrf - ")
        self.close(process)

        process = self.start(path)
        self.focus("^milled-bracket.vrf - ")
        self.assertFalse(self.can_lock(path))
        self.press("End", "space")
        self.wait_for_title(process, r"^milled-bracket.vrf\* - ")
        self.press("ctrl+s")
        self.type_into_box("^Enter Password$", "", "Escape")
        self.focus(r"^milled-bracket.vrf\* - ")
        self.wait_until(lambda: self.can_lock(path), "the file without a lock")
        self.press("ctrl+s")
        self.type_into_box("^Enter Password$", "a")
        self.wait_for_title(process, "^milled-bracket.vrf - ")
        self.assertFalse(self.can_lock(path))
        self.close(process)

    def test_a_file_that_another_program_has_open_is_saved_under_another_name_and_that_one_held(self):
        path = self.copy_sample("milled-bracket.vrf")
        first = self.start(path)
        self.wait_for_title(first, "^milled-bracket.vrf - ")
        before = read_bytes(path)
        second = self.start_for_another_user(path)
        self.focus("^Vantrel Rule Manager$")  # the question
        self.press("alt+y")
        self.wait_for_title(second, r"^milled-bracket.vrf \[Read-Only\] ")
        self.activate(second)
        self.press("End", "space")
        self.wait_for_title(second, r"\[Read-Only\] \* - ")
        other = os.path.join(self.folder, "other.vrf")
        self.save_as(second, other)
        self.assertFalse(self.can_lock(other))
        self.assertFalse(self.can_lock(path))
        self.assertEqual(read_bytes(path), before)
        self.assertEqual(len(self.rule_names(other)), len(self.rule_names(path)) + 1)
        self.close(second)
        self.assertTrue(self.can_lock(other))
        self.activate(first)
        self.close(first)
        self.assertTrue(self.can_lock(path))

    def test_the_language_is_that_of_the_user_unless_the_registry_names_one(self):
        process = self.start(LC_MESSAGES="fr_FR.UTF-8")
        self.focus("^sans nom 1 - ")
        self.close(process)
        os.makedirs(os.path.join(self.folder, "home/config/vantrel"), exist_ok=True)
        with open(os.path.join(self.folder, "home/config/vantrel/registry.reg"), "a", encoding="utf-8") as file:
            file.write("\n[HKEY_CURRENT_USER\\SOFTWARE\\Orvane\\YBK_PRODUCT\\Vantrel\\Add-in]\n")
            file.write('"OptionsLanguage"=dword:00000412\n')
        process = self.start(LC_MESSAGES="fr_FR.UTF-8")
        self.focus("^\uc774\ub984 \uc5c6\uc74c1 - ")
        self.close(process)

    def test_the_box_about_the_program_opens_from_the_menu_and_closes_by_escape(self):
        process = self.start()
        self.focus("^unnamed1 - ")
        self.choose("h", "Up", "Return")
        self.focus("^About Vantrel Rule Manager$")
        self.press("Escape")
        self.wait_until(lambda: len(self.windows(process)) == 1, "the end of the box")
        self.focus("^unnamed1 - ")
        self.close(process)

    def units_file(self):
        return os.path.join(self.folder, "home/config/OrvaneLtd/WQZ/settings.xml")

    def chosen_units(self):
        units = ElementTree.parse(self.units_file()).getroot().find("Units")
        return [units.findtext("Linear"), units.findtext("Angular")]

    def lengths(self, path):
        """Values of the parameters of a file that are lengths."""
        parameters = ElementTree.parse(path).getroot().iter("Parameter")
        return [float(parameter.get("Value")) for parameter in parameters if parameter.get("Kind") == "length"]

    def save_until(self, condition, what):
        """Saves again and again: the command is there a moment after there is something to save."""
        self.wait_until(lambda: self.press("ctrl+s") or condition(), what)

    def choose_units(self, *keys):
        self.choose("f", "u")
        self.focus("^Unit Settings$")
        for key in keys:
            # A list that is still opening or closing loses the key that comes meanwhile.
            time.sleep(0.3)
            self.press(key)
        self.wait_until(lambda: "Unit Settings" not in self.titles(), "the end of the dialog")

    def test_a_change_of_units_converts_the_document_which_can_be_saved_but_is_not_modified(self):
        name = "^milled-bracket.vrf - "
        path = self.copy_sample("milled-bracket.vrf")
        before = read_bytes(path)
        millimeters = self.lengths(path)
        process = self.start(path)
        self.focus(name)
        self.assertEqual(self.chosen_units(), ["millimeters", "degrees"])
        self.choose_units("alt+l", *["Down"] * 5, "Escape")
        self.focus(name)
        self.assertEqual(self.chosen_units(), ["millimeters", "degrees"])
        self.choose_units("alt+l", *["Down"] * 5, "alt+a", "Up", "alt+o")
        self.wait_until(lambda: self.chosen_units() == ["inches", "degrees"], "the choice for new documents")
        self.focus(name)  # without the mark of a modified one
        self.assertEqual(read_bytes(path), before)
        self.save_until(lambda: self.root_attributes(path)["Unit"] == "3", "the new unit in the file")
        self.assertEqual(self.root_attributes(path)["AngularUnit"], "0")
        inches = self.lengths(path)
        self.assertGreater(len(millimeters), 0)
        for inch, millimeter in zip(inches, millimeters, strict=True):
            self.assertAlmostEqual(inch, millimeter / 25.4, 12)
        self.focus(name)
        self.choose_units("alt+l", *["Up"] * 5, "alt+o")
        self.wait_until(lambda: self.chosen_units() == ["millimeters", "degrees"], "the choice taken back")
        self.focus(name)
        self.save_until(lambda: read_bytes(path) == before, "the file as it was")
        self.close(process)

    def test_the_next_new_document_starts_with_the_units_that_were_chosen(self):
        process = self.start()
        self.focus("^unnamed1 - ")
        self.choose_units("alt+a", *["Down"] * 3, "alt+l", "Down", "alt+o")
        self.wait_until(lambda: self.chosen_units() == ["centimeters", "radians"], "the choice")
        self.focus("^unnamed1 - ")
        self.close(process)
        process = self.start()
        self.focus("^unnamed1 - ")
        # One place on from centimeters and radians.
        self.choose_units("alt+l", "Down", "alt+o")
        self.wait_until(lambda: self.chosen_units() == ["meters", "radians"], "the choice that started there")
        self.close(process)

    def section(self, name):
        """The lines of a section of the configuration file, without its header."""
        lines = read_bytes(self.settings("ConfigModule.ini")).decode().splitlines()
        start = lines.index(f" [{name}]") + 1
        end = next((index for index in range(start, len(lines)) if lines[index].startswith(" [")), len(lines))
        return [line.strip() for line in lines[start:end]]

    def test_rules_of_modules_that_are_removed_leave_an_open_file_that_was_changed(self):
        path = self.copy_sample("milled-bracket.vrf")
        process = self.start(path)
        self.focus("^milled-bracket.vrf - ")
        self.press("End", "space")
        self.wait_for_title(process, r"^milled-bracket.vrf\* - ")
        while self.section("RULE_CONFIGURATION_MODULES"):
            self.choose("m", "r")
            self.focus("^Rule Modules$")
            self.press("alt+r")  # takes the last one
            self.wait_until(
                lambda: self.press("alt+o") or "Rule Modules" not in self.titles(), "the end of the dialog")
            self.focus(r"^milled-bracket.vrf\* - ")
        self.focus(r"^milled-bracket.vrf\* - ")
        self.press("ctrl+s")
        self.wait_until(lambda: self.rule_names(path) == [], "no rule in the file")
        self.focus("^milled-bracket.vrf - ")
        self.close(process)

    def test_a_module_that_is_added_brings_its_rules_and_the_numbers_have_no_gap(self):
        module = os.path.join(os.path.dirname(PROGRAM), "QoxMillRulesu.dll")
        os.makedirs(os.path.dirname(self.settings("ConfigModule.ini")))
        with open(self.settings("ConfigModule.ini"), "w", encoding="utf-8") as file:
            file.write(f"[RULE_CONFIGURATION_MODULES]\nmodule1={os.path.dirname(PROGRAM)}/QoxSMRulesu.dll\n"
                       "module12=/none.dll\n")
        path = self.copy_sample("milled-bracket.vrf")
        process = self.start(path)
        self.focus("^milled-bracket.vrf - ")
        self.choose("m", "r")
        self.focus("^Rule Modules$")
        xdotool("type", "--clearmodifiers", module.upper())
        self.press("alt+a")
        self.wait_until(
            lambda: self.press("alt+o") or self.section("RULE_CONFIGURATION_MODULES")
            == [f"module1={os.path.dirname(PROGRAM)}/QoxSMRulesu.dll", f"module2={module}"],
            "both modules in the file")
        self.focus("^milled-bracket.vrf - ")
        self.press("ctrl+a", "space", "ctrl+s")
        self.wait_until(lambda: any(name.startswith("Mill") for name in self.rule_names(path)), "rules of the module")
        self.close(process)

    def all_rules(self):
        """The names of all rules that the program shows, by a file that they are ticked into."""
        process = self.start()
        self.focus("^unnamed1 - ")
        self.press("ctrl+a", "space")
        path = os.path.join(self.folder, "all.vrf")
        self.save_as(process, path)
        names = self.wait_until(lambda: os.path.exists(path) and self.rule_names(path), "rules in the file")
        os.remove(path)
        self.close(process)
        return names

    def test_a_first_start_shows_the_rules_of_nine_modules_and_one_with_all_of_them_those_of_fourteen(self):
        modules = first_modules()
        self.assertEqual(len(modules), 9)
        self.assertEqual(sorted(self.all_rules()), sorted(sum(map(rules_on_record, modules), [])))
        every_module = [os.path.splitext(name)[0] for name in os.listdir(RULE_NAMES_DIR) if name.endswith(".txt")]
        modules += sorted(set(every_module) - set(modules))
        self.assertEqual(len(modules), 14)
        folder = os.path.dirname(PROGRAM)
        with open(self.settings("ConfigModule.ini"), "w", encoding="utf-8") as file:
            file.write("[RULE_CONFIGURATION_MODULES]\n")
            file.writelines(f"module{number}={folder}/{name}.dll\n" for number, name in enumerate(modules, 1))
            file.write(f"[RULE_DATABASE_MODULES]\nmodule1={folder}/QoxSqliteDatabaseu.dll\n")
        self.assertEqual(sorted(self.all_rules()), sorted(sum(map(rules_on_record, modules), [])))

    def test_a_new_script_folder_is_made_and_stored(self):
        folder = os.path.join(self.folder, "R\u00e8gles")
        process = self.start()
        self.focus("^unnamed1 - ")
        self.choose("m", "s")
        self.focus("^Script Location$")
        self.press("ctrl+a")
        xdotool("type", "--clearmodifiers", folder)
        self.press("alt+o")
        self.focus("^Vantrel Rule Manager$")  # asks whether to create it
        self.press("alt+y")
        self.wait_until(lambda: os.path.isdir(folder), "the folder")
        self.focus("^Vantrel Rule Manager$")  # warns of the open document
        self.press("Return")
        self.wait_until(lambda: self.section("RULE_SCRIPT_LOCATION") == [f"directory={folder}"], "the folder in the file")
        self.focus("^unnamed1 - ")
        self.close(process)

    def test_without_a_document_the_unit_command_does_nothing(self):
        process = self.start()
        self.focus("^unnamed1 - ")
        self.press("ctrl+w")
        self.focus("^Vantrel Rule Manager$")
        self.choose("f", "u")
        self.close(process)  # which a dialog would keep it from

    def test_a_new_document_stands_in_the_recent_files_under_its_bare_title(self):
        process = self.start()
        self.focus("^unnamed1 - ")
        self.close(process)
        settings = read_bytes(os.path.join(self.folder, "home/config/vantrel-rule-manager")).decode()
        self.assertIn("file1=unnamed1\n", settings)

    def test_rules_of_a_file_that_is_not_changed_are_not_asked_about_at_the_end(self):
        process = self.start(self.copy_sample("sheet-metal-enclosure.vrf"))
        self.focus("^sheet-metal-enclosure.vrf - ")
        self.close(process)

    def test_a_file_that_does_not_exist_gives_one_box_and_a_new_document(self):
        process = self.start("missing.vrf")
        self.wait_for_title(process, "^Vantrel Rule Manager$")
        self.focus("^Vantrel Rule Manager$")
        self.press("Return")
        self.wait_for_title(process, "^unnamed1 - Vantrel Rule Manager$")
        self.assertFalse(os.path.exists(os.path.join(self.folder, "missing.vrf")))

    def test_a_file_that_is_no_rule_file_is_refused_and_stays(self):
        path = os.path.join(self.folder, "notes.vrf")
        with open(path, "w", encoding="utf-8") as file:
            file.write("Not a rule file.\n")
        process = self.start(path)
        self.focus("^Vantrel Rule Manager$")
        self.press("Return")
        self.assertEqual(self.wait_for_end(process), 0)
        self.assertEqual(read_bytes(path), b"Not a rule file.\n")

    def test_a_package_in_any_case_never_reaches_a_document(self):
        path = self.copy_sample("milled-bracket.vrf", "rules.qOxRuLe")
        process = self.start(path)
        self.focus("^Vantrel Rule Manager$")
        self.assertEqual(len(self.titles(process)), 1)
        self.press("Return")
        self.assertEqual(self.wait_for_end(process), 0)

    def test_a_file_without_a_dot_is_an_ordinary_document(self):
        process = self.start(self.copy_sample("milled-bracket.vrf", "qoxrule"))
        self.wait_for_title(process, "^qoxrule - Vantrel Rule Manager$")

    def test_an_ordinary_start_registers_and_an_unregistering_one_takes_it_out_and_goes_on(self):
        class_id = "{74FAF44C-B6AF-493B-A9D9-AED17BA7FED5}"
        library_id = "{092D31A2-F72E-457D-997F-0FE3E4D26334}"
        process = self.start()
        self.focus("^unnamed1 - ")
        self.assertIn(class_id, self.registry())
        self.assertIn(library_id, self.registry())
        self.close(process)
        process = self.start("-unregister")
        self.focus("^unnamed1 - ")
        self.assertNotIn(class_id, self.registry())
        self.assertNotIn(library_id, self.registry())
        self.close(process)

    def test_the_log_is_written_while_it_is_switched_on(self):
        process = self.start(self.copy_sample("milled-bracket.vrf"))
        self.focus("^milled-bracket.vrf - ")
        self.choose("v", "w")
        self.focus("^Vantrel Rule Manager$")
        self.press("Return")
        log = os.path.join(self.folder, "log", "Vantrel_RuleBuilder.vantrellog")
        self.wait_until(lambda: os.path.exists(log) and read_bytes(log), "the log")
        self.focus("^milled-bracket.vrf - ")
        self.press("End", "space")
        self.wait_for_title(process, r"^milled-bracket.vrf\* - ")
        self.choose("v", "w")
        self.wait_until(lambda: b"Closing the log file" in read_bytes(log), "the end of the log")
        lines = [line.split("\t")[-1] for line in read_bytes(log).decode().splitlines()]
        self.assertEqual(
            lines, ["Log creation started", "MillSetUps Rule is Selected", "Closing the log file"]
        )

    def stand_in_for_the_desktop(self):
        """Has the addresses that the desktop is to open written into a file, which is the result."""
        folder = os.path.join(self.folder, "desktop")
        os.makedirs(folder)
        opened = os.path.join(folder, "opened")
        with open(os.path.join(folder, "xdg-open"), "w", encoding="utf-8") as file:
            file.write(f'#!/bin/sh\nprintf "%s\\n" "$1" >> "{opened}"\n')
        os.chmod(file.name, 0o755)
        self.environment["PATH"] = folder + ":" + self.environment["PATH"]
        return opened

    def wait_for_help(self, opened, pages, language="english"):
        root = os.path.dirname(os.path.dirname(os.path.realpath(PROGRAM)))
        expected = [pathlib.Path(root, "Lang", language, "help", page + ".html").as_uri() for page in pages]
        self.wait_until(lambda: os.path.exists(opened) and read_bytes(opened).count(b"\n") == len(pages), "the help")
        self.assertEqual(read_bytes(opened).decode().split(), expected)
        for url in expected:
            self.assertTrue(os.path.exists(urllib.parse.unquote(urllib.parse.urlsplit(url).path)))

    def test_the_help_key_opens_the_page_of_the_window_in_the_browser(self):
        opened = self.stand_in_for_the_desktop()
        process = self.start(self.copy_sample("milled-bracket.vrf"))
        self.focus("^milled-bracket.vrf - ")
        self.press("F1")
        self.wait_for_help(opened, ["overview"])
        self.choose("h", "h")  # the command in the menu
        self.wait_for_help(opened, ["overview"] * 2)
        self.press("ctrl+l")
        self.focus("^Set Password$")
        self.press("F1")
        self.wait_for_help(opened, ["overview"] * 2 + ["set-password"])
        self.press("Escape")
        self.wait_until(lambda: len(self.windows(process)) == 1, "the end of the dialog")
        self.focus("^milled-bracket.vrf - ")
        self.choose("h", "Up", "Return")
        self.focus("^About Vantrel Rule Manager$")
        self.press("F1")
        self.wait_for_help(opened, ["overview"] * 2 + ["set-password", "about"])
        self.press("Escape")
        self.focus("^milled-bracket.vrf - ")
        self.close(process)

    def test_help_is_in_the_language_of_the_program(self):
        opened = self.stand_in_for_the_desktop()
        process = self.start(self.copy_sample("milled-bracket.vrf"), LC_MESSAGES="ja_JP.UTF-8")
        self.focus("^milled-bracket.vrf - ")
        self.press("F1")
        self.wait_for_help(opened, ["overview"], "japanese")
        self.close(process)

    def test_help_that_is_missing_is_told_with_its_path(self):
        # An installation without any help.
        root = os.path.join(self.folder, "root")
        os.makedirs(os.path.join(root, "bin"))
        for name in ("VantrelRuleBuilderu", "vantrelframeworku.so"):
            shutil.copy(os.path.join(os.path.dirname(os.path.realpath(PROGRAM)), name), os.path.join(root, "bin"))
        opened = self.stand_in_for_the_desktop()
        process = self.start(program=os.path.join(root, "bin/VantrelRuleBuilderu"))
        self.focus("^unnamed1 - ")
        self.press("F1")
        self.wait_until(lambda: len(self.windows(process)) == 2, "the message")
        self.press("Return")
        self.wait_until(lambda: len(self.windows(process)) == 1, "the end of the message")
        self.assertFalse(os.path.exists(opened))
        self.close(process)

    def test_the_window_comes_back_where_it_was(self):
        process = self.start()
        self.focus("^unnamed1 - ")
        window = xdotool("search", "--onlyvisible", "--name", "^unnamed1 - ")[0]
        xdotool("windowsize", "--sync", window, "800", "500")
        self.close(process)
        self.start()
        self.focus("^unnamed1 - ")
        window = xdotool("search", "--onlyvisible", "--name", "^unnamed1 - ")[0]
        geometry = dict(line.split("=") for line in xdotool("getwindowgeometry", "--shell", window) if "=" in line)
        self.assertEqual((geometry["WIDTH"], geometry["HEIGHT"]), ("800", "500"))


if __name__ == "__main__":
    PROGRAM, SAMPLES = (os.path.abspath(argument) for argument in sys.argv[1:3])
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
