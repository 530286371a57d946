#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What the product costs: whole runs of prancheta-console on growing scripts, and the programs beside it.

    bench/processos.py BUILD_FOLDER [--maior N] [--so ROW,...] [--json FILE]

Time is processor time (user and system) of the whole process; wall time stands beside it. What one item costs is the
run less the start of an empty one. The growth exponent is the slope of that between the two largest sizes, on
logarithmic scales: 1 is proportional. Saving writes a new file, never over an old one. At the end stands one table of what
was aimed at and what was measured, as Markdown and in the JSON file.
"""
import argparse
import json
import math
import os
import re
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

DIALOG = "perfilur\nlista=3\nvista0=0\nOutraVista\nfig3\nl=1000\ninsertionP=3\naccept\n{dim}accept\n{x},{y}\n0\n"
SECTION = "perfilur\nlista=3\ndimensionar=1\nins_list=1\naccept\n{x},{y}\n0\n"
THREE = "dimaligned\n{x},{y}\n@1000,0\n@0,-30\ndimaligned\n{x},{y}\n@0,50\n@-30,0\ndimaligned\n{x},{y}\n@0,25\n@-60,0\n"
TWO_POINTS = "perfilur\nlista=3\nvista0=0\nOutraVista\nfig3\npickngo=1\naccept\naccept\n"


# Scripts come in pieces: a child's peak begins with what its parent held, so this program stays small.
def places(n):
    return ((2000 * (i % 300), 500 * (i // 300)) for i in range(n))


def two_points(n):
    yield TWO_POINTS
    yield from (f"{x},{y}\n{x + 1000},{y}\n" for x, y in places(n))
    yield "\n"


def dialogs(n):
    return (DIALOG.format(dim="dimensionar=1\n", x=x, y=y) for x, y in places(n))


def sections(n):
    return (SECTION.format(x=x, y=y) for x, y in places(n))


def lines(n):
    return (f"line\n{x},{y}\n{x + 100},{y + 7}\n\n" for x, y in places(n))


def polyline(n):
    yield "pline\n"
    yield from (f"{x},{y}\n" for x, y in places(n))
    yield "\n"


def undo_steps(n):
    yield from lines(n)
    yield f"undo\n{n}\n"


class Bench:
    def __init__(self, build):
        self.build = os.path.abspath(build)
        self.folder = tempfile.mkdtemp(prefix="prancheta-bench-")
        shutil.copytree(os.path.join(self.build, "instalacao"), os.path.join(self.folder, "instalacao"))

    def run(self, script, *arguments):
        """Processor seconds, wall seconds, peak KiB."""
        path = os.path.join(self.folder, "roteiro.txt")
        with open(path, "w", encoding="utf-8") as out:
            out.writelines(script)
        for old in ("d.dxf", "e.json"):
            if os.path.exists(os.path.join(self.folder, old)):
                os.remove(os.path.join(self.folder, old))
        start = time.monotonic()
        pid = os.fork()
        if pid == 0:
            os.chdir(self.folder)
            null = os.open(os.devnull, os.O_WRONLY)
            os.dup2(null, 1)
            os.execv(os.path.join(self.build, "bin/prancheta-console"),
                     ["prancheta-console", "--instalacao", "instalacao", "-r", path, *arguments])
        _, status, usage = os.wait4(pid, 0)
        if status != 0:
            sys.exit(f"prancheta-console failed with status {status}; the script is {path}")
        return usage.ru_utime + usage.ru_stime, time.monotonic() - start, usage.ru_maxrss

    def median(self, times, make, *arguments):
        """`make()` is called for each run."""
        runs = [self.run(make(), *arguments) for _ in range(times)]
        return [statistics.median(column) for column in zip(*runs)]

    def keep(self, name):
        """The drawing written last becomes the input `name`."""
        os.replace(os.path.join(self.folder, "d.dxf"), os.path.join(self.folder, name))
        return os.path.getsize(os.path.join(self.folder, name))

    def catalogue(self, rows):
        """Sizes of `pudobrado`, whose edits are written back."""
        path = os.path.join(self.folder, "instalacao/Perfis/Listas/pu.lst")
        with open(path, "w", encoding="utf-8") as out:
            out.writelines(f"{100 + i // 100}\t{50 + i % 100}\t2.65\n" for i in range(rows))
        return path


def catalogue_shown(bench, n):
    bench.catalogue(n)
    return bench.median(3, lambda: "pudobrado\ncancel\n")


def catalogue_edited(bench, n):
    path = bench.catalogue(n)
    measured = bench.median(1, lambda: f"pudobrado\nlista={min(n, 32768) // 2}\nt=3.00\nsubstolist\ncancel\n")
    with open(path, encoding="utf-8") as rows:
        if sum(row.rstrip().endswith("\t3.00") for row in rows) != 1:
            sys.exit(f"the edited row was not written to {path}")
    return measured


def loaded(make):
    def row(bench, n):
        bench.run(make(n), "-o", "d.dxf")
        bench.keep("entra.dxf")
        return bench.median(3 if n < 50000 else 1, str, "entra.dxf")
    return row


def dimensioned(n):
    yield from two_points(n)
    yield from (THREE.format(x=x, y=y) for x, y in places(n))


def plotted(bench, n):
    bench.run(two_points(n), "-o", "d.dxf")
    bench.keep("entra.dxf")
    return bench.median(3 if n < 50000 else 1, str, "entra.dxf", "--pdf", "sai.pdf")


def scripted(make, *arguments):
    return lambda bench, n: bench.median(3 if n < 50000 else 1, lambda: make(n), *arguments)


ROWS = {
    "two-point piece, saved": scripted(two_points, "-o", "d.dxf"),
    "elevation, 2 dimensions, by both dialogs, saved": scripted(dialogs, "-o", "d.dxf"),
    "elevation, 2 dimensions, by both dialogs": scripted(dialogs),
    "section, 4 dimensions, by its dialog, saved": scripted(sections, "-o", "d.dxf"),
    "piece and three dimensions, without dialogs, saved": scripted(dimensioned, "-o", "d.dxf"),
    "piece loaded": loaded(two_points),
    "section with 4 dimensions loaded, with blocks": loaded(sections),
    "elevation, 2 dimensions, by both dialogs, --estado": scripted(dialogs, "--estado", "e.json"),
    "piece loaded and plotted to PDF": plotted,
    "line, saved": scripted(lines, "-o", "d.dxf"),
    "vertex of one polyline": scripted(polyline),
    "line made and undone": scripted(undo_steps),
    "catalogue row read and shown": catalogue_shown,
    "catalogue row, one edited, written": catalogue_edited,
}


# What is aimed at: row, what of it (us = processor time each, kib = peak each), for how many, aim.
AIMS = (
    ("two-point piece, saved", "us", 10000, 30),
    ("piece and three dimensions, without dialogs, saved", "us", 10000, 60),
    ("elevation, 2 dimensions, by both dialogs, saved", "us", 10000, 150),
    ("section, 4 dimensions, by its dialog, saved", "us", 10000, 150),
    ("section with 4 dimensions loaded, with blocks", "us", 10000, 110),
    ("section with 4 dimensions loaded, with blocks", "kib", 10000, 6),
    ("piece loaded and plotted to PDF", "us", 10000, 200),
    ("catalogue row read and shown", "us", 100000, 1),
)
INSIDE_AIMS = {
    "sectionPropertiesUncached": ("us", 1.5),
    **{f"pieceWithThreeDimensions/{n}": ("bytes", 2048) for n in (100, 1000, 10000, 100000)},
}
FRAMES = ("pan", "wheel")  # rows of canvas_bench whose worst frame counts
GROWTH = 1.05


def aims(results):
    """The table of aims, of what was measured in this run."""
    table = []

    def add(work, aim, unit, measured):
        table.append({"work": work, "aim": aim, "unit": unit, "measured": measured, "met": measured <= aim})

    add("start, empty drawing saved", 10, "ms", results["start"]["ms"])
    for name, what, n, aim in AIMS:
        for row in results.get(name, []):
            if row["n"] == n:
                add(f"{name} ({n})", aim, "us" if what == "us" else "KiB", row[what])
    for row in results.get("inside", []):
        what, aim = INSIDE_AIMS.get(row["name"], (None, None))
        if what:
            add(row["name"], aim, what, row[what])
    for row in re.findall(r"^(\S[^\n]*?)\s+median.*?worst\s+([\d.]+) ms", results.get("frames", ""), re.M):
        if row[0].startswith(FRAMES):
            add(f"worst frame of 100,000 pieces: {row[0]}", 16, "ms", float(row[1]))
    for name in ROWS:
        # From the first thousand on: what the first item of its kind costs once is not growth.
        rows = [row for row in results.get(name, []) if row["n"] >= 1000]
        if len(rows) > 1:
            first, last = rows[0], rows[-1]
            add(f"growth: {name}", GROWTH, "", 1 + math.log(last["us"] / first["us"]) / math.log(last["n"] / first["n"]))
    print("\n| work | aim | measured | |\n|---|---|---|---|")
    for row in table:
        digits = 2 if row["unit"] == "" else 1
        print(f"| {row['work']} | {row['aim']} {row['unit']} | {row['measured']:.{digits}f} {row['unit']} | "
              f"{'' if row['met'] else 'missed'} |")
    results["aims"] = table


def inside(build, results):
    """What is measured inside one process, when it was built (-DHOUSE_BENCH=ON)."""
    print("\n| inside one process | processor us | bytes each |\n|---|---|---|")
    for name in ("pecas_bench", "palco_bench"):
        program = os.path.join(build, "bench", name)
        if not os.path.exists(program):
            print(f"| {name} was not built | | |")
            continue
        told = subprocess.run([program, "--benchmark_format=json"], capture_output=True, check=True, text=True)
        for row in json.loads(told.stdout)["benchmarks"]:
            pieces = row["name"].startswith("pieceWithThreeDimensions")
            n = int(row["name"].split("/")[1]) if pieces else 1
            us = row["cpu_time"] * {"ns": 1e-3, "us": 1.0, "ms": 1e3}[row["time_unit"]] / n
            results.setdefault("inside", []).append({"name": row["name"], "us": us, "bytes": row.get("bytes_per_piece")})
            size = f"{row['bytes_per_piece']:.0f}" if "bytes_per_piece" in row else ""
            print(f"| {row['name']} | {us:.3f} | {size} |")
    frames = os.path.join(build, "bench/canvas_bench")
    if os.path.exists(frames):
        screen = dict(os.environ, QT_QPA_PLATFORM="offscreen")
        told = subprocess.run([frames], capture_output=True, check=True, text=True, env=screen)
        results["frames"] = told.stdout
        print("\n" + told.stdout)
    else:
        print("\ncanvas_bench was not built: no frame times.")


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("build")
    arguments.add_argument("--maior", type=int, default=100000)
    arguments.add_argument("--so", default="")
    arguments.add_argument("--json")
    options = arguments.parse_args()
    bench = Bench(options.build)
    chosen = [row for row in ROWS if not options.so or any(w in row for w in options.so.split(","))]
    sizes = [n for n in (100, 1000, 10000, 100000) if n <= options.maior]
    bench.median(3, str, "-o", "d.dxf")  # the files come into memory
    cpu, wall, peak = bench.median(15, str, "-o", "d.dxf")
    results = {"start": {"ms": 1e3 * cpu, "wall_ms": 1e3 * wall, "peak_kib": peak}}
    print(f"start, empty drawing saved: {1e3 * cpu:.1f} ms processor, {1e3 * wall:.1f} ms wall, peak {peak} KiB\n")
    print("| work | items | processor us each | wall us each | peak KiB each | growth |\n|---|---|---|---|---|---|")
    for name in chosen:
        before = None
        for n in sizes:
            c, w, p = ROWS[name](bench, n)
            net = max(c - cpu, 1e-9)
            growth = math.log(net / before[1]) / math.log(n / before[0]) if before else None
            before = (n, net)
            results.setdefault(name, []).append(
                {"n": n, "us": 1e6 * net / n, "wall_us": 1e6 * (w - wall) / n, "kib": (p - peak) / n, "growth": growth})
            print(f"| {name} | {n} | {1e6 * net / n:.1f} | {1e6 * (w - wall) / n:.1f} | {(p - peak) / n:.2f} | "
                  f"{'' if growth is None else f'{growth:.2f}'} |", flush=True)
    if not options.so:
        inside(bench.build, results)
    aims(results)
    results["load"] = os.getloadavg()
    if options.json:
        with open(options.json, "w", encoding="utf-8") as out:
            json.dump(results, out, indent=1)
    shutil.rmtree(bench.folder)


if __name__ == "__main__":
    main()
