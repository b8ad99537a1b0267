#!/bin/bash
# Makes the Debian packages of a build, unpacks them into a folder, and uses them as a host and a
# user would: reads the metadata, builds and runs the small host, starts the workbench.
# Usage: check-install.sh BUILD-FOLDER COMPILER FLAGS
set -euo pipefail
build=$1
compiler=$2
flags=$3
project=$(readlink -f "$(dirname "${BASH_SOURCE[0]}")/../..")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
root=$work/root

fail() {
    echo "FAIL: $1" >&2
    [[ -z ${2:-} ]] || cat "$2" >&2
    exit 1
}

# Fast compression is enough here.
(cd "$build" && cpack -G DEB -B "$work/packages" -D CPACK_DEBIAN_COMPRESSION_TYPE=gzip) >"$work/cpack" 2>&1 \
    || fail "no packages" "$work/cpack"
for name in trackingsettings trackingsettings-dev trackingsettings-workbench; do
    package=$(echo "$work/packages/${name}_"*.deb)
    [[ -f $package ]] || fail "there is no package $name" "$work/cpack"
    dpkg-deb --extract "$package" "$root"
    dpkg-deb --field "$package" Depends >"$work/$name"
    dpkg-deb --field "$package" Version >>"$work/version"
done
[[ $(sort -u "$work/version" | wc -l) == 1 ]] || fail "the versions differ" "$work/version"
version=$(head -1 "$work/version")
grep -q libqt5widgets5 "$work/trackingsettings" \
    || fail "the plug-in needs no toolkit" "$work/trackingsettings"
grep -q "qtbase5-dev" "$work/trackingsettings-dev" \
    || fail "the headers need no toolkit" "$work/trackingsettings-dev"
for needed in "trackingsettings (= $version)" "trackingsettings-dev (= $version)" libqt5widgets5; do
    grep -qF "$needed" "$work/trackingsettings-workbench" \
        || fail "the workbench does not need $needed" "$work/trackingsettings-workbench"
done
for name in trackingsettings trackingsettings-workbench; do
    compgen -G "$work/packages/$name-dbgsym_*" >/dev/null || fail "no debug symbols of $name"
done

plugin=$(find "$root" -name libTrackingSettings.so)
[[ -n $plugin ]] || fail "the plug-in is not installed"
[[ -z $(nm "$plugin" 2>/dev/null) ]] || fail "the installed plug-in is not stripped"
for file in "${plugin%/*}/translations/trackingsettings_de.qm" \
    "$root/usr/share/applications/trackingsettings-workbench.desktop" \
    "$root/usr/share/icons/hicolor/scalable/apps/trackingsettings-workbench.svg" \
    "$root/usr/share/man/man1/workbench.1"; do
    [[ -s $file ]] || fail "not installed: $file"
done

cmake -S "$project/examples/minimalhost" -B "$work/host" -G Ninja \
    -DCMAKE_PREFIX_PATH="$root/usr" -DCMAKE_CXX_COMPILER="$compiler" \
    -DCMAKE_CXX_FLAGS="$flags -Wall -Wextra -Werror" >"$work/log" 2>&1 \
    || fail "the small host cannot be configured" "$work/log"
cmake --build "$work/host" >"$work/log" 2>&1 || fail "the small host cannot be built" "$work/log"
export QT_QPA_PLATFORM=offscreen HOME=$work
"$work/host/minimalhost" --walk >"$work/log" 2>&1 || fail "the small host fails" "$work/log"
for line in "GUI Settings Tracking v$version" "&Tracking / &Single markers" \
    "&Tracking / &Body administration"; do
    grep -qxF "$line" "$work/log" || fail "the small host does not say: $line" "$work/log"
done
grep -qxE "[1-9][0-9]{2,} commands answered" "$work/log" \
    || fail "the small host's dialogs asked nothing" "$work/log"

# The installed workbench finds the installed plug-in and scenarios, not those of the build.
printf 'menu "Body administration"\nclick pushButton_exit\n' >"$work/look.script"
said=$("$root/usr/bin/workbench" --headless --script "$work/look.script" 2>&1) \
    || fail "the installed workbench fails: $said"
echo "PASS"
