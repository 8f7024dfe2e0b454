"""A display of its own, and what a user does on it with a program's windows."""

import contextlib
import os
import re
import subprocess
import time

PATIENCE = 60  # seconds until something awaited counts as missing
NAME = "Orvex Tree Viewer"


def wait_for(what, condition):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        if result := condition():
            return result
        time.sleep(0.05)
    raise AssertionError(f"waited in vain for {what}")


@contextlib.contextmanager
def display():
    """An X server with a window manager."""
    read, write = os.pipe()
    # A server that resets itself when its last client goes turns away whoever comes meanwhile.
    processes = [subprocess.Popen(
        ["Xvfb", "-displayfd", str(write), "-noreset", "-screen", "0", "1200x900x24", "+extension",
         "GLX"], pass_fds=[write], stderr=subprocess.DEVNULL)]
    os.close(write)
    try:
        with os.fdopen(read) as pipe:
            os.environ["DISPLAY"] = ":" + pipe.readline().strip()
        processes.append(subprocess.Popen(["openbox"], stderr=subprocess.DEVNULL))
        wait_for("the window manager", lambda: b"window id" in subprocess.run(
            ["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], capture_output=True).stdout)
        yield
    finally:
        for process in reversed(processes):
            process.terminate()
            process.wait()


def xdotool(*arguments):
    return subprocess.run(["xdotool", *map(str, arguments)], capture_output=True, text=True).stdout


def windows(title):
    return xdotool("search", "--onlyvisible", "--name", f"^{title}$").split()


def window(title):
    """Waits for a window of that title, an expression, and gives it the keyboard."""
    found = wait_for(title, lambda: windows(title))[0]
    wait_for(f"focus of {title}", lambda: xdotool("windowactivate", found) is not None
             and xdotool("getactivewindow").strip() == found)
    return found


def confirm(title, *text, keys=("Return",)):
    """Types into a window and waits until it is gone."""
    window(title)
    if text:
        xdotool("type", *text)
    xdotool("key", *keys)
    wait_for(f"the end of {title}", lambda: not windows(title))


def pixels(source, *changes):
    """Width, height and RGB bytes of a picture, which ImageMagick may change first."""
    size = subprocess.run(["identify", "-format", "%w %h", source], check=True,
                          capture_output=True).stdout.split()
    data = subprocess.run(["convert", source, *changes, "-depth", "8", "rgb:-"], check=True,
                          capture_output=True).stdout
    return int(size[0]), int(size[1]), data


class MainWindow:
    """The viewer's window, once it is there, and a folder for screenshots."""

    def __init__(self, folder):
        self.folder = folder
        self.window = window(NAME)

    def screenshot(self):
        subprocess.run(["import", "-window", self.window, self.folder / "shot.png"], check=True)
        return pixels(self.folder / "shot.png")

    def settled(self):
        """A screenshot of a tree, once the window stays as it is."""
        def shown():
            picture = self.screenshot()
            lit = len(re.findall(rb"\xff\xff\xff", picture[2]))
            return lit > 1000 and picture[2].endswith(b"\0\0\0") and (
                self.screenshot() == picture and picture)
        return wait_for("a tree", shown)

    def changed(self, before):
        return wait_for("a change", lambda: (now := self.settled()) != before and now)

    def stays(self, before):
        wait_for("the tree to stay", lambda: self.screenshot() == before)

    def menu(self, x, downs):
        """Opens the menu at x of the menu bar and chooses an entry by the keyboard."""
        window(NAME)
        xdotool("mousemove", "--window", self.window, x, 10, "click", 1)
        time.sleep(0.3)  # the menu takes the keyboard; nothing outside tells when
        xdotool("key", *["Down"] * downs, "Return")

    def zoom(self, notches):
        xdotool("mousemove", "--window", self.window, 400, 300, "click", "--repeat", notches, 4)

    def open(self, name):
        window(NAME)
        xdotool("key", "ctrl+o")
        confirm("Open", str(self.folder / name))

    def show(self, name="wide.nwk"):
        self.open(name)
        return self.settled()

    def open_second_of_service(self):
        self.menu(15, 2)
        window("Dialog")
        for keys in (["Down", "Down"], []):
            time.sleep(0.3)  # the list takes the keyboard, then shows the selected row
            xdotool("key", *keys)
        confirm("Dialog")

    def export(self, name):
        self.menu(15, 3)
        confirm("Export Image", str(name))
