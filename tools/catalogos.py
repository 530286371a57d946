#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the catalogue lists from the size tables in dados/.

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


def compact(row):
    """Designation without blanks: CVS1000x394."""
    return row["designation"].replace(" ", "")


def series_line(row):
    """Designation, height and mass under the header "  Tipo     H     Kg/m". CVS1000x394 takes eleven places."""
    return [f"{compact(row):<12}{size(row['H']):<4}{float(row['kg_m']):>6.1f}"]


I_VALUES = (("H", size), ("B", size), ("tf", wall), ("tw", wall), ("kg_m", wall))
DESIGNATION = ("designation", str)

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

# The same for lists that come in pairs, one line for each size in both: sizes shown, values.
PAIRS = [
    ("vi_vs.lst", "vs.lst", "vs", series_line, plain(*I_VALUES)),
    ("vi_cvs.lst", "cvs.lst", "cvs", series_line, plain(*I_VALUES)),
    ("vi_cs.lst", "cs.lst", "cs", series_line, plain(*I_VALUES)),
    ("BitolasAcoMinas.lst", "DadosAcoMinas.lst", "acominas", plain(DESIGNATION), plain(*I_VALUES)),
    ("vi_lam.lst", "ipe.lst", "ipe",
     plain(DESIGNATION, ("H", size), ("kg_m", wall)), plain(DESIGNATION, *I_VALUES)),
    ("vi_usa.lst", "vi_usa_dados.lst", "usa", plain(("H", size), ("kg_m", wall)), plain(*I_VALUES)),
]

# What a new user finds among the favourites.
FAVOURITES = {
    # H, B, tf, tw: light beams of plates that every stockist has
    "vi.lst": [
        "200\t100\t6.30\t4.75",
        "250\t120\t8.00\t4.75",
        "300\t150\t9.50\t6.30",
        "350\t150\t9.50\t6.30",
        "400\t200\t12.50\t8.00",
        "500\t250\t16.00\t8.00",
    ],
    # H, lower flange bb x tb, upper flange bc x tc, tw, written as the program writes them
    "psa.lst": [
        "300\t150\t9.5\t200\t12.5\t6.3",
        "400\t200\t12.5\t250\t16\t8",
        "500\t200\t12.5\t300\t19\t8",
        "600\t250\t16\t350\t22.4\t9.5",
    ],
}


def rows(table):
    with open(ROOT / "dados" / f"{table}.csv", encoding="utf-8", newline="") as source:
        return list(csv.DictReader(source))


def lists():
    """Name and lines of every list."""
    for name, table, make in LISTS:
        # A table may hold one size twice, from two makers.
        yield name, list(dict.fromkeys("\t".join(make(row)) for row in rows(table)))
    for shown, values, table, *makers in PAIRS:
        for name, make in zip((shown, values), makers):
            yield name, ["\t".join(make(row)) for row in rows(table)]
    yield from FAVOURITES.items()


def main():
    destination = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else ROOT / "instalacao/Perfis/Listas"
    destination.mkdir(parents=True, exist_ok=True)
    for name, lines in lists():
        (destination / name).write_text("\n".join(lines) + "\n", encoding="utf-8", newline="\n")


if __name__ == "__main__":
    main()
