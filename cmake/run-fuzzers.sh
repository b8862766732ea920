#!/bin/bash
# Runs all fuzz targets of a build for some seconds each, as many at a time as there are
# cores. New inputs and findings stay in the build folder; the seeds are only read.
#
#   run-fuzzers.sh <build folder> <seconds>
#
# Prints one line for each target, `passed <target>` or `failed <target>`, also into
# fuzz-results.txt of the build folder.

set -u

[ $# -eq 2 ] || { echo "usage: $0 <build folder> <seconds>" >&2; exit 2; }
build=$(cd "$1" && pwd) || exit 2
seconds=$2
results=$build/fuzz-results.txt
mkdir -p "$build/fuzz/logs" "$build/fuzz/findings"
: >"$results"

export ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1:detect_stack_use_after_return=1:allocator_may_return_null=0
export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
export LANG=C.UTF-8
unset LC_ALL

runOne()
{
    local name=$1 program=$2 seeds=$3 maxLength=$4
    local corpus=$build/fuzz/corpus/$name log=$build/fuzz/logs/$name.log home=$build/fuzz/home/$name
    mkdir -p "$corpus" "$home"
    # What earlier runs found out stays beside the seeds.
    cp -R "$seeds/." "$corpus/" || { echo "failed $name (no seeds)" | tee -a "$results"; return; }
    if (cd "$home" && HOME=$home appdata=$home "$program" -max_total_time="$seconds" -max_len="$maxLength" -rss_limit_mb=2048 \
        -timeout=10 -print_final_stats=1 -artifact_prefix="$build/fuzz/findings/$name-" "$corpus") \
        </dev/null >"$log" 2>&1; then
        local runs
        runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
        echo "passed $name (${runs:-0} inputs)" | tee -a "$results"
    else
        echo "failed $name (status $?, $log)" | tee -a "$results"
        tail -n 60 "$log"
        showFinding "$name" "$log"
    fi
}

# The input that was found, as text: of a machine that is gone by then, the log is what is left.
showFinding()
{
    local name=$1 log=$2 finding
    finding=$(sed -n 's/.*Test unit written to //p' "$log")
    [ -f "$finding" ] || return 0
    # The frames of the fuzzer's own loop say nothing.
    grep -E '^ +#[0-9]+ ' "$log" | grep -vE ' in (fuzzer::|__sanitizer|main |_start|__libc_)|/libc\.so|nptl/|stdlib/abort'
    echo "The input, base64 of gzip (base64 -d | gunzip):"
    gzip -9 <"$finding" | base64 -w 120 | head -c 20000
    echo "The input of $name is $finding"
}

[ -s "$build/fuzzers.txt" ] || { echo "There are no fuzz targets." >&2; exit 1; }
cores=$(nproc)
while IFS='|' read -r name program seeds maxLength; do
    while [ "$(jobs -rp | wc -l)" -ge "$cores" ]; do
        wait -n
    done
    echo "Fuzzing $name for $seconds s"
    runOne "$name" "$program" "$seeds" "$maxLength" &
done <"$build/fuzzers.txt"
wait

[ "$(grep -c '^passed ' "$results")" -eq "$(grep -c . "$build/fuzzers.txt")" ]
