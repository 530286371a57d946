#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs scenarios through the consoles of two builds and prints where they differ.

    tools/historias.py BUILD OTHER-BUILD [SCENARIO...]

Compared: exit code, messages, event record, final state, the drawings record by record, and every file of the
installation folder. Paths and times may differ, nothing else: a change that no user may see is proved by a build from
before it and one from after. A build for Windows runs under wine; against it numbers may differ by 1e-9 of their size,
because the two systems' sines do.
"""
import json
import math
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

NUMBER = re.compile(r"[-+]?(?:\d+\.?\d*|\.\d+)(?:[eE][-+]?\d+)?")
# Header variables that tell when and by whom a drawing was saved.
TIMES = {"$TDCREATE", "$TDUCREATE", "$TDUPDATE", "$TDUUPDATE", "$TDINDWG", "$TDUSRTIMER", "$FINGERPRINTGUID",
         "$VERSIONGUID"}
MAX_TOLD = 12


class Tally:
    """What was compared, so that a run that compared nothing does not pass for a good one."""

    def __init__(self, tolerance):
        self.tolerance = tolerance
        self.values = 0
        self.inexact = 0
        self.differences = []

    def differ(self, where, ours, theirs):
        self.differences.append(f"{where}: {ours!r} / {theirs!r}")

    def number(self, where, a, b):
        self.values += 1
        if a == b:
            return
        if math.isclose(a, b, rel_tol=self.tolerance, abs_tol=self.tolerance):
            self.inexact += 1
        else:
            self.differ(where, a, b)

    def text(self, where, a, b):
        """Texts equal but for their numbers' last digits."""
        if a == b:
            self.values += 1
            return
        if not self.tolerance or NUMBER.sub("#", a) != NUMBER.sub("#", b):
            self.differ(where, a[:200], b[:200])
            return
        for x, y in zip(NUMBER.findall(a), NUMBER.findall(b)):
            self.number(where, float(x), float(y))

    def value(self, where, a, b):
        if isinstance(a, bool) or isinstance(b, bool) or type(a) is not type(b) and not (
                isinstance(a, (int, float)) and isinstance(b, (int, float))):
            self.values += 1
            if a != b:
                self.differ(where, a, b)
        elif isinstance(a, dict):
            if list(a) != list(b):
                self.differ(where, list(a), list(b))
            for key in a.keys() & b.keys():
                self.value(f"{where}.{key}", a[key], b[key])
        elif isinstance(a, list):
            if len(a) != len(b):
                self.differ(f"{where} (quantidade)", len(a), len(b))
            for i, (x, y) in enumerate(zip(a, b)):
                self.value(f"{where}[{i}]", x, y)
        elif isinstance(a, str):
            self.text(where, a, b)
        elif a is None:
            self.values += 1
        else:
            self.number(where, a, b)


def is_windows(build):
    return (build / "bin/prancheta-console.exe").exists()


class Run:
    """One program, one scenario, in a folder of its own."""

    def __init__(self, folder, build, scenario, wanted):
        self.folder = folder
        emulator = ["wine"] if is_windows(build) else []
        shutil.copytree(build / "instalacao", folder / "instalacao")
        if (scenario / "instalacao").is_dir():
            shutil.copytree(scenario / "instalacao", folder / "instalacao", dirs_exist_ok=True)
        for name in wanted.get("remover", []):
            target = folder / name
            shutil.rmtree(target) if target.is_dir() else target.unlink()
        program = build / "bin" / ("prancheta-console.exe" if emulator else "prancheta-console")
        arguments = [a.replace("@pasta", str(folder)) for a in wanted.get("argumentos", [])]
        self.done = subprocess.run(
            [*emulator, str(program), "--instalacao", "instalacao", "-r", str(scenario / "roteiro.txt"), "--registro",
             "registro.jsonl", "--estado", "estado.json", "-o", "desenho.dxf", *arguments],
            cwd=folder, capture_output=True, timeout=300, check=False)

    def plain(self, text):
        """Without what a path has of its system."""
        text = text.replace("\r\n", "\n").replace("\\", "/")
        return re.sub("(?i)(?:z:)?" + re.escape(str(self.folder)), "@pasta", text)

    def json(self, name):
        path = self.folder / name
        if not path.exists():
            return None
        text = path.read_text(encoding="utf-8")
        return [self.clean(json.loads(line)) for line in text.splitlines()] if name.endswith("l") else self.clean(
            json.loads(text))

    def clean(self, value):
        if isinstance(value, str):
            return self.plain(value)
        if isinstance(value, list):
            return [self.clean(v) for v in value]
        return {k: self.clean(v) for k, v in value.items()} if isinstance(value, dict) else value

    def drawing(self, path):
        """Group codes and values, without the times."""
        # Byte by byte: the older format is in the system's 8-bit code page.
        lines = path.read_bytes().decode("latin-1").replace("\r\n", "\n").split("\n")
        pairs = list(zip((c.strip() for c in lines[::2]), lines[1::2]))
        kept, skipping = [], False
        for code, text in pairs:
            if code == "9":
                skipping = text in TIMES
            elif code == "0":
                skipping = False
            if not skipping:
                kept.append((code, self.plain(text)))
        return kept

    def files(self, pattern):
        return {str(p.relative_to(self.folder)): p for p in sorted(self.folder.rglob(pattern)) if p.is_file()}


def compare_drawings(tally, one, other):
    ours, theirs = one.files("*.dxf"), other.files("*.dxf")
    tally.value("desenhos", list(ours), list(theirs))
    for name in ours.keys() & theirs.keys():
        a, b = one.drawing(ours[name]), other.drawing(theirs[name])
        tally.value(f"{name} (registros)", len(a), len(b))
        for i, ((code_a, text_a), (code_b, text_b)) in enumerate(zip(a, b)):
            if code_a != code_b:
                tally.differ(f"{name}, registro {i}", (code_a, text_a), (code_b, text_b))
                break
            tally.text(f"{name}, registro {i}, grupo {code_a}", text_a, text_b)


def compare_files(tally, one, other, new_lists):
    """Every other file the same, byte by byte; a list that had no file has its system's line ends."""
    made = {"registro.jsonl", "estado.json"}
    ours = {n: p for n, p in one.files("*").items() if n not in made and not n.endswith(".dxf")}
    theirs = {n: p for n, p in other.files("*").items() if n not in made and not n.endswith(".dxf")}
    tally.value("arquivos", list(ours), list(theirs))
    for name in ours.keys() & theirs.keys():
        a, b = ours[name].read_bytes(), theirs[name].read_bytes()
        tally.values += 1
        if name in new_lists:
            if b"\n" not in a or b"\r" in a or a.replace(b"\n", b"\r\n") != b:
                tally.differ(f"{name} (lista nova: LF aqui, CRLF lá)", a[:80], b[:80])
        elif a != b:
            tally.differ(name, a[:80], b[:80])
    for name in new_lists:
        if name not in ours:
            tally.differ(name, "lista nova não gravada", "")


def compare(scenario, builds, folder):
    wanted_file = scenario / "esperado.json"
    wanted = json.loads(wanted_file.read_text(encoding="utf-8")) if wanted_file.exists() else {}
    one, other = (Run(folder / scenario.name / side, build, scenario, wanted)
                  for side, build in zip(("uma", "outra"), builds))
    same_system = is_windows(builds[0]) == is_windows(builds[1])
    tally = Tally(0 if same_system else 1e-9)
    tally.value("código de saída", one.done.returncode, other.done.returncode)
    tally.value("código esperado", wanted.get("codigo", 0), one.done.returncode)
    for stream in ("stdout", "stderr"):
        tally.text(stream, *(r.plain(getattr(r.done, stream).decode("utf-8")) for r in (one, other)))
    for name in ("registro.jsonl", "estado.json"):
        tally.value(name, one.json(name), other.json(name))
    compare_drawings(tally, one, other)
    compare_files(tally, one, other, [] if same_system else wanted.get("listas_novas", []))
    return tally


def main():
    root = Path(__file__).resolve().parents[1]
    builds = tuple(Path(a).resolve() for a in sys.argv[1:3])
    names = sys.argv[3:]
    if len(builds) < 2:
        print(__doc__, file=sys.stderr)
        return 2
    scenarios = [root / "tools/windows/historia"]
    scenarios += sorted(p.parent for p in (root / "tests/scenarios").glob("*/roteiro.txt"))
    chosen = [s for s in scenarios if not names or s.name in names]
    with tempfile.TemporaryDirectory() as folder:
        return tell(chosen, builds, Path(folder))


def tell(chosen, builds, folder):
    bad = values = inexact = 0
    for scenario in chosen:
        tally = compare(scenario, builds, folder)
        values += tally.values
        inexact += tally.inexact
        bad += bool(tally.differences)
        print(f"{scenario.name}: {'DIFERE' if tally.differences else 'igual'} ({tally.values} valores)", flush=True)
        for told in tally.differences[:MAX_TOLD]:
            print(f"    {told}")
        if len(tally.differences) > MAX_TOLD:
            print(f"    ... e mais {len(tally.differences) - MAX_TOLD}")
    print(f"{len(chosen)} histórias, {bad} com diferenças; {values} valores comparados, "
          f"{inexact} números diferem nas últimas casas")
    return 1 if bad or not chosen or values == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
