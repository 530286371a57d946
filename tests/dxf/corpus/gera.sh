#!/bin/sh
# SPDX-License-Identifier: MIT
# Makes the drawings of this folder anew; needs the Debian packages gdal-bin and openscad.
set -e
cd "$(dirname "$0")"
rm -f linhas.dxf perfil.dxf
ogr2ogr -f DXF linhas.dxf linhas.geojson -sql "SELECT Layer, OGR_STYLE FROM linhas"
openscad -q -o perfil.dxf perfil.scad
