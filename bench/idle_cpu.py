#!/usr/bin/env python3
"""CPU of a core, in per cent, with the link up, the cursor blinking and nothing to do,
read by the timer and as it comes."""
import time

from console_bench import BOTH_WAYS, Bench, default_program

SECONDS = 20

for way, settings in BOTH_WAYS:
    with Bench(default_program(), settings) as bench:
        time.sleep(2)
        before = bench.cpu_seconds()
        time.sleep(SECONDS)
        print(f"idle CPU, {way}: {100 * (bench.cpu_seconds() - before) / SECONDS:.2f} % of a core")
