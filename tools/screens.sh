#!/bin/bash
# Usage: screens.sh NUMBER COMMAND...
#
# Runs a ctest COMMAND with several screens, so that tests which need one can run in parallel:
#   tools/screens.sh 2 ctest --preset i686 -j 2
# Each screen is a session of tools/desktop.sh with its own Wine prefix: build/wine, build/wine2, ...
# ctest assigns a free screen to each test, and tools/on-screen.sh runs the test on it.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
count=$1
shift
# NUMBER.env holds the environment of each screen.
export SKYVANE_SCREENS=$root/build/screens
mkdir -p "$SKYVANE_SCREENS"
rm -f "$SKYVANE_SCREENS"/*

lenders=()
command=
finish() {
    local process
    for process in $command "${lenders[@]}"; do kill "$process" 2>/dev/null || true; done
    wait
}
trap finish EXIT
trap 'exit 130' INT TERM HUP

ids=()
for ((number = 1; number <= count; number++)); do
    prefix=$root/build/wine
    [ "$number" = 1 ] || prefix+=$number
    # shellcheck disable=SC2016
    WINEPREFIX=$prefix "$root/tools/desktop.sh" bash -c '
        declare -px DISPLAY WINEPREFIX WINEARCH WINEDEBUG WINEDLLOVERRIDES LC_ALL >"$1.new"
        mv "$1.new" "$1"
        exec sleep infinity' lend "$SKYVANE_SCREENS/$number.env" &
    lenders+=($!)
    ids+=("{\"id\": \"$number\"}")
done
for ((number = 1; number <= count; number++)); do
    until [ -e "$SKYVANE_SCREENS/$number.env" ]; do
        kill -0 "${lenders[number - 1]}" 2>/dev/null || exit 1
        sleep 0.1
    done
done
list=$(IFS=,; echo "${ids[*]}")
echo "{\"version\": {\"major\": 1, \"minor\": 0}, \"local\": [{\"screens\": [$list]}]}" >"$SKYVANE_SCREENS/screens.json"

# In the background, so that signals are handled immediately.
"$@" --resource-spec-file "$SKYVANE_SCREENS/screens.json" &
command=$!
status=0
wait "$command" || status=$?
command=
exit $status
