#!/bin/sh
# SPDX-License-Identifier: MIT
# Has LibreCAD open a drawing and save it under another name: librecad.sh FROM TO
# Needs the Debian packages librecad, xvfb and xdotool.
set -e
HOME=$(mktemp -d)
export HOME QT_QPA_PLATFORM=xcb FROM="$1" TO="$2"
rm -f "$TO"
mkdir -p "$HOME/.config/LibreCAD"
printf '[Defaults]\nUseQtFileOpenDialog=1\n[Startup]\nFirstLoad=0\n' >"$HOME/.config/LibreCAD/LibreCAD.conf"
xvfb-run -a -s '-screen 0 1280x900x24' sh -c '
    librecad "$FROM" >/dev/null 2>&1 & program=$!
    sleep 12
    xdotool mousemove 198 75 click 1; sleep 4  # "Save as" of the toolbar
    xdotool key ctrl+a; xdotool type "$TO"; sleep 1; xdotool key Return; sleep 4
    kill $program'
rm -rf "$HOME"
test -s "$TO"
