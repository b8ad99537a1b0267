#!/bin/bash
# Installs the missing packages that a command of this project needs.
# Usage: install-packages.sh PURPOSE, one of those in packages.txt
set -euo pipefail

purpose=$1
list="$(dirname "${BASH_SOURCE[0]}")/packages.txt"

missing=()
while read -r package purposes; do
    [[ -z $package || $package == \#* || " $purposes " != *" $purpose "* ]] && continue
    if ! dpkg -s "$package" 2>/dev/null | grep -q '^Status: install ok installed'; then
        missing+=("$package")
    fi
done <"$list"
[[ ${#missing[@]} -eq 0 ]] && exit 0

if ! command -v apt-get >/dev/null; then
    echo "This is no Debian system. Install what corresponds to: ${missing[*]}" >&2
    exit 1
fi
as_root=()
if [[ $EUID -ne 0 ]]; then
    if ! command -v sudo >/dev/null; then
        echo "As root, run: apt-get install ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi

echo "Installing: ${missing[*]}"
apt() {
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o Dpkg::Use-Pty=0 "$@" \
        </dev/null >/dev/null
}
# The package lists may be absent or name versions that the mirror has dropped.
if ! apt install -y --no-install-recommends "${missing[@]}" 2>/dev/null; then
    apt update
    apt install -y --no-install-recommends "${missing[@]}"
fi
