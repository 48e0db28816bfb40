#!/usr/bin/env python3
"""The demonstration without a display: runs the console on a virtual one, prints what its
terminal shows and leaves a screenshot.  usage: headless_demo.py KWCC PROGRAM PICTURE
"""
import sys
import time

from desktop import Console, Desktop


def main():
    program, source, picture = sys.argv[1:4]
    with Desktop() as desktop:
        console = Console(desktop, program, [source] if source else [])
        try:
            console.wait_text("Upload started" if source else "started", 60)
            text = settle(console)
        except TimeoutError as trouble:
            console.close()
            sys.exit(f"The demonstration did not get that far: {trouble}")
        desktop.picture(picture)
        print("\n".join(line.rstrip() for line in text.rstrip().splitlines()))
        print(f"\nScreenshot: {picture}")
        console.close()


def settle(console):
    """The terminal's text once it has stood still for a second. While a program is uploaded
    the window does not answer, so the first look waits for the end of that."""
    before = None
    for _ in range(20):
        text = console.text()
        if text and text == before:
            return text
        before = text
        time.sleep(1)
    return before or ""


main()
