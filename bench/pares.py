#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""How fast the product is beside others, in one run on one machine.

    bench/pares.py BUILD_FOLDER PEERS_FOLDER [--n N] [--json FILE]

PEERS_FOLDER has programs that do the same work: floors in straight C++ (bare_*.cpp, empty_start.cpp), without a database,
undo or checks, and the same pieces through libraries (dime_load.cpp, dxflib_pieces.cpp, ezdxf_pieces.py). They are built here into a
temporary folder; a peer that is not installed is left out, and that is told. Time is processor time (user and system) of the
whole process, less that of its start; a ratio says something where an absolute time does not.
"""
import argparse
import json
import os
import shutil
import statistics
import subprocess
import sys

import processos

PYTHON = "/usr/bin/python3"  # the one that has the system's packages
# Program by its libraries; those without are floors.
BUILT = {"bare_pieces": "", "bare_load": "", "bare_plot": "-lz", "bare_section": "", "empty_start": "",
         "dime_load": "-ldime", "dxflib_pieces": "-ldxflib"}
# What is aimed at: times the floor at most, times as fast as the peer at least.
AIMS = {"piece with three dimensions, saved": (4, 110), "two-point piece, saved": (2.5, 14),
        "foreign file with blocks, loaded": (2.8, 4), "the same to PDF": (None, 20),
        "start": (2, 5), "section": (2, None)}


class Peers:
    def __init__(self, sources, folder):
        self.sources = os.path.abspath(sources)
        self.folder = folder
        self.missing = []
        for name, libraries in BUILT.items():
            command = ["g++", "-O2", "-std=c++20", "-o", self.path(name), f"{self.sources}/{name}.cpp", *libraries.split()]
            if subprocess.run(command, capture_output=True, check=False).returncode != 0:
                self.missing.append(name)
        if subprocess.run([PYTHON, "-c", "import ezdxf"], capture_output=True, check=False).returncode != 0:
            self.missing.append("ezdxf")
        if shutil.which("librecad") is None:
            self.missing.append("librecad")

    def path(self, name):
        return os.path.join(self.folder, name)

    def seconds(self, needs, *command, times=3):
        """Processor seconds of a run, the median; None where the program is missing."""
        if needs in self.missing:
            return None
        runs = []
        for _ in range(times):
            pid = os.fork()
            if pid == 0:
                os.chdir(self.folder)
                null = os.open(os.devnull, os.O_WRONLY)
                os.dup2(null, 1)
                os.dup2(null, 2)
                os.environ.update(QT_QPA_PLATFORM="offscreen", PYTHONPATH=self.sources)
                os.execvp(command[0], command)
            _, status, usage = os.wait4(pid, 0)
            if status != 0:
                sys.exit(f"{command[0]} failed with status {status}")
            runs.append(usage.ru_utime + usage.ru_stime)
        return statistics.median(runs)


def less(whole, start):
    return None if whole is None or start is None else max(whole - start, 1e-9)


def section_us(build, peers):
    """Ours, the floor's."""
    bench = os.path.join(build, "bench/pecas_bench")
    ours = None
    if os.path.exists(bench):
        told = subprocess.run([bench, "--benchmark_format=json", "--benchmark_filter=sectionPropertiesUncached"],
                              capture_output=True, check=True, text=True)
        row = json.loads(told.stdout)["benchmarks"][0]
        ours = row["cpu_time"] * {"ns": 1e-3, "us": 1.0}[row["time_unit"]]
    told = subprocess.run([peers.path("bare_section"), "10000", "20"], capture_output=True, check=True, text=True)
    return ours, json.loads(told.stdout)["us_per_section"]


def rows(bench, peers, n):
    """Work, ours, floor, (peer, its time), in processor microseconds each."""
    def each(seconds):
        return None if seconds is None else 1e6 * seconds / n

    start = bench.median(15, str, "-o", "d.dxf")[0]
    python = peers.seconds("ezdxf", PYTHON, "-c", "import ezdxf")
    screen = peers.seconds("librecad", "librecad", "--help", times=15)
    yield ("start", 1e6 * start, 1e6 * peers.seconds("empty_start", peers.path("empty_start"), times=15),
           ("librecad", None if screen is None else 1e6 * screen))

    def ours(make, *arguments):
        return each(bench.median(3, make, *arguments)[0] - start)
    drawn = peers.path("piso.dxf")
    foreign = peers.path("outro.dxf")
    yield ("piece with three dimensions, saved", ours(lambda: processos.dimensioned(n), "-o", "d.dxf"),
           each(peers.seconds("bare_pieces", peers.path("bare_pieces"), str(n), drawn, "render")),
           ("ezdxf", each(less(peers.seconds("ezdxf", PYTHON, f"{peers.sources}/ezdxf_pieces.py", str(n), foreign, "render",
                                             times=1), python))))
    yield ("two-point piece, saved", ours(lambda: processos.two_points(n), "-o", "d.dxf"),
           each(peers.seconds("bare_pieces", peers.path("bare_pieces"), str(n), drawn, "norender")),
           ("dxflib", each(peers.seconds("dxflib_pieces", peers.path("dxflib_pieces"), str(n), peers.path("d.dxf")))))
    if not os.path.exists(foreign):
        return
    load = peers.seconds("bare_load", peers.path("bare_load"), foreign)
    yield ("foreign file with blocks, loaded", ours(str, foreign), each(load),
           ("dime", each(peers.seconds("dime_load", peers.path("dime_load"), foreign))))
    plot = peers.seconds("bare_plot", peers.path("bare_plot"), str(n), peers.path("piso.pdf"))
    yield ("the same to PDF", ours(str, foreign, "--pdf", "sai.pdf"), each(load + plot),
           ("librecad", each(less(peers.seconds("librecad", "librecad", "dxf2pdf", "-a", "-o", peers.path("outro.pdf"), foreign,
                                                times=1), screen))))


def told(number, form):
    return "" if number is None else form.format(number)


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("build")
    arguments.add_argument("peers")
    arguments.add_argument("--n", type=int, default=10000)
    arguments.add_argument("--json")
    options = arguments.parse_args()
    bench = processos.Bench(options.build)
    peers = Peers(options.peers, bench.folder)
    for name in peers.missing:
        print(f"{name} is not installed: left out")
    bench.median(3, str, "-o", "d.dxf")  # the files come into memory
    print("| work | us each | floor | times the floor | aim | peer | times as fast | aim |\n|---|---|---|---|---|---|---|---|")
    table = []

    def add(work, us, floor, peer, theirs):
        slower = us / floor if us and floor else None
        faster = theirs / us if us and theirs else None
        most, least = AIMS[work]
        table.append({"work": work, "us": us, "floor": floor, "peer": peer, "peer_us": theirs})
        print(f"| {work} | {told(us, '{:.2f}')} | {told(floor, '{:.2f}')} | {told(slower, '{:.1f}')} | {told(most, '{}')} | "
              f"{peer} | {told(faster, '{:.1f}')} | {told(least, '{}')} |", flush=True)

    for work, us, floor, (peer, theirs) in rows(bench, peers, options.n):
        add(work, us, floor, peer, theirs)
    add("section", *section_us(bench.build, peers), "", None)
    print(f"\nload of the machine: {os.getloadavg()[0]:.1f}")
    if options.json:
        with open(options.json, "w", encoding="utf-8") as out:
            json.dump({"n": options.n, "missing": peers.missing, "rows": table, "load": os.getloadavg()}, out, indent=1)
    shutil.rmtree(bench.folder)


main()
