#!/bin/bash
# Runs all benchmarks of a build, one after the other.
#
#   run-benchmarks.sh <build folder> [<argument for each>...]

set -u

[ $# -ge 1 ] || { echo "usage: $0 <build folder> [<argument>...]" >&2; exit 2; }
build=$1
shift

# The units that the user has chosen must not change what is measured.
export appdata=$build/bench/settings
mkdir -p "$appdata" || exit 1

[ -s "$build/benchmarks.txt" ] || { echo "There are no benchmarks." >&2; exit 1; }
status=0
while IFS='|' read -r name program kind; do
    echo "== $name"
    display=()
    [ "$kind" != window ] || display=("$(dirname "$0")/with-display.sh")
    "${display[@]}" "$program" "$@" </dev/null || { echo "$name failed with status $?" >&2; status=1; }
done <"$build/benchmarks.txt"
exit "$status"
