#!/usr/bin/python3
"""Milliseconds from a key press on the display to its byte on the link: median of 100 keys.
Needs python3-xlib."""
import statistics
import time

from Xlib import X, XK, display
from Xlib.ext import xtest

from console_bench import Bench, default_program

KEYS = 100

with Bench(default_program()) as bench:
    screen = display.Display(bench.desktop.env["DISPLAY"])
    code = screen.keysym_to_keycode(XK.string_to_keysym("a"))
    time.sleep(0.5)
    times = []
    for _ in range(KEYS):
        start = time.monotonic()
        xtest.fake_input(screen, X.KeyPress, code)
        screen.sync()
        bench.link.recv(16)
        times.append(1000 * (time.monotonic() - start))
        xtest.fake_input(screen, X.KeyRelease, code)
        screen.sync()
        time.sleep(0.03)
    print(f"key to wire: {statistics.median(times):.2f} ms")
