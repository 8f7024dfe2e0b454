"""Checks that the programs are built with the hardening flags that Debian uses for its own.
Usage: hardening.py COMPILE_COMMANDS PROGRAM ..."""

import json
import subprocess
import sys


def readelf(*arguments):
    return subprocess.run(["readelf", "-W", *arguments], check=True, capture_output=True, text=True).stdout


def faults(program):
    dynamic = readelf("-d", program)
    checks = {
        "is no position independent executable": "PIE" in dynamic,
        "has no read-only relocations": "GNU_RELRO" in readelf("-l", program),
        "binds its symbols lazily": "BIND_NOW" in dynamic or "NOW" in dynamic,
        "has no stack protector": "__stack_chk_fail" in readelf("--dyn-syms", program),
    }
    return [f"{program} {fault}" for fault, good in checks.items() if not good]


def unfortified(commands):
    with open(commands, encoding="utf-8") as file:
        ours = [entry for entry in json.load(file) if "/src/" in entry["file"]]
    assert ours, "no sources in " + commands
    return [entry["file"] + " lacks _FORTIFY_SOURCE" for entry in ours
            if entry["file"].endswith(".cpp") and "/build/" not in entry["file"]
            and "-D_FORTIFY_SOURCE=2" not in entry["command"]]


found = unfortified(sys.argv[1]) + [fault for program in sys.argv[2:] for fault in faults(program)]
print("\n".join(found))
sys.exit(bool(found))
