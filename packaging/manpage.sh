#!/bin/sh
# SPDX-License-Identifier: MIT
# The console's manual page: PROGRAM's own help in the place of @OPTIONS@ in TEMPLATE.
#     manpage.sh PROGRAM TEMPLATE >PAGE
set -e
options=$("$1" --ajuda | awk '
    /^Opções:/ { on = 1; next }
    /^$/ { on = 0 }
    !on { next }
    /^                    / { sub(/^ +/, ""); print; next }    # words that had no room behind the option
    {
        sub(/^ +/, "")
        split($0, part, /  +/)
        gsub(/-/, "\\-", part[1]); gsub(/,/, ", ", part[1])
        print ".TP\n.B " part[1]
        if (part[2] != "") print part[2]
    }')
[ -n "$options" ] || { echo "manpage.sh: $1 --ajuda não mostra opções" >&2; exit 1; }
awk -v options="$(printf '%s' "$options" | sed 's/\\/\\\\/g')" '/^@OPTIONS@$/ { print options; next } { print }' "$2"
