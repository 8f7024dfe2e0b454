#!/usr/bin/env python3
"""Drives the real program from outside, as a user does, on a display of its own.
Usage: viewer.py ORVEX-TREE-VIEWER ORVEX-TREE-SERVICE"""

import atexit
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


def settled(main, folder):
    """A screenshot of a tree, once the window stays as it is."""
    return wait_for("a tree", lambda: white(s := screenshot(main, folder)) > 1000
                    and screenshot(main, folder) == s and s)


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
    whole = settled(main, folder)
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
    quit_program(main, process)
    assert (folder / "exception.txt").read_text() == ""
    log = folder / ".TesmarGroup/Orvex Tree Viewer/Orvex Tree Viewer.stdout"
    assert all(line.startswith("Qt ") for line in log.read_text().splitlines()), log.read_text()
    settings = (folder / "config/TesmarGroup/Orvex Tree Viewer.ini").read_text()
    for key in ("main_window_geometry=", f"file_dialog.last_directory.Open={folder}",
                "file_dialog.last_filter.Export_Image="):
        assert key in settings, settings


def quit_program(main, process):
    menu(main, 15, 4)
    errors = process.communicate(timeout=PATIENCE)[1]
    assert process.returncode == 0, process.returncode
    assert "objects remaining" not in errors, errors


def open_from_service(program, service, folder):
    """The tree looks the same as the file opened directly; a dead server leaves it shown."""
    (folder / "trees").mkdir()
    (folder / "trees/first.nwk").write_text("(a,b);")
    (folder / "trees/wide.nwk").write_text(TREE)
    viewer = subprocess.Popen([program], cwd=folder, env=environment(folder),
                              stderr=subprocess.PIPE, text=True)
    main = window("Orvex Tree Viewer")
    open_file(main, folder / "trees/wide.nwk")
    direct = settled(main, folder)
    open_file(main, folder / "trees/first.nwk")
    wait_for("another tree", lambda: (s := screenshot(main, folder)) != direct
             and screenshot(main, folder) == s)
    server = subprocess.Popen([service, folder / "trees"], stdout=subprocess.PIPE, text=True)
    atexit.register(server.kill)
    assert server.stdout.readline().startswith("serving 2 trees")
    menu(main, 15, 2)
    window("Dialog")
    time.sleep(0.3)  # its list takes the keyboard
    xdotool("key", "Down", "Down")
    time.sleep(0.3)  # and shows the selected row
    xdotool("key", "Return")
    gone("Dialog")
    window("Orvex Tree Viewer")
    wait_for("the tree of the service", lambda: screenshot(main, folder) == direct)
    server.terminate()
    assert server.wait(timeout=PATIENCE) == 0
    menu(main, 15, 2)
    window("Error detected.")
    xdotool("key", "Return")
    gone("Error detected")
    window("Orvex Tree Viewer")
    wait_for("the shown tree to stay", lambda: screenshot(main, folder) == direct)
    quit_program(main, viewer)
    log = (folder / ".TesmarGroup/Orvex Tree Viewer/Orvex Tree Viewer.stdout").read_text()
    assert "Error 8033290760: Error 3886626924: " in log, log


def start_without_home(program, folder):
    variables = environment(folder)
    del variables["HOME"]
    code = subprocess.run([program], cwd=folder, env=variables, timeout=PATIENCE).returncode
    assert code == 1, code
    assert (folder / "exception.txt").read_text() == (
        "Error 1630567380: Error 3888703160: "
        "Failed to find user's application-data directory\n")


if __name__ == "__main__":
    executable, tree_service = (pathlib.Path(name).resolve() for name in sys.argv[1:3])
    os.environ["no_proxy"] = "*"
    with Display():
        for part, arguments in ((use, ()), (open_from_service, (tree_service,)),
                                (start_without_home, ())):
            with tempfile.TemporaryDirectory() as name:
                part(executable, *arguments, pathlib.Path(name))
