"""Commands that leave the rules alone: the help, the log, the box about the program."""

import os
import pathlib
import shutil
import urllib.parse

import program_case
from program_case import ProgramCase, read_bytes


class CommandTest(ProgramCase):
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
        root = os.path.dirname(os.path.dirname(os.path.realpath(self.program)))
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
            shutil.copy(os.path.join(os.path.dirname(os.path.realpath(self.program)), name), os.path.join(root, "bin"))
        opened = self.stand_in_for_the_desktop()
        process = self.start(program=os.path.join(root, "bin/VantrelRuleBuilderu"))
        self.focus("^unnamed1 - ")
        self.press("F1")
        self.wait_until(lambda: len(self.windows(process)) == 2, "the message")
        self.press("Return")
        self.wait_until(lambda: len(self.windows(process)) == 1, "the end of the message")
        self.assertFalse(os.path.exists(opened))
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

    def test_the_box_about_the_program_opens_from_the_menu_and_closes_by_escape(self):
        process = self.start()
        self.focus("^unnamed1 - ")
        self.choose("h", "Up", "Return")
        self.focus("^About Vantrel Rule Manager$")
        self.press("Escape")
        self.wait_until(lambda: len(self.windows(process)) == 1, "the end of the box")
        self.focus("^unnamed1 - ")
        self.close(process)


if __name__ == "__main__":
    program_case.main()
