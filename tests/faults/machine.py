#!/usr/bin/env python3
"""The real programs where the machine or the tree service fails them.
Usage: machine.py ORVEX-TREE-VIEWER ORVEX-SNAPSHOT"""

import contextlib
import pathlib
import random
import re
import resource
import signal
import socketserver
import subprocess
import sys
import tempfile
import threading
import time

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "e2e"))
from viewer import (Display, PATIENCE, TREE, environment, gone, menu, open_file, pixels,
                    screenshot, settled, wait_for, window, xdotool)

NAME = "Orvex Tree Viewer"
LOG = f".TesmarGroup/{NAME}/{NAME}.stdout"
SETTINGS = f"config/TesmarGroup/{NAME}.ini"
FAILED = "Error detected."
LIST = b'[{"id":2,"treeName":"a"},{"id":1,"treeName":"b"}]'


def fill_disk():
    """Lets the process that is about to start write no byte to a file."""
    signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
    resource.setrlimit(resource.RLIMIT_FSIZE, (0, 0))


@contextlib.contextmanager
def viewer(program, folder, before=None, **variables):
    """The program, from its window to a good end."""
    (folder / "wide.nwk").write_text(TREE)
    process = subprocess.Popen([program], cwd=folder, env={**environment(folder), **variables},
                               preexec_fn=before, stderr=subprocess.PIPE, text=True)
    try:
        yield window(NAME)
        window(NAME)
        xdotool("key", "alt+F4")
        errors = process.communicate(timeout=PATIENCE)[1]
    finally:
        process.kill()
    assert process.returncode == 0, process.returncode
    assert "objects remaining" not in errors, errors


def show(main, folder):
    open_file(main, folder / "wide.nwk")
    return settled(main, folder)


def stays(shown, main, folder):
    wait_for("the tree to stay", lambda: screenshot(main, folder) == shown)


def export(main, name):
    menu(main, 15, 3)
    window("Export Image")
    xdotool("type", str(name))
    xdotool("key", "Return")
    gone("Export Image")


def confirm(title, key="Return"):
    window(title)
    xdotool("key", key)
    gone(title)


def full_disk(folder, program):
    with viewer(program, folder, fill_disk) as main:
        shown = show(main, folder)
        export(main, folder / "picture.png")
        assert not list(folder.glob("picture*"))
        stays(shown, main, folder)
        (folder / "bad.nwk").write_text("a,b")
        open_file(main, folder / "bad.nwk")
        confirm("Error Loading File .*")


def nothing_can_be_written(folder, program):
    (folder / LOG).mkdir(parents=True)
    with viewer(program, folder, XDG_CONFIG_HOME="/proc/none") as main:
        shown = show(main, folder)
        export(main, "/proc/picture.png")
        stays(shown, main, folder)


def garbage_in_settings(folder, program):
    (folder / SETTINGS).parent.mkdir(parents=True)
    for garbage in (random.Random(5).randbytes(100_000),
                    b"[General]\nmain_window_geometry=@ByteArray(\\x1\\xd9\\xd0\\xcb\\0\\x3)\n"
                    b"file_dialog.last_directory.Open=@Invalid()\n"):
        (folder / SETTINGS).write_bytes(garbage)
        with viewer(program, folder) as main:
            show(main, folder)


def homes(folder, program):
    with viewer(program, folder, HOME=str(folder / "not/there")) as main:
        show(main, folder)
    assert (folder / "not/there" / LOG).exists()
    for home, reason in (("", "Error 3888703160: "), ("/proc/none", "boost::filesystem::")):
        process = subprocess.run([program], cwd=folder, env={**environment(folder), "HOME": home},
                                 timeout=PATIENCE)
        assert process.returncode == 1
        text = (folder / "exception.txt").read_text()
        assert text.startswith("Error 1630567380: " + reason), text


def no_opengl(folder, program):
    with viewer(program, folder, QT_XCB_GL_INTEGRATION="none") as main:
        open_file(main, folder / "wide.nwk")
        confirm("Error Loading File .*")


class Answer(socketserver.BaseRequestHandler):
    """Sends what the server has for a request, a fifth of a second for each piece, and hangs up."""

    def handle(self):
        for piece in self.server.pieces(self.request.recv(10_000)):
            self.request.sendall(piece)
            time.sleep(0.2)


@contextlib.contextmanager
def service():
    """Stands in for the tree service, as a proxy does: the server, and the viewer's variables."""
    with socketserver.ThreadingTCPServer(("127.0.0.1", 0), Answer) as server:
        threading.Thread(target=server.serve_forever).start()
        yield server, {"http_proxy": "http://127.0.0.1:%d" % server.server_address[1],
                       "no_proxy": "none.invalid"}
        server.shutdown()


def good(body):
    return b"HTTP/1.0 200 OK\r\nContent-Length: %d\r\n\r\n" % len(body) + body


def bad_service(folder, program):
    noise = random.Random(6).randbytes(9000)
    with service() as (server, proxy), viewer(program, folder, **proxy) as main:
        shown = show(main, folder)
        for pieces, title in (([], FAILED), ([good(LIST)[:-9]], FAILED), ([noise], FAILED),
                              ([good(LIST)[:60], b"", good(LIST)[60:]], "Dialog")):
            server.pieces = lambda _: pieces
            menu(main, 15, 2)
            confirm(title, "Escape")
            stays(shown, main, folder)


def deepest(snapshot, folder):
    """How many levels the stack allows, in the program's own words."""
    (folder / "deep.nwk").write_text("(a," * 500_000 + "b" + ")" * 500_000)
    words = subprocess.run([snapshot, "deep.nwk", "deep.png"], cwd=folder, text=True,
                           env=environment(folder), capture_output=True).stderr
    return int(re.search("At most ([0-9]+) levels can be shown", words)[1])


def ladders(folder, program, snapshot):
    """The deepest tree that there can be and one a level deeper, from the service and from a file,
    in all that can be done with it."""
    levels = deepest(snapshot, folder)

    def from_service(levels):
        tree = (b'{"name":"","children":[{"name":"a","children":[]},' * levels +
                b'{"name":"b","children":[]}' + b"]}" * levels)
        server.pieces = lambda request: [
            good(b'{"root":%s}' % tree if b"/trees/1" in request else LIST)]
        menu(main, 15, 2)
        window("Dialog")
        time.sleep(0.3)  # its list takes the keyboard
        xdotool("key", "Down", "Down")
        time.sleep(0.3)  # and shows the selected row
        confirm("Dialog")

    def from_file(levels):
        (folder / "deep.nwk").write_text("(a," * levels + "b" + ")" * levels)
        open_file(main, folder / "deep.nwk")

    with service() as (server, proxy), viewer(program, folder, **proxy) as main:
        for source, refused in ((from_service, FAILED), (from_file, "Error Loading File .*")):
            source(levels + 1)
            confirm(refused)
            source(levels)
            settled(main, folder)
            menu(main, 60, 1)
            confirm("Tree info")
            window(NAME)
            menu(main, 60, 2)
            for _ in range(12):
                xdotool("mousemove", "--window", main, 400, 300, "click", "--repeat", 10, 4)
                screenshot(main, folder)
            export(main, folder / "deep.png")
            wait_for("the picture", (folder / "deep.png").exists)
            (folder / "deep.png").unlink()


def draw(snapshot, folder, font):
    """A picture, made with that one font file on the machine."""
    (folder / "fonts").mkdir(exist_ok=True)
    (folder / "fonts/font.ttf").write_bytes(font)
    (folder / "fonts.conf").write_text(
        f"<fontconfig><dir>{folder}/fonts</dir><cachedir>{folder}/cache</cachedir></fontconfig>")
    subprocess.run([snapshot, "wide.nwk", "wide.png"], cwd=folder, check=True, timeout=PATIENCE,
                   env={**environment(folder), "FONTCONFIG_FILE": str(folder / "fonts.conf")})
    return pixels(folder / "wide.png")


def bad_fonts(folder, snapshot):
    """Whatever the font, the lines of the tree are drawn as ever."""
    (folder / "wide.nwk").write_text(TREE)
    file = subprocess.run(["fc-match", "-f", "%{file}", "Arial"], check=True, text=True,
                          capture_output=True).stdout
    font = pathlib.Path(file).read_bytes()
    labelled = draw(snapshot, folder, font)
    bare = draw(snapshot, folder, b"")
    assert bare != labelled
    noise = random.Random(7)
    for size in (10, 1000, len(font) // 4, len(font) // 2, len(font) - 1000):
        draw(snapshot, folder, font[:size])
        draw(snapshot, folder, font[:size] + noise.randbytes(len(font) - size))
    assert draw(snapshot, folder, noise.randbytes(10_000)) == bare


if __name__ == "__main__":
    executable, picture = (pathlib.Path(name).resolve() for name in sys.argv[1:3])
    with Display():
        for scenario, *arguments in (
                (full_disk, executable), (nothing_can_be_written, executable),
                (garbage_in_settings, executable), (homes, executable), (no_opengl, executable),
                (bad_service, executable), (ladders, executable, picture), (bad_fonts, picture)):
            with tempfile.TemporaryDirectory() as name:
                scenario(pathlib.Path(name), *arguments)
