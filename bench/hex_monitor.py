#!/usr/bin/env python3
"""The HEX monitor in the real window: bytes shown for each CPU second of the console, as a
device sends them at the speeds of lines, and as fast as the poll takes them. A client of the
data port reads all of it, which tells when it has been shown."""
import random
import socket
import threading
import time

from console_bench import Bench, default_program, free_port
from desktop import wait_for

SECONDS = 8
STEPS = 100  # sends a second
PORT = free_port()
SETTINGS = f"[Network]\nIP data port = {PORT}\n[VTterminal]\nVT Mode = 3\n"


class Reader(threading.Thread):
    """Counts what the data port's client gets."""

    def __init__(self, client):
        super().__init__(daemon=True)
        self.client, self.count = client, 0
        self.start()

    def run(self):
        while block := self.client.recv(65536):
            self.count += len(block)


def show(bench, reader, rate):
    piece = random.Random(rate).randbytes(rate // STEPS)
    size, first = len(piece) * STEPS * SECONDS, reader.count
    cpu, start = bench.cpu_seconds(), time.monotonic()
    for i in range(SECONDS * STEPS):
        bench.link.sendall(piece)
        time.sleep(max(0.0, start + (i + 1) / STEPS - time.monotonic()))
    wait_for("all shown", lambda: reader.count - first >= size, 60)
    seconds, cpu = time.monotonic() - start, bench.cpu_seconds() - cpu
    print(f"HEX monitor: {size / seconds / 1000:.0f} kB/s, {100 * cpu / seconds:.1f} % of a core, "
          f"{size / cpu / 1000:.0f} kB per CPU second")


with Bench(default_program(), SETTINGS) as console:
    tool = socket.create_connection(("127.0.0.1", PORT))
    tool.sendall(b"x")
    console.link.recv(1)
    reader = Reader(tool)
    for speed in (3840, 11520, 92160, 400_000):
        show(console, reader, speed)
