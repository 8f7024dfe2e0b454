#!/usr/bin/env python3
"""Sends wrong requests of many kinds to the tree service for SECONDS, from several clients at a time.
Afterwards the service must answer a correct request, use little memory and end without an error.
Usage: attack.py ORVEX-TREE-SERVICE SECONDS"""

import contextlib
import pathlib
import random
import re
import socket
import subprocess
import sys
import tempfile
import threading
import time
import urllib.request

GOOD = b"GET /trees HTTP/1.1\r\nHost: HOST\r\n\r\n"
# "HOST" becomes the host and port of the service, which answers no other.
ATTACKS = [b"GET /" + b"a" * 1_000_000 + b" HTTP/1.1\r\n\r\n",
           b"GET /trees HTTP/1.1\r\n" + b"X: y\r\n" * 100_000 + b"\r\n",
           b"GET /trees/1 HTTP/1.1\r\nHost: HOST\r\nRange: bytes=" + b"0-," * 2000 + b"0-\r\n\r\n",
           b"POST /trees HTTP/1.1\r\nHost: HOST\r\nContent-Length: 99999999999999999999\r\n\r\n"
           + b"z" * 100_000,
           b"POST /trees HTTP/1.1\r\nHost: HOST\r\nTransfer-Encoding: chunked\r\n\r\n"
           b"FFFFFFFFFFFFFFFF\r\n",
           b"GET /trees/%00%2e%2e/\xff HTTP/9.9\r\nHost: HOST\r\n\r\n", b"\r\n" * 1000, GOOD[:20],
           GOOD * 1000, GOOD.replace(b"HOST", b"a.example"), GOOD.replace(b"\r", b"\0"),
           random.Random(1).randbytes(100_000)]


def attack(port, end, chance):
    """One client: sends a request byte by byte or at once, and reads the answer or does not."""
    host = b"localhost:%d" % port
    while time.monotonic() < end:
        with contextlib.suppress(OSError), \
                socket.create_connection(("127.0.0.1", port), 5) as connection:
            if chance.random() < 0.1:
                for byte in (GOOD * 1000).replace(b"HOST", host):
                    connection.sendall(bytes([byte]))
                    time.sleep(0.5)
            connection.sendall(chance.choice(ATTACKS).replace(b"HOST", host))
            if chance.random() < 0.5:
                connection.recv(10_000)
        time.sleep(0.01)


def main(program, seconds, folder):
    (folder / "a.nwk").write_text("(a,b);")
    with socket.socket() as free:
        free.bind(("127.0.0.1", 0))
        port = free.getsockname()[1]
    service = subprocess.Popen([program, "--port", str(port), folder], stdout=subprocess.PIPE,
                               stderr=subprocess.DEVNULL)
    try:
        service.stdout.readline()
        end = time.monotonic() + seconds
        for seed in range(50):
            threading.Thread(target=attack, args=(port, end, random.Random(seed)),
                             daemon=True).start()
        time.sleep(seconds)
        answer = urllib.request.urlopen(f"http://127.0.0.1:{port}/trees/1", timeout=30).read()
        assert b'"children"' in answer, answer
        status = pathlib.Path(f"/proc/{service.pid}/status").read_text()
        memory = int(re.search("VmHWM:\\s*([0-9]+)", status)[1])
        print("memory at most", memory, "KiB")
        assert memory < 1_000_000
        service.terminate()
        assert service.wait(timeout=60) == 0
    finally:
        service.kill()


if __name__ == "__main__":
    with tempfile.TemporaryDirectory() as name:
        main(pathlib.Path(sys.argv[1]).resolve(), float(sys.argv[2]), pathlib.Path(name))
