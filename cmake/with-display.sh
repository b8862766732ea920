#!/bin/bash
# Runs a command on a display of its own: a virtual X server with a window manager, both
# gone when the command has ended. The exit status is the command's.
#
# A display of the user's desktop is never used, so that tests neither show windows there
# nor depend on what else is open.
#
#   [VANTREL_SCREEN=<width>x<height>x<depth>] with-display.sh <command> [<argument>...]

set -u

readonly limitSeconds=60

fail()
{
    echo "with-display: $*" >&2
    exit 125
}

[ $# -gt 0 ] || fail "no command given"
for tool in Xvfb openbox xauth xprop mcookie setpriv; do
    command -v "$tool" >/dev/null || fail "$tool is missing; packaging/setup-debian.sh test installs it"
done

# A launcher that was killed could not remove its folder. The servers end with it.
for left in "${TMPDIR:-/tmp}"/vantrel-display.*; do
    owner=${left##*/vantrel-display.}
    owner=${owner%%.*}
    if [ -O "$left" ] && [ "$owner" -gt 0 ] 2>/dev/null && ! kill -0 "$owner" 2>/dev/null; then
        rm -rf "$left"
    fi
done

folder=$(mktemp -d "${TMPDIR:-/tmp}/vantrel-display.$$.XXXXXX") || fail "no temporary folder"
serverPid=
managerPid=
commandPid=

cleanUp()
{
    trap - EXIT HUP INT TERM
    local pid
    for pid in $commandPid $managerPid $serverPid; do
        kill "$pid" 2>/dev/null
    done
    wait 2>/dev/null
    rm -rf "$folder"
}
trap cleanUp EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

# Gives up when the server or the limit has ended before the condition holds.
waitFor()
{
    local what=$1
    shift
    local end=$((SECONDS + limitSeconds))
    until "$@"; do
        kill -0 "$serverPid" 2>/dev/null || { cat "$folder/log" >&2; fail "the display server ended"; }
        [ "$SECONDS" -lt "$end" ] || { cat "$folder/log" >&2; fail "$what did not come up in $limitSeconds s"; }
        sleep 0.02
    done
}

displayIsKnown() { [ -s "$folder/number" ] && [ "$(wc -l <"$folder/number")" -ge 1 ]; }
managerIsUp() { xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; }

mkdir -m 700 "$folder/runtime" "$folder/home" || fail "no temporary folder"
cookie=$(mcookie)

# The server takes any cookie of its file, whatever display it is written down for; the
# number is known only once the server has chosen it.
xauth -q -f "$folder/server-auth" add :0 . "$cookie" 2>/dev/null || fail "no access cookie"
setpriv --pdeathsig TERM Xvfb -displayfd 3 -screen 0 "${VANTREL_SCREEN:-1280x1024x24}" -nolisten tcp -noreset -auth "$folder/server-auth" \
    3>"$folder/number" </dev/null >"$folder/log" 2>&1 &
serverPid=$!
waitFor "the display" displayIsKnown

DISPLAY=:$(head -n 1 "$folder/number")
XAUTHORITY=$folder/auth
export DISPLAY XAUTHORITY
xauth -q -f "$XAUTHORITY" add "$DISPLAY" . "$cookie" 2>/dev/null || fail "no access cookie"

# Nothing of the user's desktop: no message bus, no accessibility bus, no input method,
# no stored settings, and the toolkit's X11 side even where Wayland runs.
export XDG_RUNTIME_DIR="$folder/runtime"
export GDK_BACKEND=x11 NO_AT_BRIDGE=1 GTK_A11Y=none GTK_IM_MODULE=gtk-im-context-simple
export GIO_USE_VFS=local GSETTINGS_BACKEND=memory GTK_USE_PORTAL=0
export DBUS_SESSION_BUS_ADDRESS=disabled:
export LANG=C.UTF-8
unset WAYLAND_DISPLAY LC_ALL LANGUAGE

HOME=$folder/home XDG_CONFIG_HOME=$folder/home XDG_CACHE_HOME=$folder/home XDG_DATA_HOME=$folder/home \
    setpriv --pdeathsig TERM openbox --sm-disable </dev/null >>"$folder/log" 2>&1 &
managerPid=$!
waitFor "the window manager" managerIsUp

setpriv --pdeathsig KILL "$@" <&0 &
commandPid=$!
wait "$commandPid"
status=$?
commandPid=
exit "$status"
