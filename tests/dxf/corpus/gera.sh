#!/bin/sh
# SPDX-License-Identifier: MIT
# Makes the drawings of this folder anew; needs the Debian packages gdal-bin, openscad, librecad,
# python3-ezdxf, xvfb and xdotool.
set -e
cd "$(dirname "$0")"
rm -f ./*.dxf
ogr2ogr -f DXF linhas.dxf linhas.geojson -sql "SELECT Layer, OGR_STYLE FROM linhas"
openscad -q -o perfil.dxf perfil.scad
drawn=$(mktemp -d)
/usr/bin/python3 ../corpus.py "$drawn"
for kind in curves texts blocks hatches dimensions; do
    ./librecad.sh "$drawn/$kind-R2000-asc.dxf" "$PWD/librecad-$kind.dxf"
done
rm -rf "$drawn"
