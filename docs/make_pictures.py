#!/usr/bin/env python3
"""Makes the pictures of the windows that the documents show.

    make_pictures.py <staged tree> <folder> [<picture> ...] [--language <folder of Lang/>] [--scale 2] [--dark]

Starts the program of the staged tree on the samples, brings up one window after the other and saves
each as <folder>/<picture>.png; all, or those that are named. Language, scale and theme are for looking
at the windows as users elsewhere have them. `make pictures` makes those of docs/images/.

Needs what tests/Program/program_case.py needs, on a display that no one else uses and that is large
enough for the scale: VANTREL_SCREEN=2560x1600x24 cmake/with-display.sh docs/make_pictures.py ...
"""

import argparse
import fcntl
import hashlib
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.path[:0] = [os.path.join(ROOT, "tests", "Program"), os.path.join(ROOT, "Lang")]
sys.dont_write_bytecode = True

import make_texts  # noqa: E402
import program_case  # noqa: E402
from program_case import xdotool  # noqa: E402

# The same in all pictures, since windows show paths in it.
FOLDER = os.path.join(tempfile.gettempdir(), "vantrel")

LOCALES = {"english": "C.UTF-8", "french": "fr_FR.UTF-8", "japanese": "ja_JP.UTF-8", "korean": "ko_KR.UTF-8",
           "zh_CN": "zh_CN.UTF-8", "zh_TW": "zh_TW.UTF-8"}

# Nothing blinks or moves, so that a window that stays the same has been drawn.
TOOLKIT_SETTINGS = "[Settings]\ngtk-cursor-blink=false\ngtk-enable-animations=false\n"

WINDOW_SIZE = (1080, 660)
COLOURS = 255

SAMPLES = ("milled-bracket.vrf", "moulded-housing.vrf", "sheet-metal-enclosure.vrf")


def screen():
    """What can be seen, in short."""
    pixels = subprocess.run(["import", "-window", "root", "-depth", "8", "rgb:-"], check=True,
                            stdout=subprocess.PIPE).stdout
    return hashlib.sha256(pixels).digest()


class Windows(program_case.ProgramCase):
    """The program with a user at it, who knows its commands by what they are called in their language."""

    def __init__(self, options):
        super().__init__()
        self._options = options
        self._texts = {name: text for _, name, text in make_texts.read_texts(f"{ROOT}/Lang/{options.language}")}

    def make_folder(self):
        os.mkdir(FOLDER, mode=0o700)
        return FOLDER

    def setUp(self):
        super().setUp()
        self.samples = os.path.join(ROOT, "samples")
        stage = shutil.copytree(self._options.stage, os.path.join(self.folder, "program"))
        self.program = os.path.join(stage, "bin", "VantrelRuleBuilderu")
        settings = os.path.join(self.environment["XDG_CONFIG_HOME"], "gtk-3.0", "settings.ini")
        os.makedirs(os.path.dirname(settings))
        with open(settings, "w", encoding="ascii") as file:
            file.write(TOOLKIT_SETTINGS)
        self.environment["LC_MESSAGES"] = LOCALES[self._options.language]
        self.environment["GDK_SCALE"] = str(self._options.scale)
        self.environment["GTK_THEME"] = "Adwaita:dark" if self._options.dark else "Adwaita"

    # --- what the user does ---

    def text(self, name):
        return self._texts[name]

    def title(self, name):
        return f"^{re.escape(self.text(name))}$"

    def letter(self, name):
        """What chooses a command in its menu, or opens a menu."""
        letter = re.search("&(.)", self.text(name)).group(1).lower()
        return {"?": "question"}.get(letter, letter)

    def open(self, name="milled-bracket.vrf", answer=lambda: None):
        """Opens a sample, whose opening may need an answer; the process and the pattern of its window's title."""
        process = self.start(os.path.join(self.folder, name))
        answer()
        self.focus(f"^{name}")
        window = self.windows(process)[0]
        width, height = (str(size * self._options.scale) for size in WINDOW_SIZE)
        xdotool("windowsize", "--sync", window, width, height)
        xdotool("windowmove", "--sync", window, "100", "100")
        self.press("Home")
        return process, f"^{name}"

    def command(self, menu, name):
        self.choose(self.letter(menu), self.letter(name))

    def open_menu(self, name):
        self.press("alt+" + self.letter(name))
        self.wait_until(lambda: xdotool("search", "--onlyvisible", "--name",
                                        f"^{os.path.basename(self.program)}$"), f"the menu {name}")

    # --- the pictures ---

    def screen_when_drawn(self):
        """Waits until the screen stays as it is."""
        shown = [screen()]

        def stays():
            time.sleep(0.4)  # what counts as staying
            shown.append(screen())
            return shown[-1] == shown[-2]

        self.wait_until(stays, "a screen that stays the same")

    def frame(self, window):
        """The place of a window with what the window manager has put around it."""
        told = subprocess.run(["xwininfo", "-id", window], check=True, text=True, stdout=subprocess.PIPE).stdout
        left, top, width, height = (int(re.search(rf"{name}: *(-?\d+)", told).group(1)) for name in (
            "Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))
        told = subprocess.run(["xprop", "-id", window, "_NET_FRAME_EXTENTS"], check=True, text=True,
                              stdout=subprocess.PIPE).stdout
        left_edge, right_edge, top_edge, bottom_edge = map(int, re.findall(r"\d+", told.split("=")[1]))
        return (left - left_edge, top - top_edge, width + left_edge + right_edge, height + top_edge + bottom_edge)

    def take(self, picture, title, height=None):
        """Saves the window of that title, or its upper part."""
        self.focus(title)
        self.take_as_it_is(picture, title, height)

    def take_as_it_is(self, picture, title, height=None, at_last=lambda: None):
        """The same with the keyboard where it is: a menu would close otherwise. `at_last` brings up what is
        there for a short time only."""
        (window,) = xdotool("search", "--onlyvisible", "--name", title)
        xdotool("mousemove", "--sync", "0", "0")
        self.screen_when_drawn()
        at_last()
        left, top, width, whole_height = self.frame(window)
        area = f"{width}x{height * self._options.scale if height else whole_height}+{left}+{top}"
        path = os.path.join(self._options.folder, f"{picture}.png")
        subprocess.run(["import", "-window", "root", "-crop", area, "+repage", "+dither", "-colors", str(COLOURS),
                        "-strip", "-define", "png:compression-level=9", "PNG8:" + path], check=True)
        print(f"{path}: {os.path.getsize(path) / 1024:.0f} KiB")


def main_window(windows, picture):
    _, title = windows.open()
    windows.press("Down")
    windows.take(picture, title)


def ticked_rules(windows, picture):
    _, title = windows.open()
    windows.press(*["Down"] * 11, *["shift+Down"] * 3, "space")
    windows.take(picture, title)


def found_rule(windows, picture):
    _, title = windows.open()
    windows.focus(title)

    def type_on():
        before = screen()
        xdotool("type", "--delay", "1", "holes")
        windows.wait_until(lambda: screen() != before, "what was found")
        windows.wait_until(lambda: screen() == screen(), "all of it")

    windows.take_as_it_is(picture, title, at_last=type_on)


def rule_editor(windows, picture):
    windows.open()
    windows.press("Down")
    windows.command("MenuEdit", "CommandEditRule")
    title = "^" + re.escape(windows.text("EditorTitle").replace("%1", ""))
    windows.focus(title)
    xdotool("type", "6")
    windows.press("Tab", "Tab")  # over the button that goes back to the default
    xdotool("type", "0.3 in")
    windows.take(picture, title)


def set_password(windows, picture):
    windows.open()
    windows.command("MenuFile", "CommandSetPassword")
    windows.focus(windows.title("SetPasswordTitle"))
    xdotool("type", "spindle")
    windows.take(picture, windows.title("SetPasswordTitle"))


def enter_password(windows, picture):
    process, title = windows.open()
    windows.command("MenuFile", "CommandSetPassword")
    windows.type_into_box(windows.title("SetPasswordTitle"), "spindle")
    windows.focus(title + r"\*")
    windows.press("ctrl+s")
    windows.wait_for_title(process, title + " ")
    windows.close(process)
    process, title = windows.open()
    windows.press("space")
    windows.wait_for_title(process, title + r"\*")
    windows.press("ctrl+s")
    windows.take(picture, windows.title("EnterPasswordTitle"))


def dialog(menu, command, title):
    def take(windows, picture):
        windows.open()
        windows.command(menu, command)
        windows.take(picture, windows.title(title))
    return take


def about(windows, picture):
    windows.open()
    windows.command("MenuHelp", "CommandAbout")
    windows.take(picture, "^" + re.escape(windows.text("AboutTitle").replace("%1", windows.text("ApplicationTitle"))))


def view_menu(windows, picture):
    _, title = windows.open()
    windows.open_menu("MenuView")
    windows.take_as_it_is(picture, title, 330)


def log_message(windows, picture):
    windows.open()
    windows.command("MenuView", "CommandLog")
    windows.take(picture, windows.title("ApplicationTitle"))


def recent_files(windows, picture):
    for name in ("moulded-housing.vrf", "sheet-metal-enclosure.vrf"):
        process, _ = windows.open(name)
        windows.close(process)
    _, title = windows.open()
    windows.open_menu("MenuFile")
    windows.take_as_it_is(picture, title, 420)


def read_only_question(windows, picture):
    hold(windows)
    windows.start(os.path.join(windows.folder, "milled-bracket.vrf"))
    windows.take(picture, windows.title("ApplicationTitle"))


def read_only_file(windows, picture):
    def agree():
        windows.focus(windows.title("ApplicationTitle"))
        windows.press("alt+" + windows.letter("ButtonYes"))

    hold(windows)
    _, title = windows.open(answer=agree)
    windows.take(picture, title)


def hold(windows):
    other = open(os.path.join(windows.folder, "milled-bracket.vrf"), "r+b")
    windows.addCleanup(other.close)
    fcntl.flock(other, fcntl.LOCK_EX)


PICTURES = {
    "main-window": main_window,
    "ticked-rules": ticked_rules,
    "found-rule": found_rule,
    "rule-editor": rule_editor,
    "set-password": set_password,
    "enter-password": enter_password,
    "unit-settings": dialog("MenuFile", "CommandUnitSettings", "UnitSettingsTitle"),
    "rule-modules": dialog("MenuModules", "CommandRuleModules", "RuleModulesTitle"),
    "database-modules": dialog("MenuModules", "CommandDatabaseModules", "DatabaseModulesTitle"),
    "script-location": dialog("MenuModules", "CommandScriptLocation", "ScriptLocationTitle"),
    "view-menu": view_menu,
    "log-message": log_message,
    "recent-files": recent_files,
    "read-only-question": read_only_question,
    "read-only-file": read_only_file,
    "about": about,
}

# Pictures of the same window for users with another screen or taste.
LOOKS = {
    "main-window-200": ("main-window", {"scale": 2}),
    "main-window-dark": ("main-window", {"dark": True}),
}


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("stage")
    parser.add_argument("folder", type=os.path.abspath)
    parser.add_argument("pictures", nargs="*", metavar="picture", choices=[[], *PICTURES, *LOOKS])
    parser.add_argument("--language", choices=LOCALES, default="english")
    parser.add_argument("--scale", type=int, choices=(1, 2), default=1)
    parser.add_argument("--dark", action="store_true")
    options = parser.parse_intermixed_args()
    os.makedirs(options.folder, exist_ok=True)
    for picture in options.pictures or [*PICTURES, *LOOKS]:
        window, look = LOOKS.get(picture, (picture, {}))
        windows = Windows(argparse.Namespace(**vars(options) | look))
        try:
            windows.setUp()
            for sample in SAMPLES:
                windows.copy_sample(sample)
            PICTURES[window](windows, picture)
        finally:
            windows.doCleanups()


if __name__ == "__main__":
    main()
