"""What tests of the real program have in common: a program on a folder of its own, its windows and files.

A script of such tests ends with `program_case.main()`. It is called with the program, the samples
folder and arguments of unittest, and needs a display with a window manager, xdotool, xev and xmllint.
"""

import fcntl
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
import xml.etree.ElementTree as ElementTree

LIMIT_SECONDS = 60


def read_bytes(path):
    with open(path, "rb") as file:
        return file.read()


def xdotool(*arguments):
    """Output lines of xdotool; none if it found nothing."""
    result = subprocess.run(["xdotool", *arguments], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    return result.stdout.split("\n")[:-1]


class ProgramCase(unittest.TestCase):
    """A folder for each test, which all that the program knows of a user leads to."""

    # Paths, set by whoever runs the tests.
    program = ""
    samples = ""

    def make_folder(self):
        return tempfile.mkdtemp(prefix="vantrel-program-test-")

    def setUp(self):
        self.folder = self.make_folder()
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
            [program or self.program, *arguments],
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
        def found():
            return xdotool("search", "--onlyvisible", "--name", pattern)

        xdotool("windowactivate", "--sync", self.wait_until(found, f"window {pattern!r}")[0])
        # The window manager counts it as active before keys go to it, or to a question over it.
        self.wait_until(lambda: set(xdotool("getwindowfocus")) & set(found()), f"the keyboard in {pattern!r}")

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
            return xdotool("search", "--onlyvisible", "--name", f"^{os.path.basename(self.program)}$")

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

    def type_into_box(self, title, text, key="Return"):
        self.focus(title)
        xdotool("type", "--clearmodifiers", text)
        self.press(key)

    # --- files ---

    def settings(self, name):
        return os.path.join(self.folder, "home/data/vantrel/Settings", name)

    def registry(self):
        path = os.path.join(self.folder, "home/config/vantrel/registry.reg")
        return read_bytes(path).decode() if os.path.exists(path) else ""

    def copy_sample(self, name, to=None):
        path = os.path.join(self.folder, to or name)
        shutil.copy(os.path.join(self.samples, name), path)
        return path

    def rule_names(self, path):
        return [rule.get("RuleName") for rule in ElementTree.parse(path).getroot().findall("Rule")]

    def root_attributes(self, path):
        return ElementTree.parse(path).getroot().attrib


def main():
    ProgramCase.program, ProgramCase.samples = (os.path.abspath(argument) for argument in sys.argv[1:3])
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
