# Sourced by run and test: numbered steps, and an end that names the step that failed.
# The caller sets stepCount.
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
stepNumber=0
stepName=starting

start_step() {
    stepNumber=$((stepNumber + 1))
    stepName=$1
    printf '[%d/%d] %s ...\n' "$stepNumber" "$stepCount" "$stepName"
}

name_failed_step() {
    local status=$?
    [ $status -eq 0 ] || printf '\n%s FAILED in step [%d/%d]: %s (status %d)\n' \
        "$0" "$stepNumber" "$stepCount" "$stepName" "$status" >&2
}
trap name_failed_step EXIT
trap 'exit 130' INT TERM

# Builds a preset of CMakePresets.json; configures it when that has not been done.
build_preset() {
    if [ ! -e "build/$1/build.ninja" ]; then cmake --preset "$1"; fi
    cmake --build --preset "$1"
}
