"""Rules are ticked and saved, and files held against others."""

import fcntl
import os
import subprocess
import time

import program_case
from program_case import ProgramCase, read_bytes, xdotool
from stock_modules import offered_rules

KEY_IS_LOST_SECONDS = 5


class RuleFileTest(ProgramCase):
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

    def open_by_typing(self, process, path, answered, what):
        """Types a path into the dialog. It drops a key that comes while it reads a folder: Return is pressed again."""
        self.press("ctrl+o")
        self.focus("^Open File$")
        xdotool("type", "--clearmodifiers", path)
        pressed = float("-inf")

        def answered_by_now():
            nonlocal pressed
            if answered():
                return True
            if time.monotonic() > pressed + KEY_IS_LOST_SECONDS and self.titles(process).count("Open File") == 1:
                self.press("Return")
                pressed = time.monotonic()
            return False

        self.wait_until(answered_by_now, what)

    def test_a_file_is_opened_by_its_name_without_the_extension(self):
        path = self.copy_sample("milled-bracket.vrf", "bracket.vrf")
        self.copy_sample("milled-bracket.vrf", "bracket2.vrf")  # or the dialog would complete what is typed
        process = self.start()
        self.focus("^unnamed1 - ")
        self.open_by_typing(
            process,
            path[: -len(".vrf")],
            lambda: "bracket.vrf - Vantrel Rule Manager" in self.titles(process),
            "the window of the file",
        )
        self.close(process)

    def test_a_file_that_does_not_exist_is_refused_and_the_dialog_stays(self):
        process = self.start()
        self.focus("^unnamed1 - ")
        self.open_by_typing(
            process,
            os.path.join(self.folder, "none"),
            lambda: self.titles(process).count("Open File") == 2,
            "the message",
        )
        self.press("Return")
        self.wait_until(lambda: self.titles(process).count("Open File") == 1, "the end of the message")
        self.focus("^Open File$")
        self.press("Escape", "Escape")  # the first one only takes away what was typed
        self.wait_until(lambda: len(self.windows(process)) == 1, "the end of the dialog")
        self.focus("^unnamed1 - ")
        self.close(process)

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


if __name__ == "__main__":
    program_case.main()
