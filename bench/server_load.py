#!/usr/bin/env python3
"""The local servers under load, at the real window and a TCP board that this process plays.
Whatever is not as it must be ends the run with an error; the rest is figures.
usage: server_load.py [KWCC] [quick]"""
import collections
import os
import random
import select
import socket
import sys
import threading
import time

from console_bench import Bench, default_program, free_port
from desktop import wait_for

QUICK = sys.argv[2:] == ["quick"]
CLIENTS = 200
STREAM = 1_000_000 if QUICK else 100_000_000
FLOOD = 4_000_000 if QUICK else 40_000_000
LONG_LINE = 1_000_000
LONGEST_CHUNK = 5000
LEAST_RATE = 400_000     # bytes a second over the bridge; not asked of a sanitized build
MOST_GROWTH = 30         # MB of resident memory; the same
LONGEST_EXIT = 10        # seconds: 3 for each server's worker, and the rest of the shutdown
NOISE = random.Random(7).randbytes(1 << 20)  # no UTF-8, and every byte


class Board(threading.Thread):
    """The device's end of the link: keeps what arrives."""

    def __init__(self, link):
        super().__init__(daemon=True)
        self.link, self.arrived, self.reads = link, bytearray(), threading.Event()
        self.reads.set()
        self.start()

    def run(self):
        while block := self.link.recv(65536):
            self.arrived += block
            self.reads.wait()

    def take(self, count):
        wait_for(f"{count} bytes at the board", lambda: len(self.arrived) >= count, 20, 0.001)
        taken = bytes(self.arrived[:count])
        del self.arrived[:count]
        return taken


class Load:
    """A session in one terminal mode."""

    def __init__(self, mode):
        self.data, self.control = free_port(), free_port()
        self.bench = Bench(default_program(), "Serial polling interval = 10\n"
                           f"[Network]\nIP data port = {self.data}\nIP control port = {self.control}\n"
                           f"[VTterminal]\nVT Mode = {mode}\n")

    def __enter__(self):
        self.bench.__enter__()
        self.board = Board(self.bench.link)
        self.start_rss = self.most_rss = self.bench.rss_mb()
        return self

    def __exit__(self, *what):
        self.bench.__exit__(*what)

    def connect(self, port):
        return socket.create_connection(("127.0.0.1", port), 20)

    def check_rss(self, what):
        self.most_rss = max(self.most_rss, self.bench.rss_mb())
        growth = self.most_rss - self.start_rss
        print(f"{what}: resident memory grew by {growth:.1f} MB at the most, from {self.start_rss:.0f}")
        assert QUICK or growth < MOST_GROWTH, growth

    def check_alive(self):
        """The bridge works both ways for a client that comes now."""
        with self.connect(self.data) as client:
            time.sleep(0.2)  # whoever left before is forgotten by then
            start = time.monotonic()
            client.sendall(b"?")
            assert self.board.take(1) == b"?"
            self.board.link.sendall(b"!")
            assert client.recv(16) == b"!"
            print(f"there and back by a new client: {1000 * (time.monotonic() - start):.0f} ms")

    def crowd(self):
        """Clients that come, send a number of their own byte and leave, in any order."""
        chance = random.Random(3)
        sizes = [chance.randint(1, LONGEST_CHUNK) if i % 5 else 0 for i in range(CLIENTS)]
        clients, most = {}, 0
        steps = [i for i in range(CLIENTS) for _ in range(3)]
        chance.shuffle(steps)
        start = time.monotonic()
        for i in steps:
            if i not in clients:
                clients[i] = [self.connect(self.data), sizes[i]]
            elif clients[i][1]:
                clients[i][0].sendall(bytes([i]) * clients[i][1])
                clients[i][1] = 0
            elif clients[i][0]:
                if not sizes[i]:  # one that goes without a farewell
                    clients[i][0].setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, b"\1\0\0\0\0\0\0\0")
                clients[i][0].close()
                clients[i][0] = None
            most = max(most, sum(1 for client, _ in clients.values() if client))
        came = collections.Counter(self.board.take(sum(sizes)))
        assert came == {i: size for i, size in enumerate(sizes) if size}
        print(f"{CLIENTS} clients, {most} of them at once: {time.monotonic() - start:.1f} s, "
              "each one's bytes whole")
        self.check_rss("crowd")

    def stream(self, size, least, meanwhile=None):
        """One client with chunks of 1 to 5000 bytes, byte for byte."""
        client = self.connect(self.data)
        stop = threading.Event()
        sent = 0

        def send():
            nonlocal sent
            chance = random.Random(5)
            while sent < size and not stop.is_set():
                at = sent % (len(NOISE) - LONGEST_CHUNK)
                piece = NOISE[at:at + min(chance.randint(1, LONGEST_CHUNK), size - sent)]
                piece = piece[:len(NOISE) - LONGEST_CHUNK - at]
                client.sendall(piece)
                sent += len(piece)

        sender = threading.Thread(target=send, daemon=True)
        start, taken = time.monotonic(), 0
        cpu = self.bench.cpu_seconds()
        sender.start()
        try:
            if meanwhile:
                meanwhile(lambda: sent)
            while taken < size:
                at = taken % (len(NOISE) - LONGEST_CHUNK)
                piece = min(size - taken, 100_000, len(NOISE) - LONGEST_CHUNK - at)
                assert self.board.take(piece) == NOISE[at:at + piece], f"in front of byte {taken + piece}"
                taken += piece
                self.most_rss = max(self.most_rss, self.bench.rss_mb())
        finally:
            stop.set()
            seconds = time.monotonic() - start
            client.close()
        cpu = self.bench.cpu_seconds() - cpu
        print(f"{size / 1e6:.1f} MB over the bridge: {size / seconds / 1000:.0f} kB/s, "
              f"{size / max(cpu, 0.01) / 1000:.0f} kB per CPU second of the console")
        assert QUICK or size / seconds >= least, size / seconds
        self.check_rss("stream")

    def busy_board(self, sent):
        """The board stops reading until the client is held up. The console answers all the same."""
        self.board.reads.clear()
        last = [-1, 0.0]

        def held():
            if sent() != last[0]:
                last[:] = sent(), time.monotonic()
            return time.monotonic() - last[1] > 2
        wait_for("a client that is held up", held, 60)
        start = time.monotonic()
        with self.connect(self.control) as client:
            client.sendall(b"/load /is/it/there.bas\r")
            self.bench.console.wait_text("/is/it/there.bas", 10)
        print(f"board not reading, client held up after {sent() / 1e6:.1f} MB: "
              f"an answer after {time.monotonic() - start:.1f} s")
        self.board.reads.set()

    def deaf(self):
        """A client that never reads what the board sends it."""
        with self.connect(self.data) as client:
            client.sendall(b"d")
            assert self.board.take(1) == b"d"
            block = NOISE[:FLOOD // 40]
            for _ in range(40):
                self.board.link.sendall(block)
            print(f"{FLOOD / 1e6:.0f} MB to a client that never reads")
            self.check_rss("deaf client")
        self.settle()
        self.check_alive()

    def settle(self):
        """Waits until the console has read all that the board sent. A client that goes takes the
        board's bytes from everybody until the next one speaks, so this one speaks again."""
        mark, seen = b"the end of the flood", b""
        with self.connect(self.data) as probe:
            def marked():
                nonlocal seen
                probe.sendall(b"s")
                assert self.board.take(1) == b"s"
                self.board.link.sendall(mark)
                while select.select([probe], [], [], 0.3)[0]:
                    seen = seen[-64:] + probe.recv(65536)
                return mark in seen
            wait_for("end of the flood", marked, 60)

    def commands(self):
        """A line of a megabyte, and paths that are no program."""
        folder = self.bench.folder
        fifo, missing = os.path.join(folder, "fifo"), os.path.join(folder, "none", "x.bas")
        os.mkfifo(fifo)
        start = time.monotonic()
        with self.connect(self.control) as client:
            client.sendall(b"/load " + b"m" * LONG_LINE + b"\r\n")
            for path in (missing, folder, fifo):
                with self.connect(self.control) as another:  # its chunks are its own
                    another.sendall(f"/load {path}\r".encode())
                    text = self.bench.console.wait_text(path, 60)
                said = [line.strip() for line in text[text.rindex(path):].split("\n")]
                assert said[1:3] == ["File read failed!!", "Nothing to load."], said
        print(f"hostile /load lines: {time.monotonic() - start:.1f} s")
        self.check_alive()

    def leave(self):
        """Closed with clients connected and chunks on their way."""
        idle = [self.connect(port) for port in (self.data, self.control) for _ in range(20)]
        busy = [self.connect(port) for port in (self.data, self.control)]
        over = threading.Event()

        def pour(client):
            try:
                while not over.is_set():
                    client.sendall(NOISE)
            except OSError:
                pass

        for client in busy:
            threading.Thread(target=pour, args=[client], daemon=True).start()
        self.board.take(LONGEST_CHUNK)
        start = time.monotonic()
        status = self.bench.console.close(LONGEST_EXIT + 20)
        took = time.monotonic() - start
        over.set()
        self.bench.console = None
        for client in idle + busy:
            client.close()
        print(f"closed with clients and chunks: status {status} after {took:.1f} s")
        assert status == 0 and took < LONGEST_EXIT, (status, took)


with Load(mode=1) as load:
    load.crowd()
    load.stream(STREAM, LEAST_RATE)
    if not QUICK:
        load.stream(20_000_000, 0, load.busy_board)
    load.deaf()
    load.commands()
    load.leave()
with Load(mode=3) as load:
    load.stream(STREAM // 10, 0)
    load.leave()
