"""The help window in a real session: links, both indexes, the history."""
import os
import shutil
import tempfile
import unittest

from console_sessions import Session
from desktop import Console, wait_for


class HelpSession(Session):
    """Pages of one colour each, so that the picture tells which one is on show."""
    PAGES = {"html2/index.htm": ("red", "sub/%C3%BC%20two.htm#place"),
             "html2/sub/ü two.htm": ("lime", "../../html/index.htm"),
             "html/index.htm": ("blue", "#top")}

    def setUp(self):
        super().setUp()
        self.folder = os.path.join(self.folder, "%20é")  # what an address has to encode
        os.makedirs(os.path.join(self.folder, "data"))
        self.settings = os.path.join(self.folder, "data", "KWCC.inf")
        for name in ("KWCC", "libkewlink_web.so"):
            shutil.copy(os.path.join(os.path.dirname(os.environ["KWCC"]), name), self.folder)
        self.program = os.path.join(self.folder, "KWCC")

    def write_pages(self):
        for name, (colour, link) in self.PAGES.items():
            path = os.path.join(self.folder, "data", name)
            os.makedirs(os.path.dirname(path), exist_ok=True)
            with open(path, "w", encoding="utf-8") as f:
                f.write(f"<body bgcolor={colour}><a href='{link}'><div style='height:2000px'>"
                        "</div></a><p id=place>")

    def open_help(self):
        self.write_settings("Comport = not set\n")
        self.console = Console(self.desktop, self.program)
        self.console.menu("Help", 2)
        return self.windows("Help Viewer")[0]

    def expect(self, pixel):
        """Waits until the page has this colour, at a place clear of the scroll bars."""
        def shown():
            return self.desktop.pixels(self.viewer, 1, 1, 30, 200)
        wait_for(f"page of {pixel}, not {shown()}", lambda: shown() == bytes(pixel))

    def test_links_buttons_and_history(self):
        red, lime, blue = (255, 0, 0), (0, 255, 0), (0, 0, 255)
        self.write_pages()
        self.viewer = self.open_help()
        self.expect(red)
        for place, pixel in [((30, 200), lime), ((30, 200), blue),  # two links
                             ((240, 17), lime), ((240, 17), red),   # Back, twice
                             ((340, 17), lime),                     # Forward
                             ((50, 17), red), ((140, 17), blue)]:   # KW Edit, MM Basic
            self.click(self.viewer, *place)
            self.expect(pixel)
        self.console.menu("Help", 2)  # the same window again, with the first index
        self.expect(red)
        self.close(self.viewer)
        wait_for("end of help", lambda: self.viewer not in self.console.windows())
        self.assertEqual(self.console.close(), 0)

    def test_without_the_web_engine_the_browser_shows_the_pages(self):
        os.remove(os.path.join(self.folder, "libkewlink_web.so"))
        tools = tempfile.mkdtemp()  # no blank in its path
        self.addCleanup(shutil.rmtree, tools)
        browser = os.path.join(tools, "xdg-open")
        with open(browser, "w", encoding="utf-8") as f:
            f.write('#!/bin/sh\necho "$1" >"$0.asked"\n')
        os.chmod(browser, 0o755)
        self.desktop.env["PATH"] = tools + ":" + os.environ["PATH"]
        self.viewer = self.open_help()
        for y in range(56, 100, 4):  # the line of the link depends on the font
            self.click(self.viewer, 30, y)
        wait_for("browser", lambda: os.path.exists(browser + ".asked"))
        with open(browser + ".asked", encoding="utf-8") as f:
            self.assertRegex(f.read(), r"^file:///.*/%2520%C3%A9/data/html2/index\.htm$")
        self.assertEqual(self.console.close(), 0)


if __name__ == "__main__":
    unittest.main()
