#!/bin/bash
# Usage: demo.sh [--live]. Called by run, under tools/desktop.sh, in the project's root folder.
# Starts the program in build/demo/program and prints what it retrieves: from the live feed with --live,
# otherwise from the demonstration feed, which it serves. If STAY is set, waits until the program exits.
set -euo pipefail
source tools/wait-until.sh
demo=build/demo
user=$(id -un)
ini=$demo/program/$user.ini
server=
trap 'if [ -n "$server" ]; then kill "$server" 2>/dev/null || true; fi' EXIT
trap 'exit 130' INT TERM HUP

has_retrieved() { grep -qi '^LastUpdated=.' "$ini"; }
# The balloon is the shell's only window that is taller than a bar.
has_balloon() { xwininfo -root -tree | grep -qE '"explorer.exe"\) +[0-9]{3}x([4-9][0-9]|[0-9]{3})\+'; }
read_ini() { sed -n "s/^$1=\(.*[^[:cntrl:]]\)[[:cntrl:]]*\$/\1/Ip" "$ini" | head -n 1; }

write_settings() {
    {
        if [ -n "$1" ]; then printf '[Hosts]\nFEED=%s\n' "$1"; fi
        cat <<'TEXT'
[Options]
STOREFILESINPROGRAMFOLDER=True
RETRIEVEALERTSONSTARTUP=True
DISPLAYTRAYALERT=True
FLASHTRAYICON=True
TRAYALERTSOUND=Chime.wav
ALERTFILTERS=small stream|||||ponding of water
SHOWFILTEREDWORDS=False
[Misc]
RUNS=1
TEXT
    } | sed 's/$/\r/' >"$ini"
    local spaces second
    spaces=$(printf '%100s' '')
    # The demonstration feed has a place abroad; the live feed covers only the United States.
    second="Halifax, Canada (Halifax Middle School)${spaces}HA1050***059105***44.6620***-63.5910"
    [ -n "$1" ] || second="Norman, Oklahoma (Norman Middle School)${spaces}NO0690***73069***35.2320***-97.4610"
    mkdir -p "$demo/program/Users/$user"
    printf '%s\r\n' \
        "Lawrence, Kansas (Lawrence Middle School)${spaces}LA0440***66044***38.9820***-95.2610" \
        "$second" \
        >"$demo/program/Users/$user/CityCode.cmb"
}

rm -f "$demo/port" "$demo/requests.log"
feed=
if [ "${1:-}" != --live ]; then
    python3 -B demo/server.py --port-file "$demo/port" --log "$demo/requests.log" &
    server=$!
    wait_until 20 test -s "$demo/port" || { echo "The demonstration feed did not start." >&2; exit 1; }
    feed=http://127.0.0.1:$(cat "$demo/port")/
    echo "The demonstration feed is at $feed"
fi
write_settings "$feed"

# Sends the request that the program will send; the program then gets the cached answer.
can_reach_live_feed() {
    local folder=$demo/program
    (cd "$folder" && wine dl.exe "nws://api.weather.gov/GetXml.aspx?partnerid=7e3a90d4&requesttype=6&ZipCode=66044|live.xml|live.txt") || true
    status=$(cat "$folder/live.txt" 2>/dev/null) || true
    rm -f "$folder/live.xml" "$folder/live.txt"
    [ "$status" = 0 ]
}
if [ -z "$feed" ] && ! can_reach_live_feed; then
    echo "The live feed at https://api.weather.gov could not be reached: status ${status:-missing} (see docs/settings.md)." >&2
    exit 1
fi

wine "$demo/program/SVAlerts.exe" -i >"$demo/program.log" 2>&1 &
program=$!
wait_until 90 has_retrieved || {
    if ! kill -0 "$program" 2>/dev/null; then
        echo "The program exited." >&2
    else
        echo "No alerts were retrieved within 90 seconds from ${feed:-the live feed}." >&2
    fi
    cat "$demo/program.log" "$demo/requests.log" >&2 2>/dev/null || true
    exit 1
}

count=$(read_ini Count)
echo "Retrieved at $(read_ini LastUpdated). Stored alerts: ${count:-0}"
for ((n = 1; n <= ${count:-0}; n++)); do
    printf '  %d. %s (station %s, %s)\n     %.110s...\n' "$n" "$(read_ini "Title$n")" "$(read_ini "ZipCode$n")" \
        "$(read_ini "Id$n")" "$(read_ini "Body$n")"
done
if [ "${count:-0}" != 0 ]; then wait_until 15 has_balloon || echo "No balloon appeared."; fi
import -window root "$demo/screenshot.png"
echo "Screenshot with the icon and the balloon: $PWD/$demo/screenshot.png"

if [ -n "${STAY:-}" ]; then
    echo "The program is running in the notification area. Choose Exit in its menu, or press Ctrl+C here."
    wait "$program" || true
fi
