#!/usr/bin/env python3
"""Drives the real programs from outside, as a user does.

usage: run.py FOLDER-OF-PROGRAMS SCENARIO   runs a scenario on a display of its own
       run.py --list                        names the scenarios"""

import os
import pathlib
import sys
import tempfile

sys.dont_write_bytecode = True

import opening_scenarios  # noqa: F401
import paper_scenarios  # noqa: F401
import tool_scenarios  # noqa: F401
import viewer_scenarios  # noqa: F401
from desktop import display
from programs import SCENARIOS

# Of the session that the tests run in nothing else reaches the programs: no theme, no language,
# no desktop's settings.
KEPT = {"PATH", "TMPDIR", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"}


def run(scenario):
    for name in set(os.environ) - KEPT:
        del os.environ[name]
    os.environ.update(LC_ALL="C.UTF-8", LIBGL_ALWAYS_SOFTWARE="1", no_proxy="*")
    with tempfile.TemporaryDirectory() as name:
        os.environ["HOME"] = name
        user = pathlib.Path(name, "user")
        user.mkdir()
        with display():
            scenario(user)


if __name__ == "__main__":
    if sys.argv[1:] == ["--list"]:
        print(*SCENARIOS, sep=";", end="")
    elif len(sys.argv) == 3 and sys.argv[2] in SCENARIOS:
        run(SCENARIOS[sys.argv[2]])
    else:
        sys.exit(__doc__)
