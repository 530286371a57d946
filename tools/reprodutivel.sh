#!/bin/bash
# SPDX-License-Identifier: MIT
# Whether two builds of the last commit are the same bytes, wherever they stand: two folders, two time zones, two
# languages, no compiler cache. Names what differs, and ends with 1 then.
#     tools/reprodutivel.sh             everything and the Debian package: two whole builds
#     tools/reprodutivel.sh TARGET...   these alone, object by object
set -euo pipefail
cd "$(dirname "$0")/.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
export SOURCE_DATE_EPOCH CCACHE_DISABLE=1

build() {  # FOLDER TARGET...
    local folder=$1
    shift
    mkdir -p "$folder"
    git archive HEAD | tar -x -C "$folder"
    cmake -G Ninja -S "$folder" -B "$folder/build" -DHOUSE_BATCHES=OFF >"$folder.log"
    nice ninja -C "$folder/build" "$@" >>"$folder.log" || { tail -20 "$folder.log" >&2; exit 1; }
    [ $# -gt 0 ] || (cd "$folder/build" && cpack >>"$folder.log")
    # Tests name the folder that they run in.
    (cd "$folder/build" && find . \( -path ./tests -o -path ./bench -o -path ./fuzz -o -path ./_CPack_Packages \) -prune -o \
        -type f \( -name '*.o' -o -path './bin/*' -o -path './instalacao/*' -o -name '*.gz' -o -name '*.deb' \) -print0 |
        sort -z | xargs -0 sha256sum) >"$folder.sums"
}

TZ=America/Sao_Paulo LC_ALL=C build "$work/um" "$@"
TZ=Asia/Tokyo LC_ALL=C.UTF-8 build "$work/outra/pasta/bem/mais/longe" "$@"
files=$(wc -l <"$work/um.sums")
[ "$files" -gt 0 ] || { echo "Nada foi construído." >&2; exit 1; }
if ! diff <(sort -k2 "$work/um.sums") <(sort -k2 "$work/outra/pasta/bem/mais/longe.sums"); then
    echo "As duas construções não são iguais." >&2
    exit 1
fi
echo "$files arquivos iguais nas duas construções."
