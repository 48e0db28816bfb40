#!/usr/bin/env python3
"""Checks the house rules that a compiler does not: the floors, state and widgets.

- an include of a project header points down the floors or stays on its floor, and no two
  headers include each other in a circle;
- no `extern` in a .cpp;
- a header named `…Internal.h` is included by its own folder alone;
- toolkit widget headers only in ui/ and in the companions, which are programs of their own;
- no call names a gadget, window, menu item or timer by a bare number.
"""
import os
import re
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
FLOORS = {
    "base": 1,
    "ui/events": 2,
    "ui/drawing": 3,
    "ui/gadgets": 4,
    "ui/windows": 5,
    "ui": 6,
    "terminal/screen": 7,
    "link": 8,
    "terminal/input": 9,
    "upload": 9,
    "xmodem": 9,
    "filemanager": 10,
    "help": 10,
    "shell": 11,
}
# Beside the floors: what each folder may include, itself aside.
BESIDE = {"encoding": {"base"}, "simulator": {"base"}, "companion": set(),
          "editor": {"companion"}, "plotter": {"companion"}, "ports": set()}
PROGRAMS = ("companion", "editor", "plotter")  # of the toolkit's own widgets
USES_ENCODING = {"upload"}
WIDGET = re.compile(
    r"#include <Q(?:Widget|MainWindow|Dialog|Application|PushButton|ComboBox|LineEdit|CheckBox|Label|"
    r"Frame|Menu|MenuBar|Action|Splitter|ScrollBar|\w*View|\w*Widget|WebView|Shortcut|MessageBox|"
    r"FileDialog|InputDialog|FontDialog|Completer|Painter|Clipboard|\w*Event)>")
NUMBERED = re.compile(
    r"\b(?:SetGadget\w+|Gadget(?:Text|State|Exists|Hidden|Disabled|X|Y|Width|Height|Tooltip)|HideGadget|"
    r"DisableGadget|ResizeGadget|FocusGadget|FreeGadget|AddGadgetItem|ClearGadgetItems|"
    r"OpenNumberedWindow|CloseNumberedWindow|WindowIsOpen|ResizeNumberedWindow|SetMenuItemTick|"
    r"MenuItem|MenuItemTick|StartDrawing|\w+Gadget)\((\d+)\b")
TIMERS = re.compile(r"\b(?:AddWindowTimer|RemoveWindowTimer|AddKeyboardShortcut)\([^;]*?\b\d{2,3}\b")


def folder_of(path):
    folder = os.path.dirname(path)
    while folder and folder not in FLOORS and folder not in BESIDE:
        folder = os.path.dirname(folder)
    return folder


def sources():
    for top in ("src", *(folder for folder in BESIDE if folder != "encoding")):
        base = os.path.join(ROOT, "src") if top == "src" else ROOT
        for folder, _, names in os.walk(os.path.join(ROOT, top)):
            for name in names:
                if name.endswith((".h", ".cpp")):
                    full = os.path.join(folder, name)
                    yield full, os.path.relpath(full, base)


def allowed(here, there):
    if here == there:
        return True
    if here in BESIDE:
        return there in BESIDE[here]
    if there in BESIDE:
        return there == "encoding" and here in USES_ENCODING
    return FLOORS[there] < FLOORS[here]


def check_file(full, path, graph):
    here, faults = folder_of(path), []
    with open(full, encoding="utf-8") as f:
        text = f.read()
    for number, line in enumerate(text.split("\n"), 1):
        where = f"{path}:{number}: "
        found = re.match(r'#include "([^"]+)"', line)
        if found:
            target = found.group(1)
            there = folder_of(target)
            graph.setdefault(path, set()).add(target)
            if there and here and not allowed(here, there):
                faults.append(f"{where}{here} must not include {target}")
            if target.endswith("Internal.h") and os.path.dirname(target) != os.path.dirname(path):
                faults.append(f"{where}{target} is of its own folder alone")
        if path.endswith(".cpp") and re.match(r"\s*extern\b(?!\s*\"C\")", line) and "const" not in line:
            faults.append(where + "extern in a source file")
        if here not in PROGRAMS and not here.startswith("ui") and WIDGET.search(line):
            faults.append(where + "widget header outside ui/")
        code = line.split("//")[0]
        if here not in ("base", "simulator") and not here.startswith("ui") and (NUMBERED.search(code) or TIMERS.search(code)):
            faults.append(where + "bare design number")
    return faults


def circles(graph):
    done, faults = set(), []

    def visit(path, road):
        if path in road:
            faults.append("circle: " + " -> ".join(road[road.index(path):] + [path]))
            return
        if path in done:
            return
        for target in sorted(graph.get(path, ())):
            visit(target, road + [path])
        done.add(path)

    for path in sorted(graph):
        visit(path, [])
    return faults


def main():
    graph, faults, count = {}, [], 0
    for full, path in sources():
        count += 1
        faults += check_file(full, path, graph)
    faults += circles(graph)
    for fault in faults:
        print(fault)
    print(f"floors: {count} files, {len(faults)} faults")
    sys.exit(1 if faults else 0)


main()
