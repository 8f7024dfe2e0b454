#!/usr/bin/env python3
"""Fails where a source under src/ includes a header of a higher layer or one of Qt where that has no
place, or where one outside render/gl/ calls OpenGL, by itself or through Qt's classes for it.
Usage: layers.py SRC"""

import pathlib
import re
import sys

# Each folder is one layer. From the lowest to the highest.
LAYERS = ["foundation/math", "foundation/system", "foundation/guard", "foundation/counted",
          "foundation/progress", "foundation/network", "tree/json", "tree/model", "tree/newick",
          "tree/service", "tree", "render/layout", "render/camera", "render/gl/device",
          "render/gl/font", "render/gl/draw", "render/gl/scene/labels", "render/gl/scene",
          "render/gl/view", "gui/qt", "gui", "shell"]
WITH_QT = ("gui/qt", "gui", "shell")
# Qt's classes for windows that OpenGL draws into; every other class of these families makes calls.
QT_WINDOWS = ("QGLContext", "QGLFormat", "QGLWidget", "QOpenGLWidget", "QOpenGLWindow")
COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.DOTALL)
CALL = re.compile(r"\b(?:gl|glew)[A-Z]\w*(?=\s*\()")
INCLUDE = re.compile(r'^\s*#\s*include\s+(["<])([^">]+)[">]', re.MULTILINE)


def layer_of(path):
    """The layer of a file, given relative to src/; None for what lies in no folder of the list."""
    folder = path.parent.as_posix()
    return folder if folder in LAYERS else None


def is_opengl(name):
    """Whether a header lets its includer call OpenGL."""
    qt = re.match(r"(?:QtGui/|QtOpenGL/)?(Q(?:Open)?GL\w*)$", name)
    return re.match(r"(GL|GLES\d?|EGL|GLFW)/", name) or (qt and qt[1] not in QT_WINDOWS)


def fault(path, bracket, name):
    """What is wrong with an include, or None."""
    own = layer_of(path)
    if bracket == "<":
        if re.match(r"(Q[A-Z]|Qt)", name) and own not in WITH_QT:
            return "Qt"
        return "OpenGL" if is_opengl(name) and not own.startswith("render/gl/") else None
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
        text = COMMENT.sub("", file.read_text(encoding="utf-8"))
        for bracket, name in INCLUDE.findall(text):
            if what := fault(path, bracket, name):
                faults.append(f"{path} includes {name}: {what}")
        if not layer_of(path).startswith("render/gl/"):
            faults += [f"{path} calls {name}" for name in sorted(set(CALL.findall(text)))]
    print("\n".join(faults) or f"{len(files)} files in order")
    return 1 if faults or not files else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1])))
