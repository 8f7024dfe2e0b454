"""Scenarios of the viewer: what a user does, also where the machine or the tree service fails."""

import random
import re
import resource
import signal
import subprocess

from desktop import confirm, lit, pixels, screen, wait_for, weston, window, xdotool
from programs import (FAILED, LIST, LOG, NO_SAMPLES, SETTINGS, TREE, VIEWER, environment, good, run,
                      scenario, service, serving, viewer)


@scenario
def use(folder):
    (folder / "bad.nwk").write_text("a,b);")
    with viewer(folder, leave=lambda main: main.menu("Quit")) as main:
        whole = main.show()
        main.zoom(8)
        zoomed = main.changed(whole)
        xdotool("mousemove", "--window", main.window, 400, 300, "mousedown", 1,
                "mousemove_relative", "--", 0, -80, "mousemove_relative", 0, 10, "mouseup", 1)
        width, height, shown = main.changed(zoomed)
        main.export(folder / "picture.tif")
        main.open("bad.nwk")
        confirm(f"Error Loading File {folder}/bad.nwk")
        w, h, exported = pixels(folder / "picture.tif")
        assert w == width and 0 < height - h < h
        below = shown[-len(exported):]  # the menu bar
        assert sum(abs(a - b) < 8 for a, b in zip(below, exported)) > 0.999 * len(exported)
    assert (folder / "exception.txt").read_text() == ""
    log = (folder / LOG).read_text()
    assert all(line.startswith("Qt ") or NO_SAMPLES in line for line in log.splitlines()), log
    settings = (folder / SETTINGS).read_text()
    for key in ("main_window_geometry=", f"file_dialog.last_directory.Open={folder}",
                "file_dialog.last_filter.Export_Image="):
        assert key in settings, settings


@scenario
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
        main.menu("Open from tesmar")
        confirm(FAILED)
        main.stays(direct)
    assert "Error 8033290760: Error 3886626924: " in (folder / LOG).read_text()


@scenario
def homes(folder):
    with viewer(folder, HOME=str(folder / "not/there")) as main:
        main.show()
    assert (folder / "not/there" / LOG).exists()


@scenario
def no_start(folder):
    """Why there is none stands in a line on the terminal and in one of "exception.txt"."""
    for changes, reason in (({"HOME": None}, "Error 3888703160: "), ({"HOME": ""}, "Error 3888703160: "),
                            ({"HOME": "/proc/none"}, "boost::filesystem::"),
                            ({"DISPLAY": None}, "no display can be reached"),
                            ({"QT_QPA_PLATFORM": "none"}, f"Qt can load .*; see {folder}/.*stdout")):
        variables = {k: v for k, v in environment(folder, **changes).items() if v is not None}
        ended = subprocess.run([VIEWER], cwd=folder, env=variables, text=True, capture_output=True)
        assert ended.returncode == 1, ended
        home = " \\(HOME is not set\\)" if "Error" in reason else ""
        line = re.fullmatch(f"orvex-tree-viewer: ({reason}.*){home}\n", ended.stderr)
        assert line, ended
        assert (folder / "exception.txt").read_text() == f"Error 1630567380: {line[1]}\n"
    assert "Qt Fatal Message: " in (folder / LOG).read_text()


@scenario
def signals(folder):
    """They close what is open, so that the next window has the size of the last one. What the start
    lets the program ignore stays ignored."""
    before = (800, 600)
    for number, size in ((signal.SIGTERM, (640, 500)), (signal.SIGINT, (660, 520)),
                         (signal.SIGHUP, (680, 540)), (signal.SIGTERM, (700, 560))):
        def ignore_others():
            for other in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
                signal.signal(other, signal.SIG_DFL if other == number else signal.SIG_IGN)

        with viewer(folder, before=ignore_others,
                    leave=lambda main: main.process.send_signal(number)) as main:
            for other in {signal.SIGTERM, signal.SIGINT, signal.SIGHUP} - {number}:
                main.process.send_signal(other)
            wait_for(f"the size {before}", lambda: main.size() == before)
            xdotool("windowsize", main.window, *size)
            wait_for(f"the size {size}", lambda: main.size() == size)
            xdotool("key", "ctrl+o")
            window("Open")
        before = size


def fill_disk():
    """Lets the process that is about to start write no byte to a file."""
    signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
    resource.setrlimit(resource.RLIMIT_FSIZE, (0, 0))


@scenario
def nothing_can_be_written(folder):
    with viewer(folder, before=fill_disk) as main:
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


@scenario
def second_start(folder):
    """Nothing stays of the files of the first one, and a file name given to it opens nothing."""
    (folder / LOG).parent.mkdir(parents=True)
    for name in (LOG, "exception.txt"):
        (folder / name).write_text("before\n")
    hint = "no file is opened at start; use File > Open\n"
    for arguments, line in ((["-style", "fusion"], ""),
                            (["wide.nwk"], f"orvex-tree-viewer: {hint}"),
                            (["-x", "--version"], f"orvex-tree-viewer: version 0.2; {hint}")):
        with open(folder / "errors", "w+") as errors:
            with viewer(folder, *arguments, errors=errors) as main:
                xdotool("key", "ctrl+o")
                confirm("Open", keys=["Escape"])  # all that came before is done
                assert lit(main.screenshot()) == 0
            assert (folder / "errors").read_text() == line
    assert (folder / "exception.txt").read_text() == ""
    assert "before" not in (folder / LOG).read_text()


@scenario
def wayland(folder):
    """A tree is shown once it is opened, without any other event, and a snapshot is the one of X11."""
    (folder / "large.nwk").write_text(run(folder, "orvex-generate", "random", "200000").stdout)
    grey, green = b"\xef\xef\xef\xff", b"\0\xff\0\xff"  # as the compositor writes them
    with weston(folder) as variables, open(folder / "requests", "w+") as requests:
        with viewer(folder, title="weston", leave=lambda main: main.process.terminate(),
                    errors=requests, WAYLAND_DEBUG="client", **variables) as main:
            main.screenshot = screen
            empty = main.settled("the window", lambda now: now.count(grey) > 400_000)
            xdotool("key", "ctrl+o")
            main.settled("the dialog", lambda now: now.count(grey) < empty.count(grey) - 50_000)
            xdotool("type", folder / "large.nwk")
            xdotool("key", "Return")
            main.settled("the tree", lambda now: now.count(2 * green) > 100)
        for image, changes in ("x11.png", {}), ("wayland.png", variables):
            run(folder, "orvex-snapshot", "large.nwk", image, **changes).check_returncode()
        assert pixels(folder / "x11.png") == pixels(folder / "wayland.png")
        requests.seek(0)
        assert 'set_app_id("orvex-tree-viewer")' in requests.read(), "the desktop file's name"


@scenario
def fractional_scale(folder):
    """The view reaches up to its topmost row, whose left end is that of the thumbnail's rectangle, and
    a picture of it has each of its pixels."""
    def exported_as_shown(main, scale, width, height):
        def reaches_up():
            w, h, data = main.screenshot()
            rows = (data[i:i + 3 * w] for i in range(0, len(data), 3 * w))
            top = next((row for row in rows if row.endswith(b"\0\0\0")), bytes(3))
            return (w, h) == (width, height) and top[2] > 100

        xdotool("windowsize", main.window, width, height)
        wait_for(f"a view of the whole height at {height}", reaches_up)
        _, _, shown = main.settled()
        picture = folder / f"{scale}-{width}-{height}.png"
        main.export(picture)
        wait_for("the picture", picture.exists)
        w, h, exported = pixels(picture)
        # The menu bar is above. Its height is rounded as well, so that the view's last row may lie
        # below the window.
        tops = [3 * w * row for row in (height - h, height - h + 1)]
        return w == width and 0 < height - h < h and any(
            shown[top:] == exported[:len(shown) - top] for top in tops)

    for scale in ("1", "1.25"):
        home = folder / f"home-{scale}"
        home.mkdir()
        with viewer(home, QT_SCALE_FACTOR=scale) as main:
            main.show()
            wrong = [size for size in ((900, 700), (903, 701), (905, 702), (910, 703))
                     if not exported_as_shown(main, scale, *size)]
            assert not wrong, (scale, wrong)


@scenario
def garbage_in_settings(folder):
    (folder / SETTINGS).parent.mkdir(parents=True)
    for garbage in (random.Random(5).randbytes(100_000),
                    b"[General]\nmain_window_geometry=@ByteArray(\\x1\\xd9\\xd0\\xcb\\0\\x3)\n"
                    b"file_dialog.last_directory.Open=@Invalid()\n"):
        (folder / SETTINGS).write_bytes(garbage)
        with viewer(folder) as main:
            main.show()


@scenario
def no_opengl(folder):
    """None at all, or one that takes all calls and does nothing."""
    for variables in {"QT_XCB_GL_INTEGRATION": "none"}, {"LIBGL_ALWAYS_INDIRECT": "1"}:
        with viewer(folder, **variables) as main:
            main.open("wide.nwk")
            confirm("Error Loading File .*")


@scenario
def bad_service(folder):
    noise = random.Random(6).randbytes(9000)
    with service() as (server, proxy), viewer(folder, **proxy) as main:
        shown = main.show()
        to_file = b"HTTP/1.0 302 Found\r\nLocation: file:///etc/passwd\r\n\r\n"
        moved = b"HTTP/1.0 302 Found\r\nLocation: /moved\r\nContent-Length: 2\r\n\r\n[]"
        whatever_status = good(LIST).replace(b"200 OK", b"404 Not Found")
        for pieces, title in (([], FAILED), ([good(LIST)[:-9]], FAILED), ([noise], FAILED),
                              ([to_file], FAILED), ([whatever_status], "Dialog"),
                              ([good(LIST)[:60], b"", good(LIST)[60:]], "Dialog")):
            server.pieces = lambda _: pieces
            main.menu("Open from tesmar")
            confirm(title, keys=["Down", "Down", "Escape"])
            main.stays(shown)
        server.pieces = lambda request: [good(LIST) if b"/moved " in request else moved]
        main.menu("Open from tesmar")
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


@scenario
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
            main.menu("Info")
            confirm("Tree info")
            main.menu("Always Show Tree")
            for _ in range(12):
                main.zoom(10)
                main.screenshot()
            main.export(folder / "deep.png")
            wait_for("the picture", (folder / "deep.png").exists)
            (folder / "deep.png").unlink()
