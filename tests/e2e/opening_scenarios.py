"""Scenarios of opening a tree that takes long."""

import itertools
import signal
import subprocess
import threading
import time

from desktop import PATIENCE, confirm, lit, wait_for, windows, xdotool
from programs import FAILED, LIST, PROGRAMS, SETTINGS, good, scenario, service, viewer


def filled(picture):
    """How far the bar is filled that shows how far an opening is, in pixels; 0 while a tree or a
    dialog stands there."""
    width, _, data = picture
    rows = [data[i:i + 3 * width] for i in range(0, len(data), 3 * width)]
    blue = [sum(b > 150 and r < 80 for r, b in zip(row[::3], row[2::3])) for row in rows]
    if data[-1] < 200 or not 0 < max(blue) <= 400:  # so wide is the bar; a dialog's rows are wider
        return 0
    places = [i for i, count in enumerate(blue) if count]
    for words in rows[places[0] - 25:places[0] - 4], rows[places[-1] + 5:places[-1] + 25]:
        assert min(b"".join(words)) < 100, "the file's name above the bar, the step below it"
    return max(blue)


def open_dialog_comes():
    """Waits until keys are no longer dropped, and closes it."""
    def asked():
        xdotool("key", "ctrl+o")
        time.sleep(0.3)
        return windows("Open")
    wait_for("the dialog", asked)
    confirm("Open", keys=["Escape"])


@scenario
def slow_open(folder):
    """A bar shows how far it is; what the user does meanwhile has no effect, but Escape ends it."""
    with open(folder / "large.nwk", "w") as file:
        subprocess.run([PROGRAMS / "orvex-generate", "random", "1000000"], check=True, stdout=file)
    with viewer(folder) as main:
        undisturbed = main.show("large.nwk")

        def bar():
            """The program goes on for a moment, then stands still."""
            main.process.send_signal(signal.SIGCONT)
            time.sleep(0.03)
            main.process.send_signal(signal.SIGSTOP)
            return filled(main.screenshot())

        main.open("large.nwk")
        main.process.send_signal(signal.SIGSTOP)
        time.sleep(0.6)  # so that the bar comes while the file is read
        shares = [wait_for("the bar", bar)]
        main.zoom(5)
        xdotool("click", 1, "mousemove", 1, 1, "key", "ctrl+o")
        while share := bar():
            shares.append(share)
        main.process.send_signal(signal.SIGCONT)
        assert shares == sorted(shares) and len(set(shares)) > 3, shares
        assert main.settled() == undisturbed
        assert not windows("Open")
        main.open("large.nwk")
        main.process.send_signal(signal.SIGSTOP)
        time.sleep(0.6)
        xdotool("key", "Escape")
        main.process.send_signal(signal.SIGCONT)
        open_dialog_comes()
        assert lit(main.screenshot()) == 0


@scenario
def slow_service(folder):
    """Meanwhile nothing of the menu and the dialog stays on the window."""
    asked, answered = threading.Semaphore(0), threading.Semaphore(0)

    def answer(request):
        asked.release()
        answered.acquire(timeout=PATIENCE)
        return [good(LIST if b"/trees " in request else b"{}")]

    with service() as (server, proxy), viewer(folder, **proxy) as main:
        server.pieces = answer
        shown = main.show()
        main.menu("Open from tesmar")
        for title in "Dialog", FAILED:
            assert asked.acquire(timeout=PATIENCE)
            main.stays(shown)
            answered.release()
            confirm(title, keys=["Down", "Down", "Return"])


@scenario
def endless_open(folder):
    """Escape ends it without a box, and the shown tree stays. A signal and the close button end the
    program, as they do at any other time."""
    def pieces(request):
        if b"/trees/" not in request:
            return [good(LIST)]
        return itertools.chain([b"HTTP/1.0 200 OK\r\n\r\n"], itertools.repeat(b" "))

    for end in lambda main: main.process.terminate(), lambda _: xdotool("key", "alt+F4"):
        with service() as (server, proxy), viewer(folder, leave=end, **proxy) as main:
            server.pieces = pieces
            shown = main.show()
            main.open_second_of_service()
            xdotool("key", "Escape")
            open_dialog_comes()
            main.stays(shown)
            main.open_second_of_service()
        assert "main_window_geometry=" in (folder / SETTINGS).read_text()
        (folder / SETTINGS).unlink()


@scenario
def stalled_open(folder):
    """A second signal ends the program where the first one finds nobody to hear it."""
    asked, end = threading.Semaphore(0), threading.Event()
    with service() as (server, proxy):
        server.pieces = lambda _: asked.release() or end.wait(PATIENCE) and []
        with viewer(folder, leave=lambda main: main.process.terminate(), code=-signal.SIGTERM,
                    **proxy) as main:
            main.menu("Open from tesmar")
            assert asked.acquire(timeout=PATIENCE)
            main.process.terminate()
            time.sleep(1)
        end.set()
