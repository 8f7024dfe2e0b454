"""Scenarios of the programs beside the viewer."""

import contextlib
import gzip
import http.client
import lzma
import os
import pathlib
import random
import re
import signal
import socket
import subprocess
import time

from desktop import PATIENCE, display, pixels
from programs import LOG, NO_SAMPLES, PROGRAMS, TREE, environment, run, scenario, serving, viewer

ROOT = pathlib.Path(__file__).parents[2]


@scenario
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
            for host, status in (("LOCALHOST:%d", 200), ("[::1]:%d", 200), ("a.example:%d", 421),
                                 ("localhost:1%d", 421), ("localhost.a.example:%d", 421),
                                 ("127.0.0.1", 421), ("", 421)):
                name = host.replace("%d", str(port))
                assert asked("/trees", Host=name)[0] == status, name
            assert asked("/trees", "POST")[0] == 405
            assert asked("/trees/3", Range="bytes=0-,0-")[0] == 416
            (trees / "b.nwk").rename(folder / "away")
            assert asked("/trees/3")[0] == 500
            (folder / "away").rename(trees / "b.nwk")
        errors = server.stderr.read()
        assert "0.nwk is left out: it holds no tree" in errors
        assert "link.nwk is left out: it leads out of the folder" in errors
        assert re.findall("a request for the host (.*) is refused", errors) == [f'"a.example:{port}"']


@scenario
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
    examples = list(ROOT.glob("examples/*.nwk"))
    assert len(examples) > 3
    for example in examples:
        run(folder, "orvex-snapshot", example, "example.png").check_returncode()
    os.mkfifo(folder / "pipe.png")
    with subprocess.Popen(["cat", folder / "pipe.png"], stdout=subprocess.PIPE) as reader:
        run(folder, "orvex-snapshot", "t.nwk", "pipe.png").check_returncode()
        assert reader.stdout.read() == (folder / "1.png").read_bytes()


@scenario
def snapshots_anywhere(folder):
    """In any session the picture has the size that was asked for, and is what a window with samples
    shows after a turn of the wheel. That a window has none is told in the log."""
    for server in {}, {"GALLIUM_DRIVER": "softpipe"}:  # the second gives none, the first it may
        with display(**server):
            with viewer(folder) as main:
                whole = main.show()
                main.zoom(1)
                main.changed(whole)
                main.export(folder / f"window{len(server)}.png")
            window = pixels(folder / f"window{len(server)}.png")
            smooth = NO_SAMPLES not in (folder / LOG).read_text()
            assert not (server and smooth)
            for session in ({}, {"QT_SCALE_FACTOR": "2"}, {"QT_QPA_PLATFORM": "offscreen"}):
                run(folder, "orvex-snapshot", "wide.nwk", "here.png", "--zoom", "1.12", "--size",
                    "%dx%d" % window[:2], **session).check_returncode()
                here = pixels(folder / "here.png")
                assert here[:2] == window[:2] and (here == window) == smooth, session


@scenario
def help_texts(folder):
    """They need no display, and explain the options of the manual, with their defaults."""
    for program, *words in (("orvex-snapshot", "pixels", "1000x600"), ("orvex-generate", "polytomy"),
                            ("orvex-convert", "NEXUS"), ("orvex-tree-service", "14444")):
        manual = (ROOT / f"packaging/man/{program}.1.in").read_text().replace("\\-", "-")
        for option in ("-h", "--help"):
            asked = run(folder, program, option, DISPLAY="")
            assert (asked.returncode, asked.stderr) == (0, ""), asked
            assert set(re.findall(r"--?\b[a-z]+", asked.stdout)) >= set(
                re.findall(r"--[a-z]+", manual)) | {"-h"}, asked
            assert all(word in asked.stdout for word in words), asked


@scenario
def generated_trees(folder):
    """They are the same on every machine."""
    def made(*arguments):
        return run(folder, "orvex-generate", *arguments).stdout

    assert made("random", "4", "--lengths") == (
        "((Nordel_homus19:0.91268,Peru_zeni24:0.21477):0.89250,"
        "(Xaor_cifi01:0.04573,Zegal_bama78:0.18283):0.89516);\n")
    assert made("polytomy", "90") != made("polytomy", "90", "--seed", "7")
    assert re.fullmatch(r"(\(\w+,){999}\w+\){999};\n", made("ladder", "1000"))


@scenario
def progress_on_a_terminal(folder):
    """Long work shows how far it is and leaves an empty line; anywhere else it shows nothing."""
    def shown(*command, **options):
        reader, terminal = os.openpty()
        with subprocess.Popen([PROGRAMS / command[0], *command[1:]], stderr=terminal, cwd=folder,
                              env=environment(folder), **options) as process:
            os.close(terminal)
            for _ in range(10):  # the work is long, on a fast machine too
                process.send_signal(signal.SIGSTOP)
                time.sleep(0.1)
                process.send_signal(signal.SIGCONT)
                time.sleep(0.02)
            text = b""
            with contextlib.suppress(OSError), open(reader, "rb", buffering=0) as lines:
                while piece := lines.read(1000):  # at the end of a terminal there is an error
                    text += piece
        assert process.returncode == 0
        return text.decode()

    with open(folder / "large.nwk", "wb") as file:
        subprocess.run([PROGRAMS / "orvex-generate", "random", "500000"], check=True, stdout=file)
    texts = [shown("orvex-generate", "random", "3000000", stdout=subprocess.DEVNULL),
             shown("orvex-snapshot", "large.nwk", "large.png")]
    for text, word in zip(texts, ("Writing the tree", "Building the scene")):
        shares = [int(share) for share in re.findall("(\\d+) %", text)]
        assert word in text and shares == sorted(shares) and shares[-1] > 80, text
        assert text.endswith("\r\033[K"), text
    assert run(folder, "orvex-snapshot", "large.nwk", "large.png").stderr == ""


@scenario
def wrong_arguments(folder):
    """What can't be done is told in one line, and leaves all files as they were."""
    (folder / "t.nwk").write_text("(a,b);")
    (folder / "empty.nwk").write_text("")
    (folder / "old.ico").write_text("old")
    (folder / "cut.gz").write_bytes(gzip.compress(b"(a,b);" * 1000)[:20])

    def files():
        return {path: path.read_bytes() for path in folder.iterdir() if path.is_file()}

    before = files()
    with socket.create_server(("127.0.0.1", 0)) as taken:
        for program, *cases in (
                ("orvex-snapshot", "t.nwk", "t.nwk x.png y.png", "none.nwk x.png",
                 "empty.nwk x.png", "t.nwk x.xyz", "t.nwk old.ico", "t.nwk x.ico",
                 "t.nwk no/x.png", "t.nwk x.png --size 0x5",
                 "t.nwk x.png --size 9x9999", "t.nwk x.png --zoom nan", "t.nwk x.png --hue",
                 "t.nwk x.png --paper", "t.nwk x.png --line-width 2", "t.nwk x.pdf --line-width 0",
                 "t.nwk x.pdf --paper --screen",
                 "t.nwk x.pdf --width 90", "t.nwk x.pdf --whole --zoom 2",
                 "t.nwk x.pdf --whole --landscape", "t.nwk x.svg --whole --pages A4",
                 "t.nwk x.pdf --whole --pages A44", "t.nwk x.png --whole --width 32768",
                 "t.nwk x.png --whole --leaf-height 999 --width 9e4", "-t.nwk x.png"),
                ("orvex-generate", "", "star", "star 3 4", "star x", "star -3", "star 3x", "star 0",
                 "star 99999999999", "bush 3", "star 3 --seed", "star 3 --sow 4", "-xh"),
                ("orvex-convert", "", "t.nwk", "none.nwk -", ". x.nwk", "empty.nwk x.nwk",
                 "cut.gz x.nwk", "t.nwk no/x.nwk", "t.nwk x.nwk --tree 2", "--list t.nwk x.nwk",
                 "t.nwk x.nwk --all", "-t.nwk x.nwk"),
                ("orvex-tree-service", "", ". .", "--port", f"--port {taken.getsockname()[1]} .",
                 "--port 0 .", "--port 65536 .", "--port 80x .", "--verbose .", "none", "t.nwk")):
            for arguments in cases:
                refused = run(folder, program, *arguments.split())
                assert refused.returncode == 1 and re.fullmatch(
                    program + ": [^\n]+\n", refused.stderr), refused
                assert ("write './-t.nwk'. See" in refused.stderr) == ("-t.nwk" in arguments), refused
    for session in ({"DISPLAY": ""}, {"QT_QPA_PLATFORM": "minimal"}):
        refused = run(folder, "orvex-snapshot", "t.nwk", "x.png", **session)
        assert refused.returncode == 1 and refused.stderr.count("\n") == 1, refused
    assert files() == before


@scenario
def converted(folder):
    """NEXUS and full Newick, packed or from a pipe, become what the viewer reads."""
    tree = "(('Homo sapiens':1[&x],Pan:1):2,\"Gorilla \" : 3);\n"
    nexus = f"#NEXUS\nbegin trees;\ntree other=(a,b);\ntree * best = [&R] {tree}end;\n"
    narrow = "((Homo sapiens:1,Pan:1):2,Gorilla:3);\n"
    (folder / "t.nex.gz").write_bytes(gzip.compress(nexus.encode()))
    (folder / "t.nwk.xz").write_bytes(lzma.compress(tree.encode()))
    told = run(folder, "orvex-convert", "t.nex.gz", "nexus.nwk").stderr
    assert told == "orvex-convert: left out 2 comments and 1 of 2 trees\n", told
    assert run(folder, "orvex-convert", "--quiet", "t.nwk.xz", "newick.nwk").stderr == ""
    assert (folder / "nexus.nwk").read_text() == (folder / "newick.nwk").read_text() == narrow
    piped = subprocess.run([PROGRAMS / "orvex-convert", "--quiet", "-", "-"], input=nexus, text=True,
                           capture_output=True)
    assert (piped.stdout, piped.stderr) == (narrow, ""), piped
    assert run(folder, "orvex-convert", "--list", "t.nex.gz").stdout == "1\t2\tother\n2\t3\t*best\n"
    run(folder, "orvex-snapshot", "nexus.nwk", "tree.png").check_returncode()


@scenario
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
