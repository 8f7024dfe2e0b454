#!/usr/bin/env python3
"""Calls orvex-snapshot with good and bad input. Usage: snapshot.py ORVEX-SNAPSHOT"""

import pathlib
import subprocess
import sys
import tempfile


def run(program, folder, *arguments):
    result = subprocess.run([program, *arguments], cwd=folder, capture_output=True, text=True)
    return result.returncode, result.stderr


def draw(program, folder, image, *options):
    assert run(program, folder, "t.nwk", image, *options) == (0, ""), (image, options)
    return subprocess.run(["convert", folder / image, "-format", "%wx%h %#", "info:"], check=True,
                          capture_output=True, text=True).stdout.split()


def main(program, folder):
    leaves = ",".join(f"((a{i},b{i}),c{i})" for i in range(200))
    (folder / "t.nwk").write_text(f"({leaves});")
    (folder / "empty.nwk").write_text("")
    pictures = [draw(program, folder, "1.png"),
                draw(program, folder, "2.png", "--zoom", "4"),
                draw(program, folder, "3.bmp", "--zoom", "4", "--pan", "-0.3"),
                draw(program, folder, "4.tif", "--all")]
    assert {size for size, _ in pictures} == {"1000x600"}, pictures
    assert len({content for _, content in pictures}) == 4, "each option changes the picture"
    assert draw(program, folder, "5.png", "--size", "1500x1300")[0] == "1500x1300"

    before = sorted(folder.iterdir())
    for arguments in (["t.nwk"], ["t.nwk", "x.png", "y.png"], ["none.nwk", "x.png"],
                      ["empty.nwk", "x.png"], ["t.nwk", "x.xyz"], ["t.nwk", "no/x.png"],
                      ["t.nwk", "x.png", "--size", "0x5"], ["t.nwk", "x.png", "--size", "9x9999"],
                      ["t.nwk", "x.png", "--zoom", "nan"], ["t.nwk", "x.png", "--colour"]):
        code, errors = run(program, folder, *arguments)
        assert code == 1 and errors.count("\n") == 1, (arguments, code, errors)
    assert sorted(folder.iterdir()) == before, "bad input leaves no file"


if __name__ == "__main__":
    with tempfile.TemporaryDirectory() as name:
        main(pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(name))
