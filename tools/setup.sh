#!/bin/bash
# Installs the packages of packages.sh that are missing.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/packages.sh"
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
log=build/packages.log

list_missing() {
    local installed entry name other
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package} ${Package}:${Architecture}\n' \
        "${packages[@]%%=*}" 2>/dev/null | grep '^installed ') || true
    for entry in "${packages[@]}"; do
        name=${entry%%=*}
        other=${entry#"$name"}
        other=${other#=}
        if [[ $other == /* && -e $other ]] || command -v "$other" >/dev/null; then continue; fi
        grep -qE " ${name//+/\\+}( |\$)" <<<"$installed" || echo "$name"
    done
}

# Runs a command as root, if needed with sudo, which may ask for the password except on a CI machine.
as_root() {
    if [ "$(id -u)" = 0 ]; then
        env DEBIAN_FRONTEND=noninteractive "$@" </dev/null
    elif ! command -v sudo >/dev/null; then
        echo "Packages are missing: run this as root, or install sudo." >&2
        return 1
    elif [ "${CI:-}" = true ]; then
        sudo -n env DEBIAN_FRONTEND=noninteractive "$@" </dev/null
    else
        sudo env DEBIAN_FRONTEND=noninteractive "$@"
    fi
}

# The package manager prints several lines for each of hundreds of packages: they go to a log.
run_logged() { "$@" >>"$root/$log" 2>&1; }
install_packages() {
    run_logged as_root apt-get install -y -q --no-install-recommends -o DPkg::Lock::Timeout=300 "$@"
}

mapfile -t missing < <(list_missing)
for name in "${leftOutPackages[@]}"; do
    command -v "$name" >/dev/null || echo "$name is not installed here; the tests that need it are skipped."
done
[ ${#missing[@]} -gt 0 ] || exit 0

if ! command -v apt-get >/dev/null; then
    echo "This needs Debian or Ubuntu. Missing: ${missing[*]}" >&2
    exit 1
fi
echo "Missing: ${missing[*]}"
# Asks for the password here, where the prompt is visible, and stops if it is refused.
as_root true
mkdir -p "$root/build"
: >"$root/$log"
echo "Installing them with their dependencies, which can take minutes. The log is $log."
dpkg --print-foreign-architectures | grep -qx i386 || as_root dpkg --add-architecture i386
run_logged as_root apt-get update -q ||
    echo "Some package lists could not be updated; continuing with the existing ones."
# In some distributions this one is part of clang.
if ! apt-cache show libclang-rt-dev >/dev/null 2>&1; then
    mapfile -t missing < <(printf '%s\n' "${missing[@]}" | grep -vx libclang-rt-dev)
fi
# If the package lists of the two architectures are out of step, only the versions of the release itself
# match. On Ubuntu the code name also selects the updates, so the archive name is needed.
release=$(. /etc/os-release && echo "${VERSION_CODENAME:-}")
pocket=$release
if grep -qs '^ID=ubuntu' /etc/os-release; then pocket=a=$release; fi
install_packages "${missing[@]}" || {
    echo "Trying again with the versions of $release only."
    install_packages -t "$pocket" "${missing[@]}" || {
        grep -E '^(W|E|dpkg: error.*): |^sudo: ' "$root/$log" | awk '!seen[$0]++' | head -n 12 >&2 || true
        echo "The packages could not be installed; see $log." >&2
        exit 1
    }
}
mapfile -t missing < <(list_missing | grep -vx libclang-rt-dev)
if [ ${#missing[@]} -gt 0 ]; then
    echo "Still missing: ${missing[*]}" >&2
    exit 1
fi
