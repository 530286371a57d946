#!/bin/sh
# SPDX-License-Identifier: MIT
# Makes instalacao/modelo.dxf, the template of new drawings, with the program itself: an empty drawing at 1:20.
# Usage: tools/modelo.sh [CONSOLE [FILE]]
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
console=${1:-$root/build/bin/prancheta-console}
file=${2:-$root/instalacao/modelo.dxf}
printf 'ESCALADESENHO\n1:20\n' | "$console" --sem-modulos --quieto -o "$file"
