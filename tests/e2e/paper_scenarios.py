"""Scenarios of the documents that orvex-snapshot writes."""

import pathlib
import re
import resource
import subprocess
import xml.etree.ElementTree

from desktop import pixels
from programs import PROGRAMS, TREE, environment, run, scenario

ROOT = pathlib.Path(__file__).parents[2]
SVG = "{http://www.w3.org/2000/svg}"


def document(folder, tree, name, *options, note=""):
    """Written without a display."""
    written = run(folder, "orvex-snapshot", tree, name, *options, DISPLAY="", WAYLAND_DISPLAY="")
    assert written.returncode == 0 and re.fullmatch(note, written.stderr), written
    return folder / name


def texts_of_svg(file):
    return list(xml.etree.ElementTree.parse(file).iter(SVG + "text"))


def words_of_pdf(file):
    return subprocess.run(["pdftotext", file, "-"], check=True, text=True,
                          capture_output=True).stdout.split()


@scenario
def documents_of_a_view(folder):
    """They show what the pixels show: the same lines, and the same names."""
    for number, (tree, *options) in enumerate((
            ("great-cats", "--size", "600x540", "--all"), ("finches", "--zoom", "1"),
            ("random-3000", "--size", "900x500", "--zoom", "60", "--pan", "0.2", "--all"))):
        source = ROOT / f"examples/{tree}.nwk"
        pdf, svg, png = (f"{number}.{kind}" for kind in ("pdf", "svg", "png"))
        run(folder, "orvex-snapshot", source, png, *options).check_returncode()
        document(folder, source, pdf, *options, "--screen")
        labels = texts_of_svg(document(folder, source, svg, *options))
        subprocess.run(["pdftoppm", "-r", "72", "-singlefile", "-png", pdf, "drawn"], cwd=folder,
                       check=True)
        width, height, seen = pixels(folder / png)
        assert pixels(folder / "drawn.png")[:2] == (width, height)
        # A name that the edge cuts is not found.
        names = [label.text for label in labels if 12 < float(label.get("y")) < height - 12]
        found = words_of_pdf(folder / pdf)
        assert len(names) > 10 and [word for word in found if word in names] == names, found
        begin, end = width // 10 + 1, min(int(float(label.get("x"))) for label in labels) - 1
        drawn = pixels(folder / "drawn.png")[2]
        rows = [3 * width * y for y in range(height)]
        assert sum(max(seen[row + 3 * begin:row + 3 * end]) == 255 for row in rows) > 10
        for row in rows:  # 16 is a step of pdftoppm's shades
            for i in range(row + 3 * begin, row + 3 * end):
                assert abs(seen[i] - drawn[i]) <= 16, (tree, i % (3 * width) // 3, i // (3 * width))


@scenario
def whole_trees(folder):
    """Every leaf has its name, on one sheet, in a picture, or on pages."""
    source = ROOT / "examples/random-3000.nwk"
    names = re.findall("[A-Z][a-z_]+[0-9]+", source.read_text())
    svg = document(folder, source, "x.svg", "--whole")
    assert [label.text for label in texts_of_svg(svg)] == names
    long = document(folder, source, "x.pdf", "--whole", note="orvex-snapshot: the page is 24007 .+\n")
    assert b"/UserUnit 1.66" in long.read_bytes()
    assert len(names) == 3000 and words_of_pdf(long) == names
    pages = document(folder, source, "x.pdf", "--whole", "--pages", "A4", "--landscape")
    said = subprocess.run(["pdfinfo", pages], check=True, text=True, capture_output=True).stdout
    assert re.search("Pages: +47\n(.*\n)+Page size: +842 x 595 pts", said), said
    assert [word for word in words_of_pdf(pages) if word in names] == names
    for height, rows in (("5", 15005), ("1", 3001)):
        picture = document(folder, source, "x.png", "--whole", "--leaf-height", height, "--paper")
        assert pixels(picture)[1] == rows
    refused = run(folder, "orvex-snapshot", source, "y.png", "--whole", "--leaf-height", "11")
    assert refused.returncode == 1 and "32767 is the most" in refused.stderr, refused
    assert not (folder / "y.png").exists()


@scenario
def descriptions_of_documents(folder):
    """They tell where they come from, and what their font lacks."""
    (folder / "cats & <dogs>.nwk").write_text("(A\x01b,C d,\u732b);")
    note = "orvex-snapshot: the font .+ lacks characters of 2 names, first 'A\x01b': .+\n"
    pdf = document(folder, "cats & <dogs>.nwk", "x.PDF", "--size", "300x200", note=note)
    said = subprocess.run(["pdfinfo", "-meta", pdf], check=True, text=True,
                          capture_output=True).stdout
    assert "cats &amp; &lt;dogs>.nwk" in said.replace("&gt;", ">"), said
    said = subprocess.run(["pdfinfo", pdf], check=True, text=True, capture_output=True).stdout
    assert re.search("Title: +cats & <dogs>\n(.*\n)+Page size: +300 x 200 pts", said), said
    fonts = subprocess.run(["pdffonts", pdf], check=True, text=True, capture_output=True).stdout
    assert re.search(r"TrueType .* yes (yes|no) +yes", fonts), fonts  # embedded, with its letters
    svg = document(folder, "cats & <dogs>.nwk", "x.svg", note=note)
    assert [label.text for label in texts_of_svg(svg)] == ["A\ufffdb", "C d", "\u732b"]
    picture = xml.etree.ElementTree.parse(svg).getroot()
    assert picture.find(SVG + "title").text == "cats & <dogs>"
    assert "cats & <dogs>.nwk" in picture.find(SVG + "desc").text
    assert picture.find(SVG + "clipPath/" + SVG + "rect").get("width") == "100"


@scenario
def documents_that_fail(folder):
    """What can't be written is told in one line, and leaves what was there."""
    def limit():
        resource.setrlimit(resource.RLIMIT_FSIZE, (3000, 3000))  # as a full disk

    (folder / "full.pdf").symlink_to("/dev/full")
    (folder / "old.pdf").write_text("old")
    (folder / "t.nwk").write_text(TREE)
    before = sorted(folder.iterdir())
    for name, limits, reason in (("old.pdf", limit, "File too large"), ("x.svg", limit, "File too large"),
                                 ("no/x.pdf", None, "No such file or directory"),
                                 ("full.pdf", None, "No space left on device")):
        failed = subprocess.run([PROGRAMS / "orvex-snapshot", "t.nwk", name, "--all", "--size", "900x8000"],
                                cwd=folder, text=True, capture_output=True, env=environment(folder),
                                preexec_fn=limits, restore_signals=False)
        assert failed.returncode == 1 and failed.stderr == (
            f"orvex-snapshot: can't write '{name}': {reason}\n"), failed
    assert sorted(folder.iterdir()) == before and (folder / "old.pdf").read_text() == "old"
