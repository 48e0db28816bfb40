#!/usr/bin/env python3
"""Megabytes a second over TCP, end to end, up to the answer that follows the last byte:
with the poll at 10 ms and a buffer of 65,536 bytes, with the default poll and buffer and the
choice to read as it comes, and with the default poll and buffer alone."""
import time

from console_bench import AS_IT_COMES, Bench, colour_lines, default_program, program_lines

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


CORPORA = (("lines", program_lines(1000)), ("colour", colour_lines(1000)),
           ("cursor", cursor_updates(50)))

for way, settings in (("fast poll", FAST), ("as it comes", AS_IT_COMES)):
    with Bench(default_program(), settings) as bench:
        for name, lines in CORPORA:
            print(f"end to end, {way}, {name}: {rate(bench, lines, 12_000_000):.2f} MB/s")
with Bench(default_program()) as bench:
    kilobytes = 1000 * rate(bench, CORPORA[0][1], 2_000_000)
    print(f"end to end, default poll, lines: {kilobytes:.0f} kB/s")
