"""Holds the documents, the pictures that they show and the script that makes them against each other.

Usage: pictures_test.py <source folder> [unittest arguments]
"""

import glob
import os
import re
import sys
import unittest

SOURCE = ""
LARGEST_BYTES = 100_000


class PicturesTest(unittest.TestCase):
    def shown(self):
        """The pictures in the documents, by their paths."""
        found = set()
        for document in [os.path.join(SOURCE, "README.md"), *glob.glob(os.path.join(SOURCE, "docs", "*.md"))]:
            with open(document, encoding="utf-8") as file:
                for path in re.findall(r"!\[[^\]]+\]\(([^)]+)\)", file.read()):
                    found.add(os.path.normpath(os.path.join(os.path.dirname(document), path)))
        return found

    def stored(self):
        return set(glob.glob(os.path.join(SOURCE, "docs", "images", "*")))

    def test_the_documents_show_the_pictures_that_are_there_and_no_others(self):
        self.assertGreater(len(self.shown()), 1)
        self.assertEqual(self.shown(), self.stored())

    def test_every_picture_can_be_made_again(self):
        sys.path.insert(0, os.path.join(SOURCE, "docs"))
        import make_pictures  # here: only now is it known where it lies
        made = {*make_pictures.PICTURES, *make_pictures.LOOKS}
        self.assertEqual(made, {os.path.splitext(os.path.basename(path))[0] for path in self.stored()})

    def test_the_pictures_are_small(self):
        for path in self.stored():
            self.assertLess(os.path.getsize(path), LARGEST_BYTES, path)


if __name__ == "__main__":
    SOURCE = os.path.abspath(sys.argv[1])
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
