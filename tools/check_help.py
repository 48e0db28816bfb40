#!/usr/bin/env python3
"""Checks the help pages in data/html and data/html2.

- each page is well formed, in UTF-8 that it declares, and can be reached from its start page;
- each link is relative and leads to a page, and to a place in it, that is there;
- the guide's table of settings holds the keys and defaults of src/shell/SettingsTable.cpp, no
  more and no fewer; the guide names every menu item and every word of a specification;
- the syntax index lists every entry of its pages.
"""
import os
import re
import sys
from html.parser import HTMLParser

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
DATA = os.path.join(ROOT, "data")
GUIDE, BASIC = "html2", "html"
EMPTY_TAGS = {"meta", "link", "br", "img", "hr"}
faults = []


class Page(HTMLParser):
    """One page: its links, the ids in it, its text, and the rows of its tables of keys."""

    def __init__(self, name):
        super().__init__()
        self.name, self.open, self.links = name, [], []
        self.ids, self.entries, self.titles, self.charset = set(), set(), 0, None
        self.text, self.heading, self.keys = "", "", []  # keys: group and cells of a row
        with open(os.path.join(DATA, name), encoding="utf-8") as f:
            source = f.read()
        self.feed(source)
        self.close()
        self.expect(source.startswith("<!DOCTYPE html>"), "no doctype")
        self.expect(not self.open, f"not closed: {self.open}")
        self.expect(self.charset == "utf-8", "charset is not declared")
        self.expect(self.titles == 1, f"{self.titles} titles")

    def expect(self, good, fault):
        if not good:
            faults.append(f"{self.name}:{self.getpos()[0]}: {fault}")

    def handle_starttag(self, tag, attributes):
        found = dict(attributes)
        self.expect(tag != "script" and "style" not in found, f"{tag} is not for these pages")
        self.charset = found.get("charset", self.charset)
        self.titles += tag == "title"
        if "id" in found:
            self.expect(found["id"] not in self.ids, f"id {found['id']} stands twice")
            self.ids.add(found["id"])
            if tag == "dt":
                self.entries.add(found["id"])
        self.links += [found[a] for a in ("href", "src") if a in found]
        if tag == "h2":
            self.heading = ""
        if tag == "table":
            self.is_keys = found.get("class") == "keys"
        if tag == "tr" and self.is_keys:
            self.keys.append((self.heading, []))
        if tag == "td" and self.is_keys:
            self.keys[-1][1].append("")
        if tag not in EMPTY_TAGS:
            self.open.append(tag)

    def handle_endtag(self, tag):
        self.expect(self.open and self.open[-1] == tag, f"</{tag}> closes {self.open[-1:]}")
        if tag in self.open:
            while self.open.pop() != tag:
                pass

    def handle_data(self, data):
        self.text += data
        if "h2" in self.open:
            self.heading += data
        if "td" in self.open and self.is_keys:
            self.keys[-1][1][-1] += data


def read_pages():
    return {name: Page(name) for folder in (GUIDE, BASIC)
            for name in sorted(f"{folder}/{n}" for n in os.listdir(os.path.join(DATA, folder))
                               if n.endswith(".htm"))}


def target(page, link):
    """The page and the place that a link leads to."""
    path, _, place = link.partition("#")
    folder = os.path.dirname(page.name)
    return (os.path.normpath(os.path.join(folder, path)) if path else page.name), place


def check_links(pages):
    for page in pages.values():
        for link in page.links:
            name, place = target(page, link)
            there = os.path.isfile(os.path.join(DATA, name)) and not re.match(r"/|\w+:|\.\.$", link)
            good = there and (not place or name in pages and place in pages[name].ids)
            if not good:
                faults.append(f"{page.name}: the link {link} leads nowhere")


def check_reach(pages, folder):
    reached, waiting = set(), [f"{folder}/index.htm"]
    while waiting:
        name = waiting.pop()
        if name in pages and name not in reached and name.startswith(folder + "/"):
            reached.add(name)
            waiting += [target(pages[name], link)[0] for link in pages[name].links]
    faults.extend(f"{name}: not reached from {folder}/index.htm" for name in pages
                  if name.startswith(folder + "/") and name not in reached)


def source(name):
    with open(os.path.join(ROOT, "src", name), encoding="utf-8") as f:
        return f.read()


def default_text(kind, value):
    if kind == "List":
        return ""
    if kind == "Colour":
        return "$" + value[2:]
    return value.strip('"') or "empty" if kind == "Text" else value


def settings_keys():
    """Group, key and default of each row of the program's table; a list by its prefix and 0."""
    rows = source("shell/SettingsTable.cpp").partition("rows = {")[2]
    form = r'\{\s*"([^"]+)",\s*(Group|Number|Text|Colour|List)\{(?:&[^,)]+,\s*("[^"]*"|\w+))?'
    group, keys = "", set()
    for name, kind, value in re.findall(form, rows):
        if kind == "Group":
            group = f"[{name}]"
        else:
            keys.add((group, name + "0" * (kind == "List"), default_text(kind, value)))
    return keys


def guide_keys(page):
    """The same from the guide; "Cmd0 to Cmd30" counts as Cmd0, and a list has no default."""
    keys = set()
    for group, cells in page.keys:
        if cells:  # a row of headings has none
            first = re.match(r"(\w+\d) to ", cells[0])
            keys.add((group, first.group(1), "") if first else (group, cells[0], cells[1]))
    return keys


def check_settings(page):
    told, held = guide_keys(page), settings_keys()
    faults.extend(f"{page.name}: missing or different: {row}" for row in sorted(held - told))
    faults.extend(f"{page.name}: not in the program: {row}" for row in sorted(told - held))
    return len(held)


def check_words(pages):
    """Menu items and the words of a specification, as the program's tables spell them."""
    guide = "\n".join(p.text for n, p in pages.items() if n.startswith(GUIDE + "/"))
    rows = source("shell/MainMenu.cpp").partition("menuRows[] = {")[2].partition("};")[0]
    items = re.findall(r'"([^"]+)"', rows)
    rows = source("upload/DeviceSpec.cpp").partition("optionRows[] = {")[2].partition("};")[0]
    words = re.findall(r'\{"(\w+)"', rows)
    faults.extend(f"the guide does not name the menu item {i}" for i in items if i not in guide)
    text = pages[f"{GUIDE}/directives.htm"].text
    faults.extend(f"the guide does not name the word {w}" for w in words
                  if not re.search(rf"\b{w}\b", text))
    return len(items) + len(words)


def check_index(pages):
    entries = {f"{n}#{i}" for n, p in pages.items() for i in p.entries}
    listed = {"#".join(target(pages[f"{BASIC}/az.htm"], link))
              for link in pages[f"{BASIC}/az.htm"].links}
    faults.extend(f"{entry}: not in the alphabetical index" for entry in sorted(entries - listed))
    return len(entries)


def check_styles():
    texts = []
    for folder in (GUIDE, BASIC):
        with open(os.path.join(DATA, folder, "style.css"), encoding="utf-8") as f:
            texts.append(f.read())
    if texts[0] != texts[1]:
        faults.append("the two copies of style.css differ")


def main():
    pages = read_pages()
    check_links(pages)
    check_reach(pages, GUIDE)
    check_reach(pages, BASIC)
    check_styles()
    keys = check_settings(pages[f"{GUIDE}/settings.htm"])
    words = check_words(pages)
    entries = check_index(pages)
    for fault in faults:
        print(fault)
    if not (keys and words and entries):
        sys.exit("help: a table was not found")
    print(f"help: {len(pages)} pages, {keys} settings, {words} words, {entries} entries, "
          f"{len(faults)} faults")
    sys.exit(1 if faults else 0)


main()
