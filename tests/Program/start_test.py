"""How the program starts: what it writes, which file it opens, and what a second start does."""

import fcntl
import os

import program_case
from program_case import ProgramCase, read_bytes, xdotool
from stock_modules import RULE_MODULES


class StartTest(ProgramCase):
    def expected_configuration(self):
        folder = os.path.dirname(os.path.realpath(self.program))
        lines = [" [RULE_CONFIGURATION_MODULES]"]
        lines += [f" module{number}={folder}/{name}" for number, name in RULE_MODULES]
        lines += [" [RULE_DATABASE_MODULES]", f" module1={folder}/QoxSqliteDatabaseu.dll"]
        return "".join(line + "\n" for line in lines)

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

    def test_a_file_that_is_handed_over_while_a_rule_is_edited_is_refused_and_its_start_has_ended(self):
        first = self.start(self.copy_sample("milled-bracket.vrf"))
        self.focus("^milled-bracket.vrf - ")
        self.press("End", "Return")
        self.focus("^Edit Rule - ")
        second = self.copy_sample("moulded-housing.vrf")
        self.assertEqual(self.wait_for_end(self.start(second)), 0)
        self.focus("^Edit Rule - ")
        self.press("Escape")
        self.wait_until(lambda: len(self.windows(first)) == 1, "the end of the editor")
        self.focus("^milled-bracket.vrf - ")
        self.assertTrue(self.can_lock(second), "it isn't open")
        self.assertEqual(self.wait_for_end(self.start(second)), 0)
        self.focus("^moulded-housing.vrf - ")
        self.assertFalse(self.can_lock(second))
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

    def test_a_path_that_goes_back_behind_a_link_names_the_file_that_the_system_has_there(self):
        os.makedirs(os.path.join(self.folder, "real", "inner"))
        os.symlink(os.path.join("real", "inner"), os.path.join(self.folder, "link"))
        self.copy_sample("milled-bracket.vrf", os.path.join("real", "behind.vrf"))
        process = self.start(os.path.join(self.folder, "link", "..", "behind.vrf"))
        self.focus("^behind.vrf - ")
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

    def window_of_new_document(self):
        """Starts the program; its process, the window and the size of the window."""
        process = self.start()
        self.focus("^unnamed1 - ")
        window = xdotool("search", "--onlyvisible", "--name", "^unnamed1 - ")[0]
        geometry = dict(line.split("=") for line in xdotool("getwindowgeometry", "--shell", window) if "=" in line)
        return process, window, (int(geometry["WIDTH"]), int(geometry["HEIGHT"]))

    def test_the_window_comes_back_where_it_was(self):
        process, window, _ = self.window_of_new_document()
        xdotool("windowsize", "--sync", window, "800", "500")
        self.close(process)
        self.assertEqual(self.window_of_new_document()[2], (800, 500))

    def test_a_window_that_is_left_alone_keeps_its_size_from_start_to_start(self):
        process, _, size = self.window_of_new_document()
        self.close(process)
        for _ in range(2):
            process, _, next_size = self.window_of_new_document()
            self.assertEqual(next_size, size)
            self.close(process)


if __name__ == "__main__":
    program_case.main()
