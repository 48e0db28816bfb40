#!/usr/bin/env python3
"""Writes the editor's table of BASIC words from the pages of the syntax index.

usage: word_list.py data/html BasicIndex.cpp

Every entry of the alphabetical index becomes a row with its page. So does every word of three
letters or more that the forms of the entries spell in capitals, as INTEGER or OUTPUT.
"""
import html
import os
import re
import sys

WORD = re.compile(r'(?<![\w&%.])[A-Z][\w.]*[A-Z0-9](?!\w)\$?')
SHORTEST = 3  # of the words in the forms: shorter ones are names of pins and countries


def plain(markup):
    text = html.unescape(re.sub(r"<[^>]*>", "", markup))
    return re.sub(r'"[^"]*"|%[\d.]*\w', " ", text)


def words(markup):
    return [w for w in WORD.findall(plain(markup)) if w.upper() == w]


def read_rows(folder):
    rows = {}  # the first page of an entry stands
    with open(os.path.join(folder, "az.htm"), encoding="utf-8") as f:
        entries = re.findall(r'<a href="(\w+\.htm#[\w-]+)">(.*?)</a>', f.read(), re.S)
    for page, entry in entries:
        if words(entry):
            rows.setdefault(" ".join(words(entry)), page)
    spelt = {word for entry in rows for word in entry.split()}
    for name in sorted(n for n in os.listdir(folder) if n.endswith(".htm")):
        with open(os.path.join(folder, name), encoding="utf-8") as f:
            forms = re.findall(r'<dt id="([\w-]+)">(.*?)</dt>', f.read(), re.S)
        for place, form in forms:
            for word in words(form):
                if len(word) >= SHORTEST and word not in spelt:
                    rows.setdefault(word, f"{name}#{place}")
    return rows


def main():
    folder, target = sys.argv[1:]
    rows = read_rows(folder)
    if len(rows) < 100:
        sys.exit(f"{folder}: this is not the syntax index")
    lines = "".join(f'    {{"{entry}", "{page}"}},\n' for entry, page in sorted(rows.items()))
    with open(target, "w", encoding="ascii") as f:
        f.write('#include "editor/BasicIndex.h"\n\n'
                "const std::vector<IndexEntry>& BasicIndex() {\n"
                f"    static const std::vector<IndexEntry> rows = {{\n{lines}    }};\n"
                "    return rows;\n}\n")


main()
