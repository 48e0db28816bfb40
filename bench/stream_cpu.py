#!/usr/bin/env python3
"""CPU of a core, in per cent, while 92,160 bytes a second arrive: program lines and
colour, read by the timer and as it comes."""
import time

from console_bench import BOTH_WAYS, Bench, colour_lines, default_program, program_lines

RATE = 92160
SECONDS = 12
STEPS = 100  # sends a second


def stream(bench, lines):
    data = b"".join(lines)
    data *= RATE * SECONDS // len(data) + 1
    before, start = bench.cpu_seconds(), time.monotonic()
    piece = RATE // STEPS
    for i in range(SECONDS * STEPS):
        bench.link.sendall(data[i * piece:(i + 1) * piece])
        time.sleep(max(0.0, start + (i + 1) / STEPS - time.monotonic()))
    bench.sync()
    return 100 * (bench.cpu_seconds() - before) / (time.monotonic() - start)


for way, settings in BOTH_WAYS:
    with Bench(default_program(), settings) as bench:
        for name, lines in (("lines", program_lines(1000)), ("colour", colour_lines(1000))):
            print(f"stream CPU, {way}, {name}: {stream(bench, lines):.1f} % of a core")
