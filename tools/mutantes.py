#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Plants one fault at a time in a room's sources and tells which ones no test notices.

    tools/mutantes.py ROOM [N] [--semente S] [--pasta FOLDER]

ROOM is a folder such as perfis/commands. N mutants (30) are drawn evenly over its sources: an operator, a constant, a
condition, a call or a returned value is changed, what depends on it is built, and the tests of the room and the
scenarios run. Printed are the survivors and the share that was caught. It works in a copy of the tree (FOLDER,
build-mutantes/), so that nothing of yours is touched; the same seed draws the same mutants.
Exit code 1 when a mutant survived, 2 for a wrong call or a tree whose tests fail by themselves.
"""
import argparse
import collections
import os
import random
import re
import shutil
import signal
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[1]
# Test programs beside the scenarios: the room's own, and those that know it.
TESTS = {
    "perfis": ["perfis_test", "zp_test"],
    "zp/objects/secao": ["zp_secao_test", "zp_test"],
    "zp": ["zp_test"],
    "prancheta/base": ["base_test"],
    "prancheta/database": ["database_test", "builtin_test"],
    "prancheta/dcl": ["dcl_test"],
    "prancheta/dxf": ["dxf_test", "builtin_test"],
    "prancheta/editor": ["editor_test", "builtin_test"],
    "prancheta/entities": ["entities_test", "builtin_test"],
    "prancheta/geometry": ["geometry_test", "entities_test"],
    "prancheta/graphics": ["graphics_test", "entities_test"],
    "prancheta/verify": ["verify_test"],
}
PRODUCT = ["prancheta-console", "instalacao", "bibliotecas-de-slides"]
# What one run may take before it counts as caught: a loop without end is a fault that is noticed.
SECONDS = 180

OPERATORS = {
    " + ": " - ", " - ": " + ", " * ": " / ", " / ": " * ", " < ": " <= ", " > ": " >= ", " <= ": " < ",
    " >= ": " > ", " == ": " != ", " != ": " == ", " && ": " || ", " || ": " && ", " += ": " -= ", " -= ": " += ",
}
NUMBER = re.compile(r"(?<![\w.])(\d+(?:\.\d+)?)(?![\w.])")
CONDITION = re.compile(r"^(\s*(?:\} else )?if \()(.+)(\)(?: \{| [^{]*;)?)$")
CALL = re.compile(r"^(\s*)(?:\(void\)|[\w>.:-]*?)\w+\([^{}]*\);$")
RETURN = re.compile(r"^(\s*return )(true|false|\w[\w.]*);$")
SKIPPED = ("#", "//", "/*", "static_assert", "assert", "using ", "namespace ", "template", "case ")

Mutant = collections.namedtuple("Mutant", "path line kind before after")


def masked(line):
    """The line with texts and comments blanked, so that nothing inside them is changed."""
    line = re.sub(r'L?"(?:[^"\\]|\\.)*"', lambda m: "\0" * len(m.group()), line)
    line = re.sub(r"L?'(?:[^'\\]|\\.)+'", lambda m: "\0" * len(m.group()), line)
    return re.sub(r"//.*", lambda m: "\0" * len(m.group()), line)


def of_line(path, number, line):
    code = masked(line)
    if not code.strip("\0 ") or code.strip().startswith(SKIPPED):
        return
    def put(kind, start, end, text):
        return Mutant(path, number, kind, line, line[:start] + text + line[end:])
    for old, new in OPERATORS.items():
        for at in (m.start() for m in re.finditer(re.escape(old), code)):
            yield put("operador", at, at + len(old), new)
    for m in NUMBER.finditer(code):
        yield put("constante", m.start(), m.end(), f"({m.group()} + 1)")
    if m := CONDITION.match(code):
        start, end = m.span(2)
        if ";" not in m.group(2) and m.group(2).count("(") == m.group(2).count(")"):
            yield put("condição", start, end, f"!({line[start:end]})")
    if CALL.match(code) and not code.strip().startswith(("return", "co_", "throw", "delete")):
        yield put("chamada", len(code) - len(code.lstrip()), len(line), ";")
    if m := RETURN.match(code):
        swapped = {"true": "false", "false": "true"}.get(m.group(2), "{}")
        yield put("retorno", *m.span(2), swapped)


def mutants(room):
    listed = subprocess.run(["git", "ls-files", f"{room}/*.cpp"], cwd=ROOT, capture_output=True, text=True, check=True)
    for name in listed.stdout.splitlines():
        for number, line in enumerate((ROOT / name).read_text(encoding="utf-8").splitlines()):
            yield from of_line(name, number, line)


def drawn(room, count, seed):
    """Evenly over the sources: a long one does not take all places."""
    chance = random.Random(seed)
    by_file = collections.defaultdict(list)
    for mutant in mutants(room):
        by_file[mutant.path].append(mutant)
    for pool in by_file.values():
        chance.shuffle(pool)
    chosen, pools = [], sorted(by_file)
    chance.shuffle(pools)
    while len(chosen) < count and any(by_file.values()):
        chosen += [by_file[p].pop() for p in pools if by_file[p]][:count - len(chosen)]
    return chosen


class Copy:
    """A copy of the tree with a build of its own, unoptimised."""

    def __init__(self, folder, room):
        self.source, self.build = folder / "arvore", folder / "build"
        key = max((k for k in TESTS if room == k or room.startswith(k + "/")), key=len, default=None)
        if key is None:
            sys.exit(f"mutantes: {room} não tem programa de teste na tabela")
        self.tests = [*TESTS[key], "scenarios_test"]
        files = subprocess.run(["git", "ls-files", "-z"], cwd=ROOT, capture_output=True, text=True, check=True).stdout
        for name in filter(None, files.split("\0")):
            source, target = ROOT / name, self.source / name
            if source.is_file() and not (target.exists() and target.read_bytes() == source.read_bytes()):
                target.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(source, target)
        self.must("cmake", "-S", self.source, "-B", self.build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                  "-DCMAKE_CXX_FLAGS_DEBUG=-O0", "-DHOUSE_WINDOW=OFF")
        if not self.compiles():
            sys.exit("mutantes: a árvore não compila")
        if not self.passes():
            sys.exit("mutantes: os testes não passam sem mutante algum")

    @staticmethod
    def must(*command):
        subprocess.run([str(c) for c in command], check=True, stdout=subprocess.DEVNULL)

    def compiles(self):
        return subprocess.run(["cmake", "--build", str(self.build), "--target", *PRODUCT, *self.tests],
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False).returncode == 0

    def passes(self):
        """The room's own tests first: what they notice need not go through the scenarios."""
        for test in self.tests:
            run = subprocess.Popen([str(self.build / "tests" / test), "--gtest_fail_fast"], cwd=self.build,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True)
            try:
                if run.wait(SECONDS) != 0:
                    return False
            except subprocess.TimeoutExpired:
                return False
            finally:
                if run.poll() is None:
                    os.killpg(run.pid, signal.SIGKILL)
                    run.wait()
        return True

    def verdict(self, mutant):
        path = self.source / mutant.path
        sound = path.read_text(encoding="utf-8")
        lines = sound.splitlines(keepends=True)
        lines[mutant.line] = mutant.after + "\n"
        path.write_text("".join(lines), encoding="utf-8")
        try:
            if not self.compiles():
                return "não compila"
            return "sobrevive" if self.passes() else "apanhado"
        finally:
            path.write_text(sound, encoding="utf-8")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("room")
    parser.add_argument("count", nargs="?", type=int, default=30)
    parser.add_argument("--semente", type=int, default=1)
    parser.add_argument("--pasta", type=Path, default=ROOT / "build-mutantes")
    options = parser.parse_args()
    room = options.room.strip("/")
    chosen = drawn(room, options.count, options.semente)
    if not chosen:
        print(f"mutantes: nenhuma fonte em {room}", file=sys.stderr)
        return 2
    copy = Copy(options.pasta.resolve(), room)
    tally = collections.Counter()
    for mutant in chosen:
        verdict = copy.verdict(mutant)
        tally[verdict] += 1
        if verdict == "sobrevive":
            print(f"{mutant.path}:{mutant.line + 1}: {mutant.kind}\n  - {mutant.before.strip()}\n"
                  f"  + {mutant.after.strip()}", flush=True)
    counted = tally["apanhado"] + tally["sobrevive"]
    print(f"{room}: {tally['apanhado']} de {counted} apanhados"
          + (f" ({100 * tally['apanhado'] // counted} %)" if counted else "")
          + f", {tally['não compila']} não compilam")
    return 1 if tally["sobrevive"] or counted == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
