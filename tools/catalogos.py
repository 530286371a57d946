#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the catalogue lists of the single and built-up pieces from the size tables in dados/.

    tools/catalogos.py [DESTINATION]

One size a line, fields separated by a tab, decimal point. Sizes are written as the trade writes them: widths
without needless zeros, wall thicknesses with two decimals, masses with two decimals. Lists that a user may have
edited are only replaced when this program is run by hand. Sources of the tables: docs/catalogos.md.
"""

import csv
import pathlib
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent


def size(value):
    """A width or height: 200, 50.8."""
    return f"{float(value):.2f}".rstrip("0").rstrip(".")


def wall(value):
    """A thickness or a mass: 3.00, 2.65."""
    return f"{float(value):.2f}"


def plain(*columns):
    """Row maker from (column of the table, how to write it)."""
    return lambda row: [write(row[name]) for name, write in columns]


HBT = (("h", size), ("b", size), ("t", wall))
ROLLED = plain(*HBT, ("kg_m", wall))


def with_gap(gap, *more):
    """h, b, t, the gap between the two pieces, and further columns."""
    return lambda row: plain(*HBT)(row) + [size(gap(row))] + plain(*more)(row)


def turned_hat(row):
    """A hat lying on its side: height = its top, flange = its side; then gap and lip."""
    return [size(row["b"]), size(row["h"]), wall(row["t"]), "8", size(row["a"])]


# list, table, row maker
LISTS = [
    ("pu.lst", "u_dobrado", plain(*HBT)),
    ("pur.lst", "u_enrijecido", plain(*HBT, ("a", size))),
    ("pz.lst", "z_dobrado", plain(*HBT, ("a", size))),
    ("pc.lst", "cartola", plain(*HBT, ("a", size))),
    ("pl.lst", "cantoneira_dobrada", lambda row: plain(*HBT)(row) + ["0"]),
    ("pl_lam.lst", "cantoneira_laminada", ROLLED),
    ("pu_lam.lst", "u_laminado", ROLLED),
    ("pbr.lst", "barra_redonda", plain(("d", size))),
    ("ptb.lst", "tubo", plain(("d", size), ("wall", wall))),
    ("pbox.lst", "caixa", plain(*HBT)),
    ("pltee.lst", "cantoneira_dobrada", with_gap(lambda row: 8)),
    ("plf.lst", "cantoneira_dobrada", with_gap(lambda row: 3 * float(row["b"]))),
    ("plv.lst", "cantoneira_dobrada", with_gap(lambda row: 8)),
    ("pua.lst", "u_dobrado", with_gap(lambda row: 8)),
    ("puf.lst", "u_dobrado", with_gap(lambda row: 2 * float(row["b"]) + 20)),
    ("puaenr.lst", "u_enrijecido", with_gap(lambda row: 8, ("a", size))),
    ("picart.lst", "cartola", turned_hat),
]


def main():
    destination = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else ROOT / "instalacao/Perfis/Listas"
    destination.mkdir(parents=True, exist_ok=True)
    for name, table, make in LISTS:
        with open(ROOT / "dados" / f"{table}.csv", encoding="utf-8", newline="") as source:
            lines = ["\t".join(make(row)) for row in csv.DictReader(source)]
        # A table may hold one size twice, from two makers.
        lines = list(dict.fromkeys(lines))
        (destination / name).write_text("\n".join(lines) + "\n", encoding="utf-8", newline="\n")


if __name__ == "__main__":
    main()
