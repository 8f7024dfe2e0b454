#!/usr/bin/env python3
"""Drives the real program from outside, as a user does, on a display of its own.
Usage: viewer.py ORVEX-TREE-VIEWER"""

import os
import pathlib
import subprocess
import sys
import tempfile
import time

PATIENCE = 60  # seconds until something awaited counts as missing
TREE = "(" + ",".join(f"((a{i},b{i}),c{i})" for i in range(300)) + ");"


def wait_for(what, condition):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        if result := condition():
            return result
        time.sleep(0.05)
    raise AssertionError(f"waited in vain for {what}")


class Display:
    """An X server with a window manager."""

    def __enter__(self):
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", "1200x900x24", "+extension", "GLX"],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as pipe:
            os.environ["DISPLAY"] = ":" + pipe.readline().strip()
        self.manager = subprocess.Popen(["openbox"], stderr=subprocess.DEVNULL)
        wait_for("the window manager", lambda: b"window id" in subprocess.run(
            ["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], capture_output=True).stdout)
        return self

    def __exit__(self, *_):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()


def xdotool(*arguments):
    return subprocess.run(["xdotool", *map(str, arguments)], capture_output=True, text=True).stdout


def window(title):
    """Waits for a window of that exact title and gives it the keyboard."""
    found = wait_for(title, lambda: xdotool("search", "--onlyvisible", "--name",
                                            f"^{title}$").split())[0]
    wait_for(f"focus of {title}", lambda: xdotool("windowactivate", found) is not None
             and xdotool("getactivewindow").strip() == found)
    return found


def gone(title):
    wait_for(f"the end of {title}",
             lambda: not xdotool("search", "--onlyvisible", "--name", f"^{title}").split())


def pixels(source, *changes):
    """Width, height and RGB bytes of a picture, which ImageMagick may change first."""
    size = subprocess.run(["identify", "-format", "%w %h", source], check=True,
                          capture_output=True).stdout.split()
    data = subprocess.run(["convert", source, *changes, "-depth", "8", "rgb:-"], check=True,
                          capture_output=True).stdout
    return int(size[0]), int(size[1]), data


def screenshot(main, folder):
    subprocess.run(["import", "-window", main, folder / "shot.png"], check=True)
    return pixels(folder / "shot.png")


def white(picture):
    data = picture[2]
    return sum(data[i:i + 3] == b"\xff\xff\xff" for i in range(0, len(data), 3))


def menu(main, x, downs):
    """Opens the menu at x of the menu bar and chooses an entry by the keyboard."""
    xdotool("mousemove", "--window", main, x, 10, "click", 1)
    time.sleep(0.3)  # the menu takes the keyboard; nothing outside tells when
    xdotool("key", *["Down"] * downs, "Return")


def open_file(main, name):
    window("Orvex Tree Viewer")
    xdotool("key", "ctrl+o")
    window("Open")
    xdotool("type", str(name))
    xdotool("key", "Return")
    gone("Open$")


def export(main, folder):
    """Exports the view and compares it with the window below its menu bar."""
    menu(main, 15, 3)
    window("Export Image")
    name = folder / "picture.png"
    xdotool("type", str(name))
    xdotool("key", "Return")
    gone("Export Image")
    wait_for("the picture", name.exists)
    width, height, exported = pixels(name)

    def is_shown():
        shown = screenshot(main, folder)
        assert shown[0] == width and 0 < shown[1] - height < 60, (shown[:2], width, height)
        view = pixels(folder / "shot.png", "-gravity", "south", "-crop", f"{width}x{height}+0+0",
                      "+repage")[2]
        alike = sum(abs(a - b) < 8 for a, b in zip(view, exported))
        return len(view) == len(exported) and alike > 0.999 * len(view)

    wait_for("the window to look like the exported picture", is_shown)


def environment(home):
    return {**os.environ, "HOME": str(home), "XDG_CONFIG_HOME": str(home / "config"),
            "QT_QPA_PLATFORMTHEME": "", "LIBGL_ALWAYS_SOFTWARE": "1", "LC_ALL": "C.UTF-8",
            "ASAN_OPTIONS": "detect_leaks=0"}


def use(program, folder):
    (folder / "wide.nwk").write_text(TREE)
    (folder / "bad.nwk").write_text("a,b);")
    process = subprocess.Popen([program], cwd=folder, env=environment(folder),
                               stderr=subprocess.PIPE, text=True)
    main = window("Orvex Tree Viewer")
    open_file(main, folder / "wide.nwk")
    whole = wait_for("a tree", lambda: (s := screenshot(main, folder)) and white(s) > 1000 and s)
    xdotool("mousemove", "--window", main, 400, 300, "click", "--repeat", 8, 4)
    zoomed = wait_for("the zoom", lambda: (s := screenshot(main, folder)) != whole and s)
    xdotool("mousemove", "--window", main, 400, 300, "mousedown", 1,
            "mousemove_relative", "--", 0, -80, "mousemove_relative", 0, 10, "mouseup", 1)
    wait_for("the drag", lambda: screenshot(main, folder) != zoomed)
    export(main, folder)
    open_file(main, folder / "bad.nwk")
    window(f"Error Loading File {folder}/bad.nwk")
    xdotool("key", "Return")
    gone("Error Loading")
    window("Orvex Tree Viewer")
    menu(main, 15, 4)
    errors = process.communicate(timeout=PATIENCE)[1]
    assert process.returncode == 0, process.returncode
    assert "objects remaining" not in errors, errors
    assert (folder / "exception.txt").read_text() == ""
    log = folder / ".TesmarGroup/Orvex Tree Viewer/Orvex Tree Viewer.stdout"
    assert all(line.startswith("Qt ") for line in log.read_text().splitlines()), log.read_text()
    settings = (folder / "config/TesmarGroup/Orvex Tree Viewer.ini").read_text()
    for key in ("main_window_geometry=", f"file_dialog.last_directory.Open={folder}",
                "file_dialog.last_filter.Export_Image="):
        assert key in settings, settings


def start_without_home(program, folder):
    variables = environment(folder)
    del variables["HOME"]
    code = subprocess.run([program], cwd=folder, env=variables, timeout=PATIENCE).returncode
    assert code == 1, code
    assert (folder / "exception.txt").read_text() == (
        "Error 1630567380: Error 3888703160: "
        "Failed to find user's application-data directory\n")


if __name__ == "__main__":
    executable = pathlib.Path(sys.argv[1]).resolve()
    with Display():
        for part in (use, start_without_home):
            with tempfile.TemporaryDirectory() as name:
                part(executable, pathlib.Path(name))
