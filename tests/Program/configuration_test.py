"""What the user chooses for all files: units, modules and folders."""

import os
import time
import xml.etree.ElementTree as ElementTree

import program_case
from program_case import ProgramCase, read_bytes, xdotool
from stock_modules import every_module, first_modules, rules_on_record


class ConfigurationTest(ProgramCase):
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

    def section(self, name):
        """The lines of a section of the configuration file, without its header."""
        lines = read_bytes(self.settings("ConfigModule.ini")).decode().splitlines()
        start = lines.index(f" [{name}]") + 1
        end = next((index for index in range(start, len(lines)) if lines[index].startswith(" [")), len(lines))
        return [line.strip() for line in lines[start:end]]

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

    def test_without_a_document_the_unit_command_does_nothing(self):
        process = self.start()
        self.focus("^unnamed1 - ")
        self.press("ctrl+w")
        self.focus("^Vantrel Rule Manager$")
        self.choose("f", "u")
        self.close(process)  # which a dialog would keep it from

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
        module = os.path.join(os.path.dirname(self.program), "QoxMillRulesu.dll")
        os.makedirs(os.path.dirname(self.settings("ConfigModule.ini")))
        with open(self.settings("ConfigModule.ini"), "w", encoding="utf-8") as file:
            file.write(f"[RULE_CONFIGURATION_MODULES]\nmodule1={os.path.dirname(self.program)}/QoxSMRulesu.dll\n"
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
            == [f"module1={os.path.dirname(self.program)}/QoxSMRulesu.dll", f"module2={module}"],
            "both modules in the file")
        self.focus("^milled-bracket.vrf - ")
        self.press("ctrl+a", "space", "ctrl+s")
        self.wait_until(lambda: any(name.startswith("Mill") for name in self.rule_names(path)), "rules of the module")
        self.close(process)

    def test_a_first_start_shows_the_rules_of_nine_modules_and_one_with_all_of_them_those_of_fourteen(self):
        modules = first_modules()
        self.assertEqual(len(modules), 9)
        self.assertEqual(sorted(self.all_rules()), sorted(sum(map(rules_on_record, modules), [])))
        modules += sorted(set(every_module()) - set(modules))
        self.assertEqual(len(modules), 14)
        folder = os.path.dirname(self.program)
        with open(self.settings("ConfigModule.ini"), "w", encoding="utf-8") as file:
            file.write("[RULE_CONFIGURATION_MODULES]\n")
            file.writelines(f"module{number}={folder}/{name}.dll\n" for number, name in enumerate(modules, 1))
            file.write(f"[RULE_DATABASE_MODULES]\nmodule1={folder}/QoxSqliteDatabaseu.dll\n")
        self.assertEqual(sorted(self.all_rules()), sorted(sum(map(rules_on_record, modules), [])))

    def test_a_new_script_folder_is_made_and_stored(self):
        folder = os.path.join(self.folder, "new rules")
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


if __name__ == "__main__":
    program_case.main()
