#!/bin/bash
# Usage: desktop.sh [--here] COMMAND...
#
# Runs COMMAND with its own virtual display and its own Wine session, and ends both afterwards:
#   tools/desktop.sh ctest --preset i686 -R tray
# The display has a taskbar. With --here, the current display is used if there is one.
# The Wine prefix is WINEPREFIX, by default build/wine; it is created if needed.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
source "$root/tools/wait-until.sh"

here=
if [ "${1:-}" = --here ]; then
    here=yes
    shift
fi

export WINEPREFIX=${WINEPREFIX:-$root/build/wine} WINEARCH=win32 WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe="
# Determines Wine's user interface language and the code page of file names.
export LC_ALL=C.UTF-8
# Some releases do not put wineserver on the search path if only the 32-bit Wine is installed.
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

has_shell() { xwininfo -root -tree | grep -q '"explorer.exe"'; }
has_taskbar() { xwininfo -root -tree | grep -q '"TaskBar"'; }

start_screen() {
    local logs=$root/build/screen
    mkdir -p "$logs"
    : >"$logs/$$.display"
    Xvfb -displayfd 3 -screen 0 1280x800x24 -nolisten tcp 3>"$logs/$$.display" >"$logs/Xvfb.log" 2>&1 &
    started+=($!)
    wait_until 20 test -s "$logs/$$.display" || { cat "$logs/Xvfb.log" >&2; echo "The virtual display did not start." >&2; exit 1; }
    DISPLAY=:$(cat "$logs/$$.display")
    rm -f "$logs/$$.display"
    export DISPLAY
    unset WAYLAND_DISPLAY XAUTHORITY
    ICEWM_PRIVCFG=$root/tools/icewm icewm >"$logs/icewm.log" 2>&1 &
    started+=($!)
    wait_until 20 has_taskbar || { cat "$logs/icewm.log" >&2; echo "The taskbar did not appear." >&2; exit 1; }
}

make_prefix() {
    [ ! -e "$WINEPREFIX/ready" ] || return 0
    echo "Creating the Wine prefix ${WINEPREFIX#"$root"/}"
    rm -rf "$WINEPREFIX"
    mkdir -p "$WINEPREFIX"
    wineboot -i >/dev/null 2>&1
    # A crash must end the program with an exit code instead of showing a dialog.
    wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f >/dev/null 2>&1
    wineserver -w
    touch "$WINEPREFIX/ready"
}

mkdir -p "$(dirname "$WINEPREFIX")"
exec 9>"$WINEPREFIX.lock"
if ! flock -n 9; then
    echo "Another command is using ${WINEPREFIX#"$root"/}; wait for it or set WINEPREFIX to another folder." >&2
    exit 1
fi
trap finish EXIT
trap 'exit 130' INT TERM HUP

if [ -z "$here" ] || [ -z "${DISPLAY:-}" ]; then start_screen; fi
make_prefix
# Wine's services and its shell keep running between the programs of one command, so that each starts
# quickly. They are started here so that they do not hold the command's output open. For root, Wine's
# server drops the capability to bypass file permissions: read-only folders must be read-only in tests.
bounds=()
if [ "$(id -u)" = 0 ] && setpriv --bounding-set -dac_override true 2>/dev/null; then
    bounds=(setpriv --bounding-set -dac_override)
fi
"${bounds[@]}" wineserver -p >/dev/null 2>&1
wineboot </dev/null >/dev/null 2>&1
wine explorer.exe /desktop </dev/null >/dev/null 2>&1 &
started+=($!)
wait_until 20 has_shell || { echo "Wine's shell did not start." >&2; exit 1; }

# In the background, so that signals are handled immediately.
"$@" <&0 &
command=$!
started+=("$command")
wait "$command"
