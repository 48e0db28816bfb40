#!/usr/bin/env python3
"""Writes the file map at the end of docs/ARCHITECTURE.md from the first sentence of each file, and
at the head of each folder's list the one file to read first.
With --check: writes nothing, and fails when the map is not as it would be written.
"""
import os
import re
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
MAP = os.path.join(ROOT, "docs", "ARCHITECTURE.md")
MARK = "## Files\n"
FOLDERS = ["src/base", "src/ui/events", "src/ui/drawing", "src/ui/gadgets",
           "src/ui/windows", "src/ui", "src/terminal/screen", "src/link", "src/terminal/input",
           "src/encoding", "src/upload", "src/xmodem", "src/filemanager", "src/help", "src/shell",
           "simulator", "simulator/basic", "simulator/files", "simulator/xmodem", "simulator/boardsim", "companion", "editor",
           "plotter", "ports"]

READ_FIRST = {
    "src/base": "Numbers", "src/ui/events": "EventQueue", "src/ui/drawing": "PaintRecord",
    "src/ui/gadgets": "Gadgets", "src/ui/windows": "Windows", "src/ui": "InterfaceLayer",
    "src/terminal/screen": "TerminalScreen", "src/link": "LinkPrimitives",
    "src/terminal/input": "TerminalInput", "src/encoding": "EncodedSource",
    "src/upload": "UploadProgram", "src/xmodem": "XmodemJob", "src/filemanager": "FileManagerWindow",
    "src/help": "HelpViewer", "src/shell": "StartUp", "simulator": "Board",
    "simulator/basic": "BasicMachine", "simulator/files": "FileStore", "simulator/xmodem": "XmodemBoard",
    "simulator/boardsim": "SimOptions", "companion": "ConsolePorts",
    "editor": "Editor", "plotter": "Recording", "ports": "PortReport",
}


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
    names = sorted({re.sub(r"(Internal)?\.(h|cpp)$", "", n) for n in os.listdir(path)
                    if n.endswith((".h", ".cpp"))})
    if READ_FIRST.get(folder) not in names:
        sys.exit(f"READ_FIRST names no file of {folder}/")
    rows = [f"\n### {folder}/: read `{READ_FIRST[folder]}` first\n",
            "| file | what it holds |", "|---|---|"]
    for name in names:
        base = os.path.join(path, name)
        said = next(filter(None, (first_sentence(base + end) for end in (".h", "Internal.h", ".cpp"))), "")
        rows.append(f"| `{name}` | {said} |")
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
