#!/bin/bash
# Installs the packages of packages.sh that are missing; does nothing, quickly, when none is.
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

# As root directly, otherwise by sudo, which may ask for the password unless this is a CI machine.
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

# The package manager tells several lines for each of hundreds of packages: the log takes them.
run_logged() { "$@" >>"$root/$log" 2>&1; }
install_packages() {
    run_logged as_root apt-get install -y -q --no-install-recommends -o DPkg::Lock::Timeout=300 "$@"
}

mapfile -t missing < <(list_missing)
for name in "${leftOutPackages[@]}"; do
    command -v "$name" >/dev/null || echo "$name is left out here: what needs it is skipped, and says so."
done
[ ${#missing[@]} -gt 0 ] || exit 0

if ! command -v apt-get >/dev/null; then
    echo "This needs Debian or Ubuntu. Missing: ${missing[*]}" >&2
    exit 1
fi
echo "Missing: ${missing[*]}"
# The password is asked for here, where it is seen, and a refusal ends it before anything is tried.
as_root true
mkdir -p "$root/build"
: >"$root/$log"
echo "Installing them and what they need; the first time this takes minutes. $log tells how far it is."
dpkg --print-foreign-architectures | grep -qx i386 || as_root dpkg --add-architecture i386
run_logged as_root apt-get update -q ||
    echo "Some package lists could not be renewed; going on with what there is."
# Some distributions have this one only as part of clang.
if ! apt-cache show libclang-rt-dev >/dev/null 2>&1; then
    mapfile -t missing < <(printf '%s\n' "${missing[@]}" | grep -vx libclang-rt-dev)
fi
# When the lists of the two architectures are out of step, only the release's own versions match.
# Ubuntu gives the code name to its updates, too, and tells them apart by the archive.
release=$(. /etc/os-release && echo "${VERSION_CODENAME:-}")
pocket=$release
if grep -qs '^ID=ubuntu' /etc/os-release; then pocket=a=$release; fi
install_packages "${missing[@]}" || {
    echo "Trying again with the versions of $release alone."
    install_packages -t "$pocket" "${missing[@]}" || {
        grep -E '^(W|E|dpkg: error.*): |^sudo: ' "$root/$log" | awk '!seen[$0]++' | head -n 12 >&2 || true
        echo "The packages could not be installed; $log tells all." >&2
        exit 1
    }
}
mapfile -t missing < <(list_missing | grep -vx libclang-rt-dev)
if [ ${#missing[@]} -gt 0 ]; then
    echo "Still missing: ${missing[*]}" >&2
    exit 1
fi
