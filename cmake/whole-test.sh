#!/bin/sh
# Runs a test program and fails if it ends before its tests do, whatever its exit status: the code
# under test may end the process, and with 0. The program makes a file of the name it is given as
# its tests begin, and removes it as they end. The exit status is else the program's.
#
#   whole-test.sh <program> [<argument>...]

TEST_PREMATURE_EXIT_FILE=${TMPDIR:-/tmp}/vantrel-test.$$.unfinished
export TEST_PREMATURE_EXIT_FILE
setpriv --pdeathsig KILL "$@" # not left behind by a test that takes too long
status=$?
if [ -e "$TEST_PREMATURE_EXIT_FILE" ]; then
    rm -f "$TEST_PREMATURE_EXIT_FILE"
    if [ "$status" -eq 0 ]; then
        echo "whole-test: $1 ended before its tests did" >&2
        status=1
    fi
fi
exit "$status"
