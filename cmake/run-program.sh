#!/bin/bash
# Starts the program from a staged tree on a rule file.
#
# Without a display it starts on a virtual one; then the screen is saved as a picture as
# soon as the window is there and has been drawn, and the program is ended.
#
#   run-program.sh <staged tree> <rule file> <picture>

set -u

readonly limitSeconds=60

[ $# -eq 3 ] || { echo "usage: $0 <staged tree> <rule file> <picture>" >&2; exit 2; }
here=$(cd "$(dirname "$0")" && pwd)
program=$1/bin/VantrelRuleBuilderu
ruleFile=$2
picture=$3

for file in "$program" "$ruleFile"; do
    [ -f "$file" ] || { echo "There is no $file." >&2; exit 1; }
done
program=$(realpath "$program")
ruleFile=$(realpath "$ruleFile")

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] && [ -z "${VANTREL_TAKE_PICTURE:-}" ]; then
    exec "$program" "$ruleFile"
fi
if [ -z "${VANTREL_TAKE_PICTURE:-}" ]; then
    echo "No display; starting under a virtual one."
    VANTREL_TAKE_PICTURE=1 exec "$here/with-display.sh" "$0" "$@"
fi

"$program" "$ruleFile" &
pid=$!
trap 'kill -KILL "$pid" 2>/dev/null' EXIT

end=$((SECONDS + limitSeconds))
until xdotool search --onlyvisible --all --pid "$pid" --name . >/dev/null 2>&1; do
    if ! kill -0 "$pid" 2>/dev/null; then
        wait "$pid"
        echo "The program ended with status $? before it showed a window." >&2
        exit 1
    fi
    if [ "$SECONDS" -ge "$end" ]; then
        echo "The program showed no window in $limitSeconds s." >&2
        exit 1
    fi
    sleep 0.1
done

# The window is there before its contents are; they are when the screen stays the same.
rm -f "$picture"
mkdir -p "$(dirname "$picture")"
before=
for ((try = 0; try < 20; ++try)); do
    sleep 0.5
    import -window root "$picture" || exit 1
    now=$(identify -format '%#' "$picture") || exit 1
    [ "$now" != "$before" ] || break
    before=$now
done

if ! kill -0 "$pid" 2>/dev/null; then
    wait "$pid"
    echo "The program ended by itself with status $?." >&2
    exit 1
fi
echo "Window shown: $(xdotool search --onlyvisible --all --pid "$pid" --name . getwindowname 2>/dev/null | head -n 1)"
echo "Screenshot: $(realpath "$picture")"

trap - EXIT
kill "$pid" 2>/dev/null
for ((try = 0; try < 100; ++try)); do
    kill -0 "$pid" 2>/dev/null || break
    sleep 0.1
done
kill -KILL "$pid" 2>/dev/null
wait "$pid" 2>/dev/null
exit 0
