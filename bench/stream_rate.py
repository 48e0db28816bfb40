#!/usr/bin/env python3
"""Megabytes a second over TCP, end to end, up to the answer that follows the last byte:
with the poll at 10 ms and a buffer of 65,536 bytes, then with the default poll and buffer."""
import time

from console_bench import Bench, colour_lines, default_program, program_lines

FAST = "Serial polling interval = 10\nComms buffer size = 65536\n"


def cursor_updates(count):
    return [b"".join(b"\x1b[%d;%dH" % (row, 1 + (i + row) % 20) + b"y" * 70 + b"\x1b[K"
                     for row in range(1, 51)) for i in range(count)]


def rate(bench, lines, size):
    data = b"".join(lines)
    data *= size // len(data) + 1
    bench.sync()
    start = time.monotonic()
    bench.link.sendall(data)
    bench.sync(120)
    return len(data) / (time.monotonic() - start) / 1e6


with Bench(default_program(), FAST) as bench:
    for name, lines in (("lines", program_lines(1000)), ("colour", colour_lines(1000)),
                        ("cursor", cursor_updates(50))):
        print(f"end to end, fast poll, {name}: {rate(bench, lines, 12_000_000):.2f} MB/s")
with Bench(default_program()) as bench:
    print(f"end to end, default poll, lines: {1000 * rate(bench, program_lines(1000), 2_000_000):.0f} kB/s")
