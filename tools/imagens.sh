#!/bin/sh
# SPDX-License-Identifier: MIT
# Draws the pictures of the dialogs that the manual shows, into docs/imagens.
#
#     tools/imagens.sh [BUILD]        the build folder; needs its target fotografar-dialogos, and ImageMagick
set -eu
house=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$house/build}
photos=$(mktemp -d)
trap 'rm -rf "$photos"' EXIT
"$build/bin/fotografar-dialogos" "$photos" >/dev/null 2>&1
mkdir -p "$house/docs/imagens"
rm -f "$house"/docs/imagens/*.png
grep -o '(imagens/[^)]*)' "$house/docs/manual.md" | tr -d '()' | sort -u | while read -r picture; do
    convert "$photos/$(basename "$picture")" -strip +dither -colors 64 "PNG8:$house/docs/$picture"
done
