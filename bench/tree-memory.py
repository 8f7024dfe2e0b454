#!/usr/bin/env python3
"""Opens trees of many shapes, each in a new process, and prints a table: what the program expects a
tree to take of the memory, at each time when it asks, beside what is taken from then to the first
frame, the most of some runs, as the driver's threads take more or less by chance. Fails if what it
expects last is less than that, or more by over a quarter.
Usage: tree-memory.py BIN-FOLDER [--leaves N ...] [--runs N]
Needs a display; `./dev memory` gives it one."""

import argparse
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

# Shape, trees in the file, bytes of a name.
TREES = (("random", 1, 14), ("star", 1, 14), ("polytomy", 1, 14), ("ladder", 1, 14),
         ("random", 2000, 14), ("random", 1, 0), ("random", 1, 100), ("random", 1, 310),
         ("random", 1, 3000), ("star", 1, 0), ("star", 1, 310))
# A deeper ladder is refused, and a file of more bytes is not made.
MOST_LEVELS = 100_000
MOST_BYTES = 1_000_000_000
ASKINGS = ("file", "nodes", "tree")


def generate(folder, shape, trees, leaves, name_size):
    """The bytes of a file of so many leaves in all. Names become longer by being repeated."""
    each = [subprocess.run([folder / "orvex-generate", shape, str(leaves // trees), "--lengths",
                            "--seed", str(seed)], check=True, stdout=subprocess.PIPE).stdout
            for seed in range(min(trees, 20))]
    text = b"".join(each[i % len(each)] for i in range(trees))
    return re.sub(rb"[A-Z][a-z_]+\d\d",
                  lambda found: (found[0] * (name_size // 8 + 1))[:name_size], text)


def measure(program, text, runs):
    """For each asking what is expected, and what is taken at most."""
    environment = {**os.environ, "LIBGL_ALWAYS_SOFTWARE": "1", "QT_LOGGING_RULES": "*=false"}
    with tempfile.TemporaryDirectory() as temporary:
        tree = pathlib.Path(temporary) / "tree.nwk"
        tree.write_bytes(text)
        found = [json.loads(subprocess.run([program, tree], check=True, env=environment,
                                           stdout=subprocess.PIPE,
                                           stderr=subprocess.DEVNULL).stdout)
                 for _ in range(runs)]
    return [(found[0][asking]["estimate"], max(one[asking]["taken"] for one in found))
            for asking in ASKINGS]


def row(folder, runs, shape, trees, leaves, name_size):
    """A line of the table, and the ratio of what is expected last."""
    text = generate(folder, shape, trees, leaves, name_size)
    cells = [f"{shape}, {trees} trees" if trees > 1 else shape, f"{leaves:,}", str(name_size)]
    for estimate, taken in measure(folder / "tree-memory", text, runs):
        cells += [f"{estimate:.0f}", f"{taken:.0f}", f"{estimate / taken:.2f}"]
    return "| " + " | ".join(cells) + " |", float(cells[-1])


def run(folder, sizes, runs):
    print("| Tree | leaves | bytes of a name | " + " | ".join(
        f"by the {asking}, MiB | taken, MiB | ratio" for asking in ASKINGS) + " |")
    print("|---|" + "--:|" * (2 + 3 * len(ASKINGS)))
    ratios = []
    for leaves in sizes:
        for shape, trees, name_size in TREES:
            if (shape == "ladder" and leaves > MOST_LEVELS) or leaves * name_size > MOST_BYTES:
                continue
            line, ratio = row(folder, runs, shape, trees, leaves, name_size)
            print(line, flush=True)
            ratios.append(ratio)
    return all(1.0 <= ratio <= 1.25 for ratio in ratios)


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("--leaves", type=int, nargs="+", default=(100_000, 1_000_000))
    parser.add_argument("--runs", type=int, default=3)
    options = parser.parse_args()
    if not run(options.folder, options.leaves, options.runs):
        sys.exit("tree-memory: an estimate is too low, or too high by over a quarter")
