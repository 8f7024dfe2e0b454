#!/usr/bin/env python3
"""Fails where a source under src/ includes a header of a higher layer, or one of Qt or OpenGL where
these have no place. Usage: includes.py SRC"""

import pathlib
import re
import sys

# From the lowest to the highest. shell/ is both ends.
LAYERS = ["shell base", "foundation", "compat", "tree", "render", "render/gl", "gui", "program"]
SHELL_BASE = {"Environment", "ExceptionHandler", "NoThrow", "StackLimit", "UserDirectory"}
INCLUDE = re.compile(r'^\s*#\s*include\s+(["<])([^">]+)[">]', re.MULTILINE)


def layer_of(path):
    """The layer of a file, given relative to src/; None for what lies in no folder of it."""
    folder = path.parent.as_posix()
    if folder == "shell":
        return "shell base" if path.stem in SHELL_BASE else "program"
    return folder if folder in LAYERS else None


def fault(path, bracket, name):
    """What is wrong with an include, or None."""
    own = layer_of(path)
    if bracket == "<":
        if re.match(r"(Q[A-Z]|Qt)", name) and own not in ("gui", "program"):
            return "Qt"
        if re.match(r"(GL|GLES\d?|EGL|GLFW)/", name) and own != "render/gl":
            return "OpenGL"
        return None
    if re.fullmatch(r"ui_\w+\.h", name) and own == "gui":
        return None
    other = layer_of(pathlib.PurePosixPath(name))
    if other is None:
        return "not a path from src/"
    return "upward" if LAYERS.index(other) > LAYERS.index(own) else None


def main(root):
    files = [f for pattern in ("*.h", "*.h.in", "*.cpp") for f in root.rglob(pattern)]
    faults = []
    for file in files:
        path = file.relative_to(root)
        if layer_of(path) is None:
            faults.append(f"{path}: no layer")
            continue
        for bracket, name in INCLUDE.findall(file.read_text(encoding="utf-8")):
            if what := fault(path, bracket, name):
                faults.append(f"{path} includes {name}: {what}")
    print("\n".join(faults) or f"{len(files)} files in order")
    return 1 if faults or not files else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1])))
