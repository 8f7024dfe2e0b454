#!/usr/bin/env python3
"""Opens a tree again and again in a fresh process and prints the medians as a table.
Usage: cold-start.py BIN-FOLDER [--leaves N ...] [--runs N] [--json FILE]
Needs a display; `./dev cold-start` gives it one."""

import argparse
import json
import os
import pathlib
import statistics
import subprocess
import tempfile

GOALS = {100_000: {"read": 40, "layout": 60, "scene": 400, "file to first frame": 800,
                   "peak MiB": 500, "worst frame of a sweep": 4, "first frame of a level": 10,
                   "close": 300},
         1_000_000: {"read": 400, "layout": 800, "scene": 5000, "file to first frame": 9000,
                     "peak MiB": 4608, "worst frame of a sweep": 16, "first frame of a level": 100,
                     "close": 3000}}
SUMMED = ("read", "layout", "scene", "file to first frame", "close")


def run(program, *arguments):
    environment = {**os.environ, "LIBGL_ALWAYS_SOFTWARE": "1", "QT_LOGGING_RULES": "*=false"}
    done = subprocess.run([program, *map(str, arguments)], check=True, text=True,
                          env=environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    return json.loads(done.stdout)


def measure(folder, leaves, runs):
    """Every number's values over all runs; the three modes take turns."""
    found = {}
    with tempfile.TemporaryDirectory() as temporary:
        tree = pathlib.Path(temporary) / "tree.nwk"
        with open(tree, "wb") as out:
            subprocess.run([folder / "orvex-generate", "random", str(leaves), "--seed", "1"],
                           check=True, stdout=out)
        for _ in range(runs):
            stages = run(folder / "cold-start", "stages", tree)
            floor = run(folder / "cold-start", "floor", tree, int(stages["scene MiB"]))
            for numbers in (stages, run(folder / "cold-start", "whole", tree), floor):
                for name, value in numbers.items():
                    found.setdefault(name, []).append(value)
    return found


def table(leaves, found):
    medians = {name: statistics.median(values) for name, values in found.items()}
    goals = GOALS.get(leaves, {})
    lines = [f"{leaves:,} leaves, median of {len(found['read'])} (least to most); "
             f"the floor is {medians['floor']:.0f} ms",
             "", "| Work | ms | least to most | goal | to the floor |", "|---|--:|--:|--:|--:|"]
    for name in (*goals, *(n for n in medians if n not in goals and "MiB before" not in n)):
        value = medians[name]
        digits = 0 if value >= 100 else 1
        ratio = f"{value / medians['floor']:.2f}" if name in SUMMED else ""
        lines.append(f"| {name} | {value:.{digits}f} | {min(found[name]):.{digits}f} to "
                     f"{max(found[name]):.{digits}f} | {goals.get(name, '')} | {ratio} |")
    return "\n".join(lines) + "\n"


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("--leaves", type=int, nargs="+", default=[100_000, 1_000_000])
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--json", type=pathlib.Path)
    options = parser.parse_args()
    everything = {}
    for size in options.leaves:
        everything[size] = measure(options.folder, size, options.runs)
        print(table(size, everything[size]), flush=True)
    if options.json:
        options.json.write_text(json.dumps(everything, indent=1))
