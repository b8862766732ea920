#!/usr/bin/env python3
"""Counts the tests of a JUnit file that CTest wrote.

    count-tests.py <file>

Prints "<passed> <failed> <skipped>", and after it the name of each failed test on a line of its
own. A file that is missing or broken is an error. A test that could not be run counts as failed;
one that skipped itself or is disabled, as skipped.
"""

import sys
import xml.etree.ElementTree as ElementTree


def main():
    if len(sys.argv) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    passed = skipped = 0
    failed = []
    for case in ElementTree.parse(sys.argv[1]).getroot().iter("testcase"):
        status = case.get("status")
        reason = case.find("skipped")
        if status == "run" and case.find("failure") is None and case.find("error") is None:
            passed += 1
        elif status == "disabled" or (status == "notrun" and reason is not None
                                      and reason.get("message", "").startswith("SKIP_")):
            skipped += 1
        else:
            failed.append(case.get("name", "a test without a name"))
    print(passed, len(failed), skipped)
    for name in failed:
        print(name)
    return 0


if __name__ == "__main__":
    sys.exit(main())
