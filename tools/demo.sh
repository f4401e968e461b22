#!/bin/bash
# Usage: demo.sh [--live], from run, under tools/desktop.sh and in the project's folder.
# Starts the program staged in build/demo/program and shows what it retrieves. With --live the live
# feed is asked; otherwise the demonstration feed, which is served meanwhile. Stays until the program
# ends when STAY is set.
set -euo pipefail
demo=build/demo
user=$(id -un)
ini=$demo/program/$user.ini
server=
trap 'if [ -n "$server" ]; then kill "$server" 2>/dev/null || true; fi' EXIT
trap 'exit 130' INT TERM HUP

# wait_until SECONDS COMMAND...
wait_until() {
    local deadline=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        [ $SECONDS -lt $deadline ] || return 1
        sleep 0.1
    done
}
has_retrieved() { grep -qi '^LastUpdated=.' "$ini"; }
# The balloon is the shell's one window of more than a bar's height.
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
    local blanks second
    blanks=$(printf '%100s' '')
    # The second place is abroad in the demonstration; the live feed knows the United States alone.
    second="Halifax, Canada (Halifax Middle School)${blanks}HA1050***059105***44.6620***-63.5910"
    [ -n "$1" ] || second="Norman, Oklahoma (Norman Middle School)${blanks}NO0690***73069***35.2320***-97.4610"
    mkdir -p "$demo/program/Users/$user"
    printf '%s\r\n' \
        "Lawrence, Kansas (Lawrence Middle School)${blanks}LA0440***66044***38.9820***-95.2610" \
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

# Asks the live feed once, as the program will; within seconds it answers from what is kept.
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
        echo "The program ended." >&2
    else
        echo "No retrieval within 90 seconds from ${feed:-the live feed: is it within reach?}" >&2
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
if [ "${count:-0}" != 0 ]; then wait_until 15 has_balloon || echo "No balloon was seen."; fi
import -window root "$demo/screenshot.png"
echo "The screen with icon and balloon: $PWD/$demo/screenshot.png"

if [ -n "${STAY:-}" ]; then
    echo "The program is in your taskbar's notification area; choose Exit in its menu, or press Ctrl+C here."
    wait "$program" || true
fi
