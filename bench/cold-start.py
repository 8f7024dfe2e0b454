#!/usr/bin/env python3
"""Opens a tree again and again in a fresh process and prints the medians as a table.
Usage: cold-start.py BIN-FOLDER [--leaves N ...] [--runs N] [--against REVISION] [--json FILE]
With --against that revision is built beside this one, the two run in turn, and the ratios of the
medians are printed. Needs a display; `./dev cold-start` gives it one."""

import argparse
import json
import os
import pathlib
import statistics
import subprocess
import tempfile

# What a number may be of that of 93469a6, by the size of the tree.
SIZES = (100_000, 1_000_000, 10_000_000)
GOALS = {"read": (1, 1, 1), "layout": (1, 0.7, 0.7), "scene": (1, 0.8, 0.8),
         "file to first frame": (0.8, 0.65, 0.65), "peak MiB": (0.85, 0.85, 0.85),
         "worst frame of a sweep": (1, 1, 1), "first frame of a level, at worst": (1, 0.6, 0.3),
         "close": (1, 1, 1)}
SUMMED = ("read", "layout", "scene", "file to first frame", "close")
# What 93469a6 takes. A revision that would not fit into memory is left out.
BYTES_PER_LEAF = 700


def run(program, *arguments):
    environment = {**os.environ, "LIBGL_ALWAYS_SOFTWARE": "1", "QT_LOGGING_RULES": "*=false"}
    done = subprocess.run([program, *map(str, arguments)], check=True, text=True,
                          env=environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    return json.loads(done.stdout)


def build(revision):
    """Returns the folder of the programs of another revision, built as those of this one."""
    commit = subprocess.run(["git", "rev-parse", "--verify", revision + "^{commit}"], check=True,
                            text=True, stdout=subprocess.PIPE).stdout.strip()
    folder = pathlib.Path("build/against") / commit[:12]
    quiet = {"check": True, "stdout": subprocess.DEVNULL}
    if not folder.exists():
        subprocess.run(["git", "worktree", "add", "--force", "--detach", folder, commit], **quiet)
    subprocess.run(["cmake", "--preset", "release"], cwd=folder, **quiet)
    subprocess.run(["cmake", "--build", "--preset", "release", "--target", "cold-start"],
                   cwd=folder, **quiet)
    return folder / "build/release/bin"


def fits(leaves):
    """Whether the machine has memory for the other revision."""
    with open("/proc/meminfo", encoding="ascii") as lines:
        numbers = dict(line.split()[:2] for line in lines)
    return leaves * BYTES_PER_LEAF < int(numbers["MemAvailable:"]) * 1024


def measure(folders, leaves, runs):
    """Every number's values over all runs, for each folder; folders and modes take turns."""
    found = [{} for _ in folders]
    with tempfile.TemporaryDirectory() as temporary:
        tree = pathlib.Path(temporary) / "tree.nwk"
        with open(tree, "wb") as out:
            subprocess.run([folders[0] / "orvex-generate", "random", str(leaves), "--lengths"],
                           check=True, stdout=out)
        for _ in range(runs):
            for folder, values in zip(folders, found):
                stages = run(folder / "cold-start", "stages", tree)
                floor = run(folder / "cold-start", "floor", tree, int(stages["scene MiB"]))
                for numbers in (stages, run(folder / "cold-start", "whole", tree), floor):
                    for name, value in numbers.items():
                        values.setdefault(name, []).append(value)
    return found


def digits(value):
    return 0 if value >= 100 else 1


def cell(values):
    value = statistics.median(values)
    return (f"{value:.{digits(value)}f} | {min(values):.{digits(value)}f} to "
            f"{max(values):.{digits(value)}f}")


def table(leaves, found):
    """One revision: beside the floor. Two: the ratios of their medians, and the goals."""
    now = found[0]
    medians = {name: statistics.median(values) for name, values in now.items()}
    head = [f"{leaves:,} leaves, median of {len(now['read'])} (least to most); "
            f"the floor is {medians['floor']:.0f} ms", ""]
    names = (*GOALS, *(n for n in medians if n not in GOALS and "MiB before" not in n))
    if len(found) == 1:
        rows = [(f"| {name} | {cell(now[name])} | " +
                 (f"{medians[name] / medians['floor']:.2f}" if name in SUMMED else "") + " |")
                for name in names]
        return "\n".join([*head, "| Work | ms | least to most | to the floor |",
                          "|---|--:|--:|--:|", *rows]) + "\n"
    rows = []
    for name in (n for n in names if n in found[1]):
        before = statistics.median(found[1][name])
        goal = dict(zip(SIZES, GOALS.get(name, ()))).get(leaves, "")
        ratio = f"{medians[name] / before:.2f}" if before else ""
        rows.append(f"| {name} | {cell(found[1][name])} | {cell(now[name])} | {ratio} | {goal} |")
    return "\n".join([*head, "| Work | before, ms | least to most | now, ms | least to most "
                             "| ratio | goal |", "|---|--:|--:|--:|--:|--:|--:|", *rows]) + "\n"


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("folder", type=pathlib.Path)
    parser.add_argument("--leaves", type=int, nargs="+", default=SIZES[:2])
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--against", metavar="REVISION")
    parser.add_argument("--json", type=pathlib.Path)
    options = parser.parse_args()
    other = [build(options.against)] if options.against else []
    everything = {}
    for size in options.leaves:
        if other and not fits(size):
            print(f"{size:,} leaves: {options.against} is left out, for want of memory\n")
        folders = [options.folder, *(folder for folder in other if fits(size))]
        everything[size] = measure(folders, size, options.runs)
        print(table(size, everything[size]), flush=True)
    if options.json:
        options.json.write_text(json.dumps(everything, indent=1))
