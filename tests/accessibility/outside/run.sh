#!/bin/bash
# Runs a script that drives the workbench from another process, as a screen reader does, on a
# virtual X server and with a separate session bus and home folder.
# Usage: run.sh WORKBENCH SCRIPT
set -euo pipefail

workbench=$1
script=$2
# The bindings are installed for the distribution's own interpreter, even if there are others.
python=/usr/bin/python3

folder=$(mktemp -d)
mkfifo "$folder/display"
# Without the option the server would start again when its last window closes, which happens while
# the bus starts.
Xvfb -displayfd 3 -screen 0 1920x1080x24 -nolisten tcp -noreset \
    3>"$folder/display" 2>"$folder/xvfb.log" &
server=$!
trap 'kill "$server" 2>/dev/null; wait "$server" 2>/dev/null || true; rm -rf "$folder"' EXIT
read -r number <"$folder/display"

export DISPLAY=":$number" QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
export HOME="$folder/home" XDG_RUNTIME_DIR="$folder/run" LANG=C.UTF-8
unset XAUTHORITY WAYLAND_DISPLAY DBUS_SESSION_BUS_ADDRESS
unset QT_SCALE_FACTOR QT_STYLE_OVERRIDE QT_QPA_PLATFORMTHEME
mkdir -p "$HOME"
mkdir -m 700 "$XDG_RUNTIME_DIR"
dbus-run-session -- "$python" -B "$script" "$workbench" "$folder/recording.jsonl"
