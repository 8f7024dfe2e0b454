"""Starts the real programs, and what they talk to."""

import contextlib
import os
import pathlib
import signal
import socket
import socketserver
import subprocess
import sys
import threading
import time

from desktop import NAME, PATIENCE, MainWindow, confirm, wait_for

PROGRAMS = pathlib.Path(*sys.argv[1:2]).resolve()
VIEWER = PROGRAMS / "orvex-tree-viewer"
TREE = "(" + ",".join(f"((a{i},b{i}),c{i})" for i in range(300)) + ");"
LOG = f".TesmarGroup/{NAME}/{NAME}.stdout"
# In the log, once, where the driver gives the window none of the samples it asks for.
NO_SAMPLES = "have one sample for each pixel"
SETTINGS = f".config/TesmarGroup/{NAME}.ini"
FAILED = "Error detected."
LIST = b'[{"id":2,"treeName":"a"},{"id":1,"treeName":"b"}]'
SCENARIOS = {}


def scenario(function):
    """Marks a function that takes an empty folder, the user's home, and drives programs there."""
    SCENARIOS[function.__name__] = function
    return function


def environment(home, **changes):
    return {**os.environ, "HOME": str(home), **changes}


def run(folder, program, *arguments, **variables):
    return subprocess.run([PROGRAMS / program, *arguments], cwd=folder, text=True,
                          capture_output=True, env=environment(folder, **variables))


@contextlib.contextmanager
def viewer(folder, *arguments, before=None, leave=lambda _: confirm(NAME, keys=["alt+F4"]),
           title=NAME, errors=subprocess.PIPE, code=0, **variables):
    """The program, from its window to a good end, or to that of the code."""
    (folder / "wide.nwk").write_text(TREE)
    process = subprocess.Popen([VIEWER, *arguments], cwd=folder, env=environment(folder, **variables),
                               preexec_fn=before, stderr=errors, text=True)
    try:
        main = MainWindow(folder, process, title)
        yield main
        leave(main)
        said = process.communicate(timeout=PATIENCE)[1] or ""
    finally:
        process.kill()
    assert process.returncode == code, process.returncode
    assert "objects remaining" not in said, said


def is_free(port):
    try:
        socket.create_server(("127.0.0.1", port)).close()
    except OSError:
        return False
    return True


@contextlib.contextmanager
def serving(trees, port=14444, end=signal.SIGTERM):
    """The real tree service with two trees, up to a good end. The tests of another folder may have
    the port for a while."""
    wait_for("the port", lambda: is_free(port))
    server = subprocess.Popen([PROGRAMS / "orvex-tree-service", "--port", str(port), trees],
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    try:
        assert server.stdout.readline() == f"serving 2 trees at http://127.0.0.1:{port}/trees\n"
        yield server
        server.send_signal(end)
        assert server.wait(timeout=PATIENCE) == 0
    finally:
        server.kill()


class Answer(socketserver.BaseRequestHandler):
    """Sends what the server has for a request, a fifth of a second for each piece, and hangs up."""

    def handle(self):
        with contextlib.suppress(ConnectionError):  # who has enough of it hangs up
            for piece in self.server.pieces(self.request.recv(10_000)):
                self.request.sendall(piece)
                time.sleep(0.2)


@contextlib.contextmanager
def service():
    """Stands in for the tree service, as a proxy does: the server, and the viewer's variables."""
    with socketserver.ThreadingTCPServer(("127.0.0.1", 0), Answer) as server:
        threading.Thread(target=server.serve_forever, daemon=True).start()
        yield server, {"http_proxy": "http://127.0.0.1:%d" % server.server_address[1],
                       "no_proxy": "none.invalid"}


def good(body):
    return b"HTTP/1.0 200 OK\r\nContent-Length: %d\r\n\r\n" % len(body) + body
