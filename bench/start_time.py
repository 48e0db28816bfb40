#!/usr/bin/env python3
"""Milliseconds from the start of the process to its window on the screen: median of ten
starts after a first one."""
import os
import statistics
import time

from console_bench import Bench, default_program


def main():
    with Bench(default_program(), connect=False) as bench:
        program = os.path.join(bench.folder, "KWCC")
        times = []
        for _ in range(11):
            start = time.monotonic()
            process = bench.desktop.start([program])
            window = None
            while not window:
                window = bench.desktop.output(["xdotool", "search", "--onlyvisible", "--name",
                                               "^Kewlink Console$"]).split()
            times.append(1000 * (time.monotonic() - start))
            time.sleep(0.5)
            bench.desktop.run("wmctrl", "-i", "-c", hex(int(window[0])))
            process.wait(20)
        print(f"start to window: {statistics.median(times[1:]):.0f} ms")


main()
