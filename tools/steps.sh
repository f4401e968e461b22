# Sourced by run, test and package: numbered steps, and a final message that names the failed step.
# The caller sets stepCount.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
stepNumber=0
stepCount=0
stepName=starting

start_step() {
    stepNumber=$((stepNumber + 1))
    stepName=$1
    printf '[%d/%d] %s ...\n' "$stepNumber" "$stepCount" "$stepName"
}

name_failed_step() {
    local status=$?
    if [ $status -ne 0 ] && [ $status -ne 130 ] && [ $stepNumber -gt 0 ]; then
        printf '\n%s FAILED in step [%d/%d]: %s (status %d)\n' \
            "$0" "$stepNumber" "$stepCount" "$stepName" "$status" >&2
    fi
}
trap name_failed_step EXIT

# Runs a long command so that a signal ends it, and all that it started, immediately.
child=
run_long() {
    "$@" <&0 &
    child=$!
    local status=0
    wait "$child" || status=$?
    child=
    return $status
}
stop() {
    if [ -n "$child" ]; then
        kill "$child" 2>/dev/null || true
        wait "$child" 2>/dev/null || true
    fi
    exit 130
}
trap stop INT TERM HUP

# Builds a preset of CMakePresets.json and configures it first if needed.
build_preset() {
    if [ ! -e "build/$1/build.ninja" ]; then cmake --preset "$1"; fi
    cmake --build --preset "$1"
}
