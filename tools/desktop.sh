#!/bin/bash
# Usage: desktop.sh [--here] COMMAND...
#
# Runs COMMAND with a screen and a Wine to itself, and ends both with it:
#   tools/desktop.sh ctest --preset i686 -R tray
# The screen is a virtual one with a taskbar; --here takes the display there is, if any.
# The Wine prefix is build/wine, made once; another can be named by WINEPREFIX.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

here=
if [ "${1:-}" = --here ]; then
    here=yes
    shift
fi

export WINEPREFIX=${WINEPREFIX:-$root/build/wine} WINEARCH=win32 WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe="
# Wine takes its user interface language and the code page of file names from here.
export LC_ALL=C.UTF-8
# Some releases keep Wine's server off the search path when only the 32-bit Wine is installed.
if ! command -v wineserver >/dev/null; then
    for server in /usr/lib/*/wine/wineserver; do PATH=$PATH:${server%/*}; done
fi
started=()

finish() {
    if [ -e "$WINEPREFIX/system.reg" ]; then
        wineserver -k >/dev/null 2>&1 || true
        wineserver -w >/dev/null 2>&1 || true
    fi
    local i
    for ((i = ${#started[@]} - 1; i >= 0; i--)); do
        kill "${started[i]}" 2>/dev/null || true
        wait "${started[i]}" 2>/dev/null || true
    done
}
# Waits up to 20 seconds until a command succeeds.
wait_until() {
    local deadline=$((SECONDS + 20))
    until "$@" >/dev/null 2>&1; do
        [ $SECONDS -lt $deadline ] || return 1
        sleep 0.05
    done
}

has_shell() { xwininfo -root -tree | grep -q '"explorer.exe"'; }
has_taskbar() { xwininfo -root -tree | grep -q '"TaskBar"'; }

start_screen() {
    local logs=$root/build/screen
    mkdir -p "$logs"
    : >"$logs/$$.display"
    Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$logs/$$.display" >"$logs/Xvfb.log" 2>&1 &
    started+=($!)
    wait_until test -s "$logs/$$.display" || { cat "$logs/Xvfb.log" >&2; echo "No virtual screen." >&2; exit 1; }
    DISPLAY=:$(cat "$logs/$$.display")
    rm -f "$logs/$$.display"
    export DISPLAY
    unset WAYLAND_DISPLAY XAUTHORITY
    ICEWM_PRIVCFG=$root/tools/icewm icewm >"$logs/icewm.log" 2>&1 &
    started+=($!)
    wait_until has_taskbar || { cat "$logs/icewm.log" >&2; echo "No taskbar came up." >&2; exit 1; }
}

make_prefix() {
    [ ! -e "$WINEPREFIX/ready" ] || return 0
    echo "Making the Wine prefix, once: ${WINEPREFIX#"$root"/}"
    rm -rf "$WINEPREFIX"
    mkdir -p "$WINEPREFIX"
    wineboot -i >/dev/null 2>&1
    # A crash must end the program with its status, not wait in a dialog that nobody sees.
    wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f >/dev/null 2>&1
    wineserver -w
    touch "$WINEPREFIX/ready"
}

mkdir -p "$(dirname "$WINEPREFIX")"
exec 9>"$WINEPREFIX.lock"
if ! flock -n 9; then
    echo "Another command is using ${WINEPREFIX#"$root"/}; wait for it, or name another folder by WINEPREFIX." >&2
    exit 1
fi
trap finish EXIT
trap 'exit 130' INT TERM HUP

if [ -z "$here" ] || [ -z "${DISPLAY:-}" ]; then start_screen; fi
make_prefix
# Wine's services and its shell stay between the programs of one command, so that each starts
# quickly. They start here, away from the command's output: nobody who reads that waits for them.
# What the administrator of this machine may write to is no matter: files are opened by Wine's server,
# and a folder that is closed to its owner is closed to the program.
bounds=()
if [ "$(id -u)" = 0 ] && setpriv --bounding-set -dac_override true 2>/dev/null; then
    bounds=(setpriv --bounding-set -dac_override)
fi
"${bounds[@]}" wineserver -p >/dev/null 2>&1
wineboot </dev/null >/dev/null 2>&1
wine explorer.exe /desktop </dev/null >/dev/null 2>&1 &
started+=($!)
wait_until has_shell || { echo "Wine's shell did not start." >&2; exit 1; }

# In the background, so that a signal is answered at once.
"$@" <&0 &
command=$!
started+=("$command")
wait "$command"
