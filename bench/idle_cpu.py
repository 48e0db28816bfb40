#!/usr/bin/env python3
"""CPU of a core, in per cent, with the link up, the cursor blinking and nothing to do."""
import time

from console_bench import Bench, default_program

SECONDS = 20

with Bench(default_program()) as bench:
    time.sleep(2)
    before = bench.cpu_seconds()
    time.sleep(SECONDS)
    print(f"idle CPU: {100 * (bench.cpu_seconds() - before) / SECONDS:.2f} % of a core")
