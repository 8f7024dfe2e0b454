#!/usr/bin/env python3
"""Draws the plots of docs/performance.md from the benchmarks' JSON, and prints the growth table.
Usage: plots.py JSON-FOLDER IMAGE-FOLDER"""

import json
import pathlib
import sys

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt

WORK = {"parseText": ("bench-tree", "reading"), "layout": ("bench-layout", "layout"),
        "buildScene": ("bench-scene", "scene"), "thinLabels": ("bench-scene", "thinning")}
UNIT = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}


def benchmarks(folder, program):
    return json.loads((folder / f"{program}.json").read_text())["benchmarks"]


def series(folder, program, work):
    """Shape, or part of the greatest zoom, to a list of (leaves, milliseconds of CPU)."""
    found = {}
    for row in benchmarks(folder, program):
        name = row["name"].split("/")
        if name[0] == work and row["run_type"] == "iteration":
            size = next(int(part.split(":")[-1]) for part in name[1:] if part.split(":")[-1].isdigit())
            zoom = name[-1].partition("zoom%:")[2]
            shape = f"zoom {zoom} %" if zoom else name[1]
            found.setdefault(shape, []).append((size, row["cpu_time"] * UNIT[row["time_unit"]]))
    return {shape: sorted(points) for shape, points in found.items()}


def growth(folder, images):
    figure, axes = plt.subplots(1, len(WORK), figsize=(14, 4), sharey=True)
    print("| Work | shape | leaves | ms | ns a leaf, least to most size |\n|---|---|--:|--:|---|")
    for axis, (work, (program, title)) in zip(axes, WORK.items()):
        for shape, points in series(folder, program, work).items():
            axis.loglog(*zip(*points), marker="o", markersize=3, label=shape)
            each = ", ".join(f"{time * 1e6 / size:.0f}" for size, time in points)
            print(f"| {title} | {shape} | {points[-1][0]:,} | {points[-1][1]:.3g} | {each} |")
        axis.set_title(title)
        axis.set_xlabel("leaves")
        axis.grid(True, alpha=0.3)
    axes[0].set_ylabel("CPU ms")
    axes[0].legend()
    axes[-1].legend()
    figure.tight_layout()
    figure.savefig(images / "growth.png", dpi=80)


def frames(folder, images):
    figure, axis = plt.subplots(figsize=(7, 4))
    lines = {}
    for row in benchmarks(folder, "bench-frame"):
        parts = dict(part.split(":") for part in row["name"].split("/") if ":" in part)
        if row["name"].startswith("frame/") and parts.get("all") == "0":
            lines.setdefault(parts["zoom%"], []).append(
                (int(parts["leaves"]), row["cpu_time"] * UNIT[row["time_unit"]]))
    for zoom, points in lines.items():
        axis.semilogx(*zip(*sorted(points)), marker="o", label=f"zoom {zoom} % of the greatest")
    axis.set_ylim(bottom=0)
    axis.set_xlabel("leaves")
    axis.set_ylabel("CPU ms of our thread, a frame")
    axis.grid(True, alpha=0.3)
    axis.legend()
    figure.tight_layout()
    figure.savefig(images / "frames.png", dpi=80)


if __name__ == "__main__":
    source, target = map(pathlib.Path, sys.argv[1:3])
    growth(source, target)
    frames(source, target)
