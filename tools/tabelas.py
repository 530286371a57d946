#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes the side tables of the catalogues from the facts in dados/.

    tools/tabelas.py [DESTINATION]

A table holds what the lists cannot: designation, radii, mass and section values as a source prints them, keyed by
size, one family a file. dados/publicado/ has one file a source, what the source is in its '#' lines; sizes of the
lists that no published table has come from dados/ with what is known of them. Format: docs/catalogos.md.
"""

import csv
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
DADOS = ROOT / "dados"

COLUMNS = ("designacao h b aba tw tf t d r r_ponta inclinacao kg_m A Ix Wx rx Zx Iy Wy ry Zy It Cw xg yg rz "
           "norma fonte duvida").split()
SIZES = "h b aba tw tf t d".split()

HEAD = """\
# {title}
# mm; kg/m; A cm2; I e It cm4; W e Z cm3; r, xg e yg cm; Cw cm6; graus. Vazio: a fonte não imprime.
# Feita por tools/tabelas.py. Linhas próprias: {name}_usuario.csv, com as mesmas colunas.
"""

NBR_6355 = "ABNT NBR 6355:2012"
MARKET = ("", "bitola corrente no mercado brasileiro", False)
ASKED = ("", "bitola do mercado brasileiro", False)
MANUAL = ("ABNT NBR 8261", "manual brasileiro de estruturas de aço", True)
EN_10210 = ("EN 10210-2", "EN 10210-2", True)

# What the tables in dados/ call their sources: norm, source, and whether it prints the mass.
SOURCES = {
    "BR": MANUAL,
    "MERC": MARKET,
    "SEM": ASKED,
    "EN10210": EN_10210,
    "NBR5580-L": ("ABNT NBR 5580", "ABNT NBR 5580, classe leve", True),
    "NBR5580-M": ("ABNT NBR 5580", "ABNT NBR 5580, classe média", True),
}


def number(value):
    return f"{float(value):.10g}"


def trade(*sizes):
    """200x75x2,65."""
    return "x".join(number(size) for size in sizes).replace(".", ",")


def own(table, sizes, name, source):
    """Rows of a table in dados/: `sizes` maps our columns to its own, `source` tells (norm, source, mass printed)."""
    with open(DADOS / f"{table}.csv", encoding="utf-8", newline="") as file:
        for row in csv.DictReader(file):
            made = {column: number(row[theirs]) for column, theirs in sizes.items()}
            norm, origin, printed = source(row)
            if printed:
                made["kg_m"] = number(row["kg_m"])
            doubt = "medida sem tabela publicada à mão; confirme-a com o fornecedor" if origin == ASKED[1] else ""
            yield made | {"designacao": name(row), "norma": norm, "fonte": origin, "duvida": doubt}


def published(name):
    """Rows of a file in dados/publicado/."""
    head = {}
    with open(DADOS / "publicado" / f"{name}.csv", encoding="utf-8", newline="") as file:
        lines = file.readlines()
    while lines[0].startswith("#"):
        key, _, value = lines.pop(0)[1:].partition(":")
        head[key.strip()] = value.strip()
    for row in csv.DictReader(lines):
        yield row | {"norma": head["norma"], "fonte": head["fonte"]}


def key(row):
    """Sizes to a hundredth; welded series have two masses of one designation but never two of one size."""
    return tuple(round(float(row.get(column) or 0), 2) for column in SIZES)


def joined(*sources):
    """Each size once, from the first source that has it."""
    rows = {}
    for source in sources:
        for row in source:
            rows.setdefault(key(row), row)
    return list(rows.values())


def heaviest(makers, others):
    """Tubes: of several makers the heaviest mass counts, or the order is short; other sources fill the sizes that no
    maker prints. Brazilian prints that differ by more than 1 % are told."""
    printed = {}
    for source in makers:
        for row in source:
            printed.setdefault(key(row), []).append(row)
    others = list(others)
    for row in others:
        printed.setdefault(key(row), []).append(row) if row["fonte"] == MANUAL[1] else None
    rows = []
    for same in printed.values():
        same.sort(key=lambda row: -float(row["kg_m"]))
        best = same[0]
        differ = [f"{row['fonte'].split(',')[0]} imprime {number(row['kg_m']).replace('.', ',')} kg/m" for row in same[1:]
                  if float(row["kg_m"]) < 0.99 * float(best["kg_m"])]
        if differ:
            doubts = [best["duvida"]] if best.get("duvida") else []
            best = best | {"duvida": "; ".join(doubts + differ) + "; vale a maior massa"}
        rows.append(best)
    return joined(rows, others)


def ordered(rows):
    """Tubes: squares before rectangles, then by size."""
    def place(row):
        return ("h" in row and float(row["h"] or 0) != float(row["b"] or 0), *key(row)[:3], key(row)[6], key(row)[5])
    return sorted(rows, key=place)


def by_inches(rows):
    """Rolled shapes: in inches before metric ones, by the nominal depth, then by thickness or mass."""
    def place(row):
        nominal = re.match(r'\w+ (\d+)" x [\d,]+$', row["designacao"])  # U 6" x 12,2
        return ('"' not in row["designacao"], float(nominal[1] if nominal else row["h"]),
                float(row.get("t") or row["kg_m"]))
    return sorted(rows, key=place)


def inches(designation):
    """1.1/4" as 1 1/4"."""
    return re.sub(r"(\d)\.(\d+/\d+)", r"\1 \2", designation)


def bent(table, name, lip, printed):
    sizes = {"h": "h", "b": "b", "t": "t"} | ({"aba": "a"} if lip else {})
    columns = ("h", "b", "a", "t") if lip else ("h", "b", "t")
    return list(own(table, sizes, lambda row: f"{name} {trade(*(row[c] for c in columns))}",
                    lambda row: (NBR_6355, NBR_6355, printed)))


def tubes(table, sizes, name):
    return own(table, sizes, name, lambda row: SOURCES.get(row["source"], MARKET))


def box_name(row):
    return ("TQ " if float(row["h"]) == float(row["b"]) else "TR ") + trade(row["h"], row["b"], row["t"])


def bar_name(row):
    metric = row["designation"].endswith(" mm")
    return "BR " + (trade(row["d"]) if metric else inches(row["designation"]))


def bar_source(row):
    return MARKET if row["designation"].endswith(" mm") else (
        "tabela do fabricante", "Gerdau, Barras e Perfis, 03/2019", True)


def american(rows):
    """U and I of the American standard are rolled with one rule of radii a series: the fillet is the web of its lightest
    size and 0.10 inch, the toe 0.6 of that web. The makers' models follow other rules; their sections miss the
    printed Iy by up to 5 %."""
    series = {}
    for row in rows:
        # One depth may have two series, told by their flanges.
        depth = row["designacao"].split(" x")[0]
        row["series"] = (depth, round(float(row["tf"])) if row["designacao"].startswith("I") else 0)
        web = float(row["tw"])
        series[row["series"]] = min(series.get(row["series"], web), web)
    for row in rows:
        web = series[row["series"]]
        row |= {"r": number(round(web + 2.54, 2)), "r_ponta": number(round(0.6 * web, 2)), "inclinacao": number(9.46)}
    return rows


def cornered(rows):
    """Hollow sections whose inertias are printed: those follow from inner radii of t, 1.5 t and 2 t within 0.35 %."""
    for row in rows:
        t = float(row["t"])
        if row.get("Ix"):
            row["r"] = number(t if t <= 6 else 1.5 * t if t <= 10 else 2 * t)
    return rows


# Table, title, its rows.
TABLES = [
    ("w_hp", "Perfis W e HP laminados", lambda: joined(published("w_hp"))),
    ("i", "Perfis I laminados, padrão americano", lambda: by_inches(american(joined(
        published("i_gerdau"), published("i_aisc"))))),
    ("ipe", "Perfis IPE laminados", lambda: joined(published("ipe"))),
    ("u", "Perfis U laminados", lambda: by_inches(american(joined(
        published("u_gerdau"), published("u_aisc"))))),
    ("l", "Cantoneiras laminadas de abas iguais",
     lambda: by_inches(joined(published("l_gerdau"), published("l_arcelormittal")))),
    ("t", "Perfis T laminados", lambda: joined(published("t"))),
    ("soldado_cs", "Perfis soldados, série CS", lambda: joined(published("soldado_cs"))),
    ("soldado_cvs", "Perfis soldados, série CVS", lambda: joined(published("soldado_cvs"))),
    ("soldado_vs", "Perfis soldados, série VS", lambda: joined(published("soldado_vs"))),
    ("tubo_retangular", "Tubos quadrados e retangulares", lambda: cornered(ordered(heaviest(
        (published("tubo_retangular_vallourec"), published("tubo_retangular_tuper")),
        tubes("caixa", {"h": "h", "b": "b", "t": "t"}, box_name))))),
    ("tubo_redondo", "Tubos redondos", lambda: ordered(heaviest(
        (published("tubo_redondo_vallourec"), published("tubo_redondo_tuper")),
        tubes("tubo", {"d": "d", "t": "wall"}, lambda row: "TC " + trade(row["d"], row["wall"]))))),
    ("barra_redonda", "Barras redondas", lambda: ordered(joined(
        published("barra_redonda"), own("barra_redonda", {"d": "d"}, bar_name, bar_source)))),
    ("barra_quadrada", "Barras quadradas", lambda: joined(published("barra_quadrada"))),
    ("barra_chata", "Barras chatas", lambda: joined(published("barra_chata"))),
    ("u_dobrado", "Perfis U dobrados", lambda: bent("u_dobrado", "U", False, False)),
    ("u_enrijecido", "Perfis U enrijecidos dobrados", lambda: bent("u_enrijecido", "Ue", True, True)),
    ("z_dobrado", "Perfis Z enrijecidos a 90 graus", lambda: bent("z_dobrado", "Z", True, True)),
    ("cartola", "Perfis cartola", lambda: bent("cartola", "Cr", True, False)),
    ("cantoneira_dobrada", "Cantoneiras dobradas de abas iguais",
     lambda: bent("cantoneira_dobrada", "L", False, False)),
]


def field(value):
    """As spreadsheets write it; an inch mark inside needs no quotes of its own."""
    return '"' + value.replace('"', '""') + '"' if ";" in value or value.startswith('"') else value


def main():
    destination = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else ROOT / "instalacao/Perfis/Tabelas"
    destination.mkdir(parents=True, exist_ok=True)
    for name, title, rows_of in TABLES:
        rows = rows_of()
        columns = [column for column in COLUMNS if any(row.get(column) for row in rows)]
        with open(destination / f"{name}.csv", "w", encoding="utf-8", newline="\n") as file:
            file.write(HEAD.format(title=title, name=name))
            for row in [dict(zip(columns, columns)), *rows]:
                file.write(";".join(field(row.get(column) or "") for column in columns) + "\n")


if __name__ == "__main__":
    main()
