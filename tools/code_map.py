#!/usr/bin/env python3
"""Writes the file map at the end of docs/ARCHITECTURE.md from the first sentence of each file.
With --check: writes nothing, and fails when the map is not as it would be written.
"""
import os
import re
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
MAP = os.path.join(ROOT, "docs", "ARCHITECTURE.md")
MARK = "## Files\n"
FOLDERS = ["src/base", "src/ui", "src/terminal/screen", "src/link", "src/terminal/input",
           "src/encoding", "src/upload", "src/xmodem", "src/filemanager", "src/help", "src/shell",
           "simulator", "simulator/basic", "simulator/files", "simulator/xmodem", "simulator/boardsim", "editor", "ports"]


def first_sentence(path):
    """The first sentence of a file's opening comment; empty when it has none."""
    if not os.path.exists(path):
        return ""
    words = []
    with open(path, encoding="utf-8") as f:
        for line in f:
            if line.startswith("//"):
                words.append(line[2:].strip())
            elif words or line.startswith("namespace") or "(" in line:
                break
    found = re.match(r"(.+?[.:;])(?:\s|$)", " ".join(words))
    return (found.group(1) if found else " ".join(words)).rstrip(".:;")


def table(folder):
    path = os.path.join(ROOT, folder)
    names = sorted({os.path.splitext(n)[0] for n in os.listdir(path) if n.endswith((".h", ".cpp"))})
    rows = [f"\n### {folder}/\n", "| file | what it holds |", "|---|---|"]
    for name in names:
        base = os.path.join(path, name)
        rows.append(f"| `{name}` | {first_sentence(base + '.h') or first_sentence(base + '.cpp')} |")
    return "\n".join(rows) + "\n"


def main():
    with open(MAP, encoding="utf-8") as f:
        old = f.read()
    new = old[:old.index(MARK) + len(MARK)] + "".join(table(folder) for folder in FOLDERS)
    bare = re.findall(r"\| `(\w+)` \|  \|", new)
    if bare:
        sys.exit("no opening comment in: " + ", ".join(bare))
    if "--check" in sys.argv:
        if new != old:
            sys.exit("docs/ARCHITECTURE.md is out of date: run tools/code_map.py")
        print("map of the code: ok")
        return
    with open(MAP, "w", encoding="utf-8") as f:
        f.write(new)


main()
