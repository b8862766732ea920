"""Rule files with a password."""

import subprocess

import program_case
from program_case import ProgramCase, read_bytes


class PasswordTest(ProgramCase):
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

    def protected_sample(self):
        """A rule file that the program has given the password "a"."""
        path = self.copy_sample("milled-bracket.vrf")
        process = self.start(path)
        self.focus("^milled-bracket.vrf - ")
        self.press("ctrl+l")
        self.type_into_box("^Set Password$", "a")
        self.focus(r"^milled-bracket.vrf\* - ")
        self.press("ctrl+s")
        self.wait_until(lambda: "Password" in self.root_attributes(path), "the password in the file")
        self.close(process)
        return path

    def test_rules_that_were_changed_by_hand_are_told_when_a_protected_file_is_opened(self):
        path = self.protected_sample()
        changed = read_bytes(path).replace(b'Criticality="', b'Criticality=" ', 1)
        with open(path, "wb") as file:
            file.write(changed)
        process = self.start(path)
        self.focus("^Vantrel Rule Manager$")
        self.press("Return")
        self.wait_for_title(process, "^milled-bracket.vrf - ")
        self.assertEqual(read_bytes(path), changed)
        self.close(process)

    def test_a_save_that_is_refused_at_the_password_leaves_the_file_free_until_the_next(self):
        path = self.protected_sample()

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


if __name__ == "__main__":
    program_case.main()
