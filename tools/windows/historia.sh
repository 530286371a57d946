#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the console for this system and for Windows and holds them against each other, in wine.
# Usage: historia.sh [NATIVE-BUILD WINDOWS-BUILD [SCENARIO...]]; without folders the presets' are built.
set -euo pipefail
raiz=$(cd "$(dirname "$0")/../.." && pwd)
nativa=${1:-$raiz/build}
windows=${2:-$raiz/build-windows}
partes=(prancheta-console zpperfis instalacao bibliotecas-de-slides)

if [ $# -eq 0 ]; then
    cmake --preset release -S "$raiz" >/dev/null
    cmake --preset windows -S "$raiz" >/dev/null
fi
cmake --build "$nativa" --target "${partes[@]}" -j "$(nproc)"
cmake --build "$windows" --target "${partes[@]}" -j "$(nproc)"

pasta=$(mktemp -d)
export WINEPREFIX=$pasta/wine WINEDEBUG=-all LC_ALL=C.UTF-8
limpa() {
    wineserver -k 2>/dev/null || true
    wineserver -w 2>/dev/null || true
    rm -rf "$pasta"
}
trap limpa EXIT
wineboot -i >/dev/null 2>&1
"$raiz/tools/historias.py" "$nativa" "$windows" "${@:3}"
