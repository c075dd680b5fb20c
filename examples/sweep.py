#!/usr/bin/python3
"""A parameter sweep: writes COUNT project parameter files that differ in the
gate-freeze temperature and the solver, then reads every one back and checks
it holds what was written. Prints a progress line while it works.

    PYTHONPATH=<prefix>/lib/python3/dist-packages python3 sweep.py --count 1000 --dir runs
"""
import argparse
import os
import sys
import time

import nvxcomputation

TEMPERATURE = "SOLID_FILL.ValueGateFreezeByTemperature"
SOLVER = "SOLID_FILL.IDSolver"


def progress(verb, done, total, started):
    if done != total and done % max(total // 100, 1):
        return
    rate = done / max(time.monotonic() - started, 1e-9)
    sys.stderr.write(f"\r{verb} {done}/{total} ({rate:.0f} files/s)")
    if done == total:
        sys.stderr.write("\n")
    sys.stderr.flush()


def point(i):
    """The values of run i: temperatures from 100 in steps of 0.1 (what a KRN
    file keeps exactly), alternating between two solvers."""
    return {TEMPERATURE: round(100.0 + i / 10, 1), SOLVER: i % 2}


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--count", type=int, default=1000, help="number of runs (1000)")
    parser.add_argument("--dir", default="sweep", help="directory of the runs (./sweep)")
    parser.add_argument("--rsv", action="store_true", help="write an RSV file per run too")
    args = parser.parse_args()
    os.makedirs(args.dir, exist_ok=True)
    paths = [os.path.join(args.dir, f"run_{i:04d}.krn") for i in range(args.count)]

    base = nvxcomputation.new(model_kind=2)
    started = time.monotonic()
    for i, path in enumerate(paths):
        base.update(point(i))
        base.write_krn(path)
        if args.rsv:
            base.write_rsv(path[:-4] + ".rsv")
        progress("writing", i + 1, args.count, started)

    started = time.monotonic()
    wrong = 0
    for i, path in enumerate(paths):
        expected = point(i)
        runs = [nvxcomputation.load_krn(path)]
        if args.rsv:
            runs.append(nvxcomputation.load_rsv(path[:-4] + ".rsv"))
        for params in runs:
            if {key: params.get(key) for key in expected} != expected:
                wrong += 1
                sys.stderr.write(f"\n{path}: does not hold {expected}\n")
        progress("reading", i + 1, args.count, started)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
