#!/usr/bin/env python3
"""Drives the real programs from outside, as a user does, also where the machine or the tree service
fails them. Usage: programs.py FOLDER-OF-PROGRAMS"""

import contextlib
import http.client
import os
import pathlib
import random
import re
import resource
import signal
import socket
import socketserver
import subprocess
import sys
import tempfile
import threading
import time

from desktop import NAME, PATIENCE, MainWindow, confirm, display, pixels, wait_for, xdotool

PROGRAMS = pathlib.Path(sys.argv[1]).resolve()
VIEWER = PROGRAMS / "orvex-tree-viewer"
TREE = "(" + ",".join(f"((a{i},b{i}),c{i})" for i in range(300)) + ");"
LOG = f".TesmarGroup/{NAME}/{NAME}.stdout"
SETTINGS = f"config/TesmarGroup/{NAME}.ini"
FAILED = "Error detected."
LIST = b'[{"id":2,"treeName":"a"},{"id":1,"treeName":"b"}]'


def environment(home, **changes):
    return {**os.environ, "HOME": str(home), "XDG_CONFIG_HOME": str(home / "config"),
            "QT_QPA_PLATFORMTHEME": "", "LIBGL_ALWAYS_SOFTWARE": "1", "LC_ALL": "C.UTF-8",
            **changes}


@contextlib.contextmanager
def viewer(folder, before=None, leave=lambda _: confirm(NAME, keys=["alt+F4"]), **variables):
    """The program, from its window to a good end."""
    (folder / "wide.nwk").write_text(TREE)
    process = subprocess.Popen([VIEWER], cwd=folder, env=environment(folder, **variables),
                               preexec_fn=before, stderr=subprocess.PIPE, text=True)
    try:
        main = MainWindow(folder)
        yield main
        leave(main)
        errors = process.communicate(timeout=PATIENCE)[1]
    finally:
        process.kill()
    assert process.returncode == 0, process.returncode
    assert "objects remaining" not in errors, errors


def use(folder):
    (folder / "bad.nwk").write_text("a,b);")
    with viewer(folder, leave=lambda main: main.menu(15, 4)) as main:
        whole = main.show()
        main.zoom(8)
        zoomed = main.changed(whole)
        xdotool("mousemove", "--window", main.window, 400, 300, "mousedown", 1,
                "mousemove_relative", "--", 0, -80, "mousemove_relative", 0, 10, "mouseup", 1)
        width, height, shown = main.changed(zoomed)
        main.export(folder / "picture.png")
        wait_for("the picture", (folder / "picture.png").exists)
        w, h, exported = pixels(folder / "picture.png")
        assert w == width and 0 < height - h < 60
        below = shown[-len(exported):]  # the menu bar
        assert sum(abs(a - b) < 8 for a, b in zip(below, exported)) > 0.999 * len(exported)
        main.open("bad.nwk")
        confirm(f"Error Loading File {folder}/bad.nwk")
    assert (folder / "exception.txt").read_text() == ""
    log = (folder / LOG).read_text()
    assert all(line.startswith("Qt ") for line in log.splitlines()), log
    settings = (folder / SETTINGS).read_text()
    for key in ("main_window_geometry=", f"file_dialog.last_directory.Open={folder}",
                "file_dialog.last_filter.Export_Image="):
        assert key in settings, settings


@contextlib.contextmanager
def serving(trees, port=14444, end=signal.SIGTERM):
    """The real tree service with two trees, up to a good end."""
    server = subprocess.Popen([PROGRAMS / "orvex-tree-service", "--port", str(port), trees],
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    try:
        assert server.stdout.readline() == f"serving 2 trees at http://127.0.0.1:{port}/trees\n"
        yield server
        server.send_signal(end)
        assert server.wait(timeout=PATIENCE) == 0
    finally:
        server.kill()


def real_service(folder):
    """The tree looks the same as the file opened directly; a dead server leaves it shown."""
    (folder / "trees").mkdir()
    (folder / "trees/first.nwk").write_text("(a" + ",b" * 50 + ");")
    (folder / "trees/wide.nwk").write_text(TREE)
    with viewer(folder) as main:
        direct = main.show()
        main.show("trees/first.nwk")
        with serving(folder / "trees"):
            main.open_second_of_service()
            main.stays(direct)
        main.menu(15, 2)
        confirm(FAILED)
        main.stays(direct)
    assert "Error 8033290760: Error 3886626924: " in (folder / LOG).read_text()


def service_answers(folder):
    trees = folder / "trees"
    trees.mkdir()
    (folder / "outside.nwk").write_text("(secret,b);")
    (trees / "link.nwk").symlink_to("../outside.nwk")
    (trees / "a.b.TRE").write_text("(" * 20000 + "deep" + ")" * 20000)
    (trees / "0.nwk").write_text("no tree")
    (trees / "note.txt").write_text("(no,tree)")
    (trees / "b.nwk").write_bytes(b'((a:1,"\xff:2)x,c);')

    def asked(path, method="GET", **headers):
        connection = http.client.HTTPConnection("127.0.0.1", port, timeout=PATIENCE)
        connection.request(method, path, headers=headers)
        answer = connection.getresponse()
        return answer.status, answer.read().decode()

    def node(name, *children):
        return '{"name":"%s","children":[%s]}' % (name, ",".join(children))

    deep = node("deep")
    for _ in range(20000):
        deep = node("", deep)
    small = node("", node("x", node("a"), node('\\"\ufffd')), node("c"))
    with socket.create_server(("127.0.0.1", 0)) as free:
        port = free.getsockname()[1]
    for end in (signal.SIGINT, signal.SIGTERM):
        with serving(trees, port, end) as server:
            for path, answer in (
                    ("/trees", '[{"id":2,"treeName":"a.b"},{"id":3,"treeName":"b"}]'),
                    ("/trees/2", '{"root":%s}' % deep), ("/trees/3", '{"root":%s}' % small)):
                assert asked(path) == (200, answer), path
            for path in ("/", "/trees/", "/trees/1", "/trees/4", "/trees/02", "/trees/-1",
                         "/trees/../outside.nwk", "/trees/%2e%2e%2foutside.nwk", "/trees/b.nwk",
                         "/trees/3%00"):
                status, answer = asked(path)
                assert status == 404 and re.fullmatch('{"error":".+"}', answer), path
            assert asked("/trees", "POST")[0] == 405
            assert asked("/trees/3", Range="bytes=0-,0-")[0] == 416
            (trees / "b.nwk").rename(folder / "away")
            assert asked("/trees/3")[0] == 500
            (folder / "away").rename(trees / "b.nwk")
        errors = server.stderr.read()
        assert "0.nwk is left out: it holds no tree" in errors
        assert "link.nwk is left out: it leads out of the folder" in errors


def homes(folder):
    with viewer(folder, HOME=str(folder / "not/there")) as main:
        main.show()
    assert (folder / "not/there" / LOG).exists()
    for home, reason in (({}, "Error 3888703160: "), ({"HOME": ""}, "Error 3888703160: "),
                         ({"HOME": "/proc/none"}, "boost::filesystem::")):
        variables = {k: v for k, v in environment(folder).items() if k != "HOME"}
        assert subprocess.run([VIEWER], cwd=folder, env={**variables, **home}).returncode == 1
        text = (folder / "exception.txt").read_text()
        assert text.startswith("Error 1630567380: " + reason), text


def fill_disk():
    """Lets the process that is about to start write no byte to a file."""
    signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
    resource.setrlimit(resource.RLIMIT_FSIZE, (0, 0))


def nothing_can_be_written(folder):
    with viewer(folder, fill_disk) as main:
        shown = main.show()
        main.export(folder / "picture.png")
        main.stays(shown)
    assert not list(folder.glob("picture*"))
    (folder / LOG).unlink()
    (folder / LOG).mkdir()
    with viewer(folder, XDG_CONFIG_HOME="/proc/none") as main:
        shown = main.show()
        main.export("/proc/picture.png")
        main.stays(shown)


def garbage_in_settings(folder):
    (folder / SETTINGS).parent.mkdir(parents=True)
    for garbage in (random.Random(5).randbytes(100_000),
                    b"[General]\nmain_window_geometry=@ByteArray(\\x1\\xd9\\xd0\\xcb\\0\\x3)\n"
                    b"file_dialog.last_directory.Open=@Invalid()\n"):
        (folder / SETTINGS).write_bytes(garbage)
        with viewer(folder) as main:
            main.show()


def no_opengl(folder):
    with viewer(folder, QT_XCB_GL_INTEGRATION="none") as main:
        main.open("wide.nwk")
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
        threading.Thread(target=server.serve_forever, daemon=True).start()
        yield server, {"http_proxy": "http://127.0.0.1:%d" % server.server_address[1],
                       "no_proxy": "none.invalid"}


def good(body):
    return b"HTTP/1.0 200 OK\r\nContent-Length: %d\r\n\r\n" % len(body) + body


def bad_service(folder):
    noise = random.Random(6).randbytes(9000)
    with service() as (server, proxy), viewer(folder, **proxy) as main:
        shown = main.show()
        to_file = b"HTTP/1.0 302 Found\r\nLocation: file:///etc/passwd\r\n\r\n"
        whatever_status = good(LIST).replace(b"200 OK", b"404 Not Found")
        for pieces, title in (([], FAILED), ([good(LIST)[:-9]], FAILED), ([noise], FAILED),
                              ([to_file], FAILED), ([whatever_status], "Dialog"),
                              ([good(LIST)[:60], b"", good(LIST)[60:]], "Dialog")):
            server.pieces = lambda _: pieces
            main.menu(15, 2)
            confirm(title, keys=["Down", "Down", "Escape"])
            main.stays(shown)
        main.menu(15, 2)
        confirm("Dialog")  # no row is selected yet
        main.stays(shown)
        server.pieces = lambda request: [good(LIST if b"/trees " in request else b"{}")]
        main.open_second_of_service()
        confirm(FAILED)
        main.stays(shown)
    reasons = re.findall("Error 8033290760: .*(Empty|9 bytes|HTTP/0.9|\"file\"|a tree),? ?.*",
                         (folder / LOG).read_text())
    assert reasons == ["Empty", "9 bytes", "HTTP/0.9", '"file"', "a tree"], (folder / LOG).read_text()


def ladder(levels):
    return "(a," * levels + "b" + ")" * levels


def run(folder, program, *arguments, **variables):
    return subprocess.run([PROGRAMS / program, *arguments], cwd=folder, text=True,
                          capture_output=True, env=environment(folder, **variables))


def snapshots(folder):
    (folder / "t.nwk").write_text(TREE)
    pictures = []
    for image, *options in (["1.png"], ["2.png", "--zoom", "4"], ["3.tif", "--all"],
                            ["4.bmp", "--zoom", "4", "--pan", "-0.3"],
                            ["5.TIF", "--size", "1500x1300"], ["6.jpg", "--zoom", "9"]):
        assert run(folder, "orvex-snapshot", "t.nwk", image, *options).stderr == ""
        pictures.append(pixels(folder / image))
        assert pictures.count(pictures[-1]) == 1, options
    assert {picture[:2] for picture in pictures} == {(1000, 600), (1500, 1300)}
    examples = list(pathlib.Path(__file__).parents[2].glob("examples/*.nwk"))
    assert len(examples) > 3
    for example in examples:
        run(folder, "orvex-snapshot", example, "example.png").check_returncode()


def generated_trees(folder):
    """They are the same on every machine."""
    def made(*arguments):
        return run(folder, "orvex-generate", *arguments).stdout

    assert made("random", "4", "--lengths") == (
        "((Nordel_homus19:0.91268,Peru_zeni24:0.21477):0.89250,"
        "(Xaor_cifi01:0.04573,Zegal_bama78:0.18283):0.89516);\n")
    assert made("polytomy", "90") != made("polytomy", "90", "--seed", "7")
    assert re.fullmatch(r"(\(\w+,){999}\w+\){999};\n", made("ladder", "1000"))


def wrong_arguments(folder):
    """What can't be done is told in one line, and leaves no file."""
    (folder / "t.nwk").write_text("(a,b);")
    (folder / "empty.nwk").write_text("")
    before = sorted(folder.iterdir())
    with socket.create_server(("127.0.0.1", 0)) as taken:
        for program, *cases in (
                ("orvex-snapshot", "t.nwk", "t.nwk x.png y.png", "none.nwk x.png",
                 "empty.nwk x.png", "t.nwk x.xyz", "t.nwk no/x.png", "t.nwk x.png --size 0x5",
                 "t.nwk x.png --size 9x9999", "t.nwk x.png --zoom nan", "t.nwk x.png --hue"),
                ("orvex-generate", "", "star", "star 3 4", "star x", "star -3", "star 3x", "star 0",
                 "star 99999999999", "bush 3", "star 3 --seed", "star 3 --sed 4"),
                ("orvex-tree-service", "", ". .", "--port", f"--port {taken.getsockname()[1]} .",
                 "--port 0 .", "--port 65536 .", "--port 80x .", "--verbose .", "none", "t.nwk")):
            for arguments in cases:
                refused = run(folder, program, *arguments.split())
                assert refused.returncode == 1 and re.fullmatch(
                    program + ": [^\n]+\n", refused.stderr), refused
    assert sorted(folder.iterdir()) == before


def ladders(folder):
    """The deepest tree that there can be and one a level deeper, from the service and from a file,
    in all that can be done with it."""
    (folder / "deep.nwk").write_text(ladder(500_000))
    words = run(folder, "orvex-snapshot", "deep.nwk", "deep.png").stderr
    most = int(re.search("At most ([0-9]+) levels can be shown", words)[1])

    def from_service(levels):
        tree = (b'{"name":"","children":[{"name":"a","children":[]},' * levels +
                b'{"name":"b","children":[]}' + b"]}" * levels)
        server.pieces = lambda request: [
            good(b'{"root":%s}' % tree if b"/trees/1" in request else LIST)]
        main.open_second_of_service()

    def from_file(levels):
        (folder / "deep.nwk").write_text(ladder(levels))
        main.open("deep.nwk")

    with service() as (server, proxy), viewer(folder, **proxy) as main:
        for source, refused in ((from_service, FAILED), (from_file, "Error Loading File .*")):
            source(most + 1)
            confirm(refused)
            source(most)
            main.settled()
            main.menu(60, 1)
            confirm("Tree info")
            main.menu(60, 2)  # Always Show Tree
            for _ in range(12):
                main.zoom(10)
                main.screenshot()
            main.export(folder / "deep.png")
            wait_for("the picture", (folder / "deep.png").exists)
            (folder / "deep.png").unlink()


def bad_fonts(folder):
    """Whatever the one font of the machine is, the tree is drawn."""
    def draw(font):
        (folder / "fonts/font.ttf").write_bytes(font)
        assert run(folder, "orvex-snapshot", "wide.nwk", "tree.png",
                   FONTCONFIG_FILE=str(folder / "fonts.conf")).returncode == 0
        return pixels(folder / "tree.png")

    (folder / "wide.nwk").write_text(TREE)
    (folder / "fonts").mkdir()
    (folder / "fonts.conf").write_text(
        f"<fontconfig><dir>{folder}/fonts</dir><cachedir>/proc/none</cachedir></fontconfig>")
    file = subprocess.run(["fc-match", "-f", "%{file}", "Arial"], check=True, text=True,
                          capture_output=True).stdout
    font = pathlib.Path(file).read_bytes()
    bare = draw(b"")
    assert bare != draw(font), "the labels"
    noise = random.Random(7)
    assert bare == draw(noise.randbytes(10_000))
    for size in (10, 1000, len(font) // 4, len(font) // 2, len(font) - 1000):
        draw(font[:size])
        draw(font[:size] + noise.randbytes(len(font) - size))


if __name__ == "__main__":
    os.environ["no_proxy"] = "*"
    with display():
        for scenario in (use, real_service, service_answers, homes, nothing_can_be_written,
                         garbage_in_settings, no_opengl, bad_service, snapshots, generated_trees,
                         wrong_arguments, ladders, bad_fonts):
            print(scenario.__name__, flush=True)
            with tempfile.TemporaryDirectory() as name:
                scenario(pathlib.Path(name))
