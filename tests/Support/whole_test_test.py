"""What `cmake/whole-test.sh` makes of the ways in which a test program may end.

Usage: whole_test_test.py <whole-test.sh> [unittest arguments]
"""

import os
import subprocess
import sys
import tempfile
import unittest

RUNNER = ""


class WholeTestTest(unittest.TestCase):
    def run_program(self, script):
        """Runs a shell script as a test program; the result and what stays of its temporary files."""
        with tempfile.TemporaryDirectory() as folder:
            result = subprocess.run(
                [RUNNER, "sh", "-c", script, "sh", "an argument"],
                env=os.environ | {"TMPDIR": folder},
                capture_output=True,
                text=True,
                check=False,
            )
            return result, os.listdir(folder)

    def test_a_program_that_ends_halfway_with_success_fails(self):
        result, left = self.run_program('echo 1 > "$TEST_PREMATURE_EXIT_FILE"; exit 0')
        self.assertEqual((result.returncode, result.stderr), (1, "whole-test: sh ended before its tests did\n"))
        self.assertEqual(left, [])

    def test_a_program_that_comes_to_its_end_succeeds(self):
        result, left = self.run_program(
            'echo 1 > "$TEST_PREMATURE_EXIT_FILE"; echo "$1"; rm "$TEST_PREMATURE_EXIT_FILE"')
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "an argument\n", ""))
        self.assertEqual(left, [])

    def test_the_status_of_a_failure_is_handed_on(self):
        for status in (1, 3, 134):
            result, left = self.run_program(f'echo 1 > "$TEST_PREMATURE_EXIT_FILE"; exit {status}')
            self.assertEqual(result.returncode, status)
            self.assertEqual(left, [])


if __name__ == "__main__":
    RUNNER = os.path.abspath(sys.argv[1])
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]])
