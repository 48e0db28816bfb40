#!/usr/bin/env python3
"""Resident memory in MB with the scrollback full."""
from console_bench import Bench, default_program, program_lines

with Bench(default_program()) as bench:
    bench.link.sendall(b"".join(program_lines(1500)))
    bench.sync()
    print(f"RSS with full scrollback: {bench.rss_mb():.0f} MB")
