"""A display of its own, and what a user does on it with a program's windows."""

import contextlib
import os
import pathlib
import subprocess
import tempfile
import time

PATIENCE = 180  # seconds until something awaited counts as missing, on a machine that is busy
NAME = "Orvex Tree Viewer"
MENUS = (("Open", "Open from tesmar", "Export Image", "Quit"), ("Info", "Always Show Tree"))


def wait_for(what, condition):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        if result := condition():
            return result
        time.sleep(0.05)
    raise AssertionError(f"waited in vain for {what}")


@contextlib.contextmanager
def display(**variables):
    """An X server, which has these variables, with a window manager."""
    read, write = os.pipe()
    folder = tempfile.TemporaryDirectory()
    os.environ["FRAME_BUFFER"] = f"{folder.name}/Xvfb_screen0"
    # A server that resets itself when its last client goes turns away whoever comes meanwhile.
    processes = [subprocess.Popen(
        ["Xvfb", "-displayfd", str(write), "-noreset", "-screen", "0", "1200x900x24", "+extension",
         "GLX", "-fbdir", folder.name], pass_fds=[write], env={**os.environ, **variables},
        stderr=subprocess.DEVNULL)]
    os.close(write)
    try:
        with os.fdopen(read) as pipe:
            os.environ["DISPLAY"] = ":" + pipe.readline().strip()
        processes.append(subprocess.Popen(["openbox"], stdout=subprocess.DEVNULL,
                                          stderr=subprocess.DEVNULL))
        wait_for("the window manager", lambda: b"window id" in subprocess.run(
            ["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], capture_output=True).stdout)
        yield
    finally:
        for process in reversed(processes):
            process.terminate()
            process.wait()
        folder.cleanup()


@contextlib.contextmanager
def weston(folder):
    """A Wayland compositor in a window of the display, for programs with the variables it gives."""
    runtime = folder / "run"
    runtime.mkdir(mode=0o700)
    variables = {"XDG_RUNTIME_DIR": str(runtime), "WAYLAND_DISPLAY": "wayland-0",
                 "QT_QPA_PLATFORM": "wayland"}
    (runtime / "weston.ini").write_text(
        "[core]\nidle-time=0\n[shell]\npanel-position=none\nbackground-color=0xff000000\n"
        "animation=none\nstartup-animation=none\n")
    process = subprocess.Popen(
        ["weston", f"--config={runtime}/weston.ini", "--backend=x11-backend.so",
         "--socket=wayland-0"], env={**os.environ, **variables}, stdout=subprocess.DEVNULL,
        stderr=subprocess.DEVNULL)
    try:
        wait_for("weston", lambda: xdotool(
            "search", "--onlyvisible", "--class", "weston", "set_window", "--name", "weston")
            is not None and windows("weston"))
        yield variables
    finally:
        process.terminate()
        process.wait()


def xdotool(*arguments):
    return subprocess.run(["xdotool", *map(str, arguments)], capture_output=True, text=True).stdout


def windows(title):
    return xdotool("search", "--onlyvisible", "--name", f"^{title}$").split()


def window(title):
    """Waits for a window of that title, an expression, and gives it the keyboard. From then on keys
    reach the program in their order, so that none has to wait for what the one before it does."""
    found = wait_for(title, lambda: windows(title))[0]
    wait_for(f"focus of {title}", lambda: xdotool("windowactivate", found) is not None
             and xdotool("getwindowfocus").strip() == found)
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


def lit(picture):
    """How many pixels of a view are lit by a tree, however its lines fall between the rows. The rows
    of a view end in black, those of the menu bar and of a window without a view don't."""
    width, _, data = picture
    rows = (data[i:i + 3 * width] for i in range(0, len(data), 3 * width))
    greens = b"".join(row[1::3] for row in rows if row.endswith(b"\0\0\0"))
    return sum(green > 90 for green in greens)  # more than the thumbnail's blue has


def screen():
    """What the display shows, as bytes of blue, green, red and nothing, without a request to it: that
    of a screenshot takes the keyboard from programs for a moment, which is an event for them."""
    return pathlib.Path(os.environ["FRAME_BUFFER"]).read_bytes()


class MainWindow:
    """The viewer's window, once it is there, and a folder for screenshots. On Wayland it lies in a
    window of the compositor."""

    def __init__(self, folder, process, title):
        self.folder = folder
        self.process = process
        self.window = window(title)

    def screenshot(self):
        subprocess.run(["import", "-window", self.window, self.folder / "shot.png"], check=True)
        return pixels(self.folder / "shot.png")

    def size(self):
        return self.screenshot()[:2]

    def settled(self, what="a tree", is_it=lambda picture: lit(picture) > 1000):
        """A screenshot of a tree, or of what else is meant, once the window stays as it is."""
        def shown():
            picture = self.screenshot()
            return is_it(picture) and self.screenshot() == picture and picture
        return wait_for(what, shown)

    def changed(self, before):
        return wait_for("a change", lambda: (now := self.settled()) != before and now)

    def stays(self, before):
        wait_for("the tree to stay", lambda: self.screenshot() == before)

    def menu(self, entry):
        """Chooses an entry of the menu bar by the keyboard, wherever the fonts put it."""
        window(NAME)
        for position, entries in enumerate(MENUS):
            if entry in entries:
                xdotool("key", "alt", *["Right"] * position, *["Down"] * (entries.index(entry) + 1),
                        "Return")

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
        self.menu("Open from tesmar")
        confirm("Dialog", keys=["Down", "Down", "Return"])

    def export(self, name):
        self.menu("Export Image")
        confirm("Export Image", str(name))
