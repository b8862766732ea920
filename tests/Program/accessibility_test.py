"""Starts the real program with assistive technology on and looks at what a screen reader is told.

Usage: accessibility_test.py <program> <samples folder> [unittest arguments]
Needs what other tests of the program need, a D-Bus daemon, the accessibility bus and PyGObject.
"""

import os
import re
import unittest

import accessible_tree
import program_case
from accessible_tree import STATE_FOCUSABLE, STATE_SHOWING

MAIN_WINDOW = "^milled-bracket.vrf"


class AccessibilityTest(program_case.ProgramCase):
    def setUp(self):
        super().setUp()
        for name in ("NO_AT_BRIDGE", "GTK_A11Y"):
            self.environment.pop(name, None)
        self.session = accessible_tree.Session(self.environment)
        self.addCleanup(self.session.close)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self.session.address

    def open_sample(self):
        self.path = os.path.join(self.folder, "milled-bracket.vrf")
        if not os.path.exists(self.path):
            self.copy_sample("milled-bracket.vrf")
        process = self.start(self.path)
        self.application = self.wait_until(lambda: self.session.application_of(process.pid), "the accessible program")
        self.focus(MAIN_WINDOW)
        return process

    def window(self, title):
        """The window of that title, once it has the keyboard."""
        self.focus(title)
        found = [window for window in self.application.children() if self.matches(window, title)]
        self.assertEqual(len(found), 1, title)
        return found[0]

    def matches(self, window, title):
        return re.search(title, window.own_name()) is not None

    def main_window(self):
        return self.window(MAIN_WINDOW)

    def choose(self, command):
        """Chooses a command of the menus by the keys that it tells of."""
        (item,) = [part for _, part in self.main_window().walk()
                   if part.own_name() == command and part.role() == "menu item"]
        item_keys = item.keys()
        for key in item_keys[:-1]:
            self.press(key.replace("<Alt>", "alt+"))
            self.wait_until(lambda: item.has_state(STATE_SHOWING), f"the menu of {command}")
        self.press(item_keys[-1])

    def check(self, window, focusable=True):
        lines = accessible_tree.lines_of(window)
        print("\n".join(lines))
        self.assertEqual(accessible_tree.unnamed(window, focusable), [], "\n".join(lines))

    def check_dialog(self, title):
        """Looks at a dialog and gives it up."""
        self.check(self.window(title))
        self.press("Escape")
        self.wait_until(lambda: not any(self.matches(window, title) for window in self.application.children()),
                        f"the end of {title}")

    # --- the tests ---

    def test_all_controls_of_the_main_window_have_names(self):
        self.open_sample()
        # The book of the documents' pages and the frames around lists are the toolkit's.
        self.check(self.main_window(), focusable=False)

    def test_all_controls_of_the_dialogs_have_names(self):
        self.open_sample()
        for command, title in (
            ("Set Password...", "^Set Password$"),
            ("Unit Settings...", "^Unit Settings$"),
            ("Rule Modules...", "^Rule Modules$"),
            ("Database Modules...", "^Database Modules$"),
            ("Script Location...", "^Script Location$"),
            ("About...", "^About Vantrel Rule Manager$"),
        ):
            with self.subTest(command):
                self.choose(command)
                self.check_dialog(title)

    def test_all_controls_of_the_rule_editor_have_names(self):
        self.open_sample()
        self.press("Home")
        self.choose("Edit Rule...")
        self.check_dialog("^Edit Rule - ")

    def test_the_questions_and_messages_have_names(self):
        process = self.open_sample()
        self.choose("Set Password...")
        self.type_into_box("^Set Password$", "Sec ret")
        self.focus(MAIN_WINDOW + r"\*")
        self.press("ctrl+w")
        self.wait_until(lambda: len(self.windows(process)) == 2, "the question about changes")
        (question,) = [window for window in self.application.children() if not self.matches(window, MAIN_WINDOW)]
        self.check(question)
        self.press("alt+s")
        self.wait_for_title(process, "^Vantrel Rule Manager$")
        self.close(process)

        self.open_sample()
        self.press("End", "space")
        self.focus(MAIN_WINDOW + r"\*")
        self.press("ctrl+s")
        self.check_dialog("^Enter Password$")

    def test_a_list_of_modules_is_told_with_the_row_that_the_user_goes_to(self):
        self.open_sample()
        self.choose("Rule Modules...")
        window = self.window("^Rule Modules$")
        (module,) = [part for _, part in window.walk()
                     if part.role() == "list" and part.has_state(STATE_FOCUSABLE)
                     and part.own_name().startswith("Configured modules:")]
        last = module.own_name()
        self.assertRegex(last, "^Configured modules: [A-Z]")
        self.press("shift+Tab", "shift+Tab", "shift+Tab", "Home")
        self.wait_until(lambda: module.own_name() != last, "the name of another row")
        self.press("End")
        self.wait_until(lambda: module.own_name() == last, "the name of the last row")


class UnnamedTest(unittest.TestCase):
    """What the tests above find, without a program."""

    class Part:
        def __init__(self, role, name="", *children, labels=(), focusable=False):
            self._role, self._name, self._children = role, name, children
            self._labels = [UnnamedTest.Part("label", label) for label in labels]
            self._focusable = focusable

        def role(self):
            return self._role

        def own_name(self):
            return self._name

        def labels(self):
            return self._labels

        def children(self):
            return self._children

        def has_state(self, state):
            return state == STATE_FOCUSABLE and self._focusable

        name = accessible_tree.Accessible.name
        walk = accessible_tree.Accessible.walk

    def test_a_control_without_a_name_is_found_and_a_labelled_one_is_not(self):
        Part = self.Part
        window = Part("frame", "x", Part("panel", "", Part("text"), Part("text", labels=["Path:"])), Part("push button"))
        self.assertEqual(accessible_tree.unnamed(window), ["frame > panel > text", "frame > push button"])

    def test_what_takes_the_keyboard_is_found_if_it_is_asked_for(self):
        window = self.Part("frame", "x", self.Part("panel", "", focusable=True))
        self.assertEqual(accessible_tree.unnamed(window), [])
        self.assertEqual(accessible_tree.unnamed(window, focusable=True), ["frame > panel"])

    def test_the_value_of_a_combo_box_is_no_name(self):
        Part = self.Part
        values = Part("menu", "", Part("menu item", "inches"), Part("menu item", "feet"))
        self.assertEqual(accessible_tree.unnamed(Part("combo box", "feet", values)), ["combo box"])
        self.assertEqual(accessible_tree.unnamed(Part("combo box", "Linear unit:", values)), [])
        self.assertEqual(accessible_tree.unnamed(Part("combo box", "feet", values, labels=["Linear unit:"])), [])


if __name__ == "__main__":
    program_case.main()
