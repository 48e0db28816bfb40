"""Sessions with the file manager: its window, its buttons, and files dropped on the main one."""
import os
import re
import sys
import time
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))

from console_sessions import CONNECT, MODE_MENU, Session, free_port  # noqa: E402
from desktop import CONTENT_TOP, Console, wait_for  # noqa: E402

PROMPT = (300, CONTENT_TOP + 200)

# Places of the file manager's gadgets at its default size and division.
TO_DEVICE, ABORT = (255, 19), (310, 19)
TO_PC, DELETE, NEW_FOLDER, REFRESH, FLASH = (367, 19), (420, 19), (490, 19), (570, 19), (670, 19)
PATH_BOX = (200, 60)
PC_FIRST, DEVICE_FIRST = (100, 106), (640, 88)  # first rows of the two lists, beside notices
DIALOGS = ("Kewlink File Commander", "New folder", "Warning!", "Notice")


def padded(data):
    return data + bytes(-len(data) % 128)


class FileManager:
    """The file manager's window, opened by the menu."""

    def __init__(self, session, console):
        self.session = session
        console.menu(MODE_MENU, 5)
        self.window = session.windows("Kewlink File Commander")[0]
        time.sleep(1.5)  # it asks the device for its list

    def click(self, place):
        self.session.click(self.window, *place)
        # Keys sent before the window is the active one would go to the board.
        wait_for("active file manager", lambda: self.session.desktop.output(
            ["xdotool", "getactivewindow", "getwindowname"]).strip() in DIALOGS)
        time.sleep(0.3)

    def keys(self, *keys):
        self.session.keys(*keys)
        time.sleep(0.2)

    def select(self, first_row, row, count=1):
        """Selects `count` rows of a list from `row` on, counted from 0."""
        self.click(first_row)
        self.keys("Home", *["Down"] * row, *["shift+Down"] * (count - 1))

    def open_pc_folder(self, path):
        self.click(PATH_BOX)
        self.keys("ctrl+a")
        self.session.typed(path + "/")
        self.keys("Return")

    def answer(self, title, text, *keys):
        self.session.windows(title)
        time.sleep(0.3)
        if text:
            self.session.typed(text)
        self.keys(*keys)


class FileSession(Session):
    SCREEN = "1800x1100"

    def setUp(self):
        super().setUp()
        self.pc = os.path.join(self.folder, "pc")
        os.makedirs(os.path.join(self.pc, "up"))

    def make(self, name, data):
        path = os.path.join(self.pc, name)
        with open(path, "wb") as f:
            f.write(data)
        return path

    def board_on_tcp(self):
        port = free_port()
        self.start_board("--board", "picomite-6.00", "--empty", "--port", str(port))
        return port

    def connect(self):
        port = self.board_on_tcp()
        self.write_tcp_settings(port, "", f"FileX = 1010\nFileY = 100\nPC start folder = {self.pc}/\n",
                                device="Device0")
        console = Console(self.desktop, self.program)
        console.click(35, 16)  # the preset
        console.click(*CONNECT)
        console.wait_text("Connected to 127.0.0.1 port")
        return console

    def board_says(self, console, command, last):
        console.click(*PROMPT)
        console.type(command + "\n")
        return console.wait_text(last).rsplit(command, 1)[-1]


class FilesSession(FileSession):
    def test_files_go_there_and_back_and_slots_and_folders_come_and_go(self):
        files = {"a1.bin": os.urandom(129), "a2.bin": bytes(range(256)) * 3, "a3.bin": b"x"}
        for name, data in files.items():
            self.make("up/" + name, data)
        self.make("prog.bas", b'PRINT "from a slot"\n')
        self.make("zz-big.bin", bytes(60000))
        console = self.connect()
        files_window = FileManager(self, console)

        files_window.open_pc_folder(os.path.join(self.pc, "up"))
        files_window.select(PC_FIRST, 1, 3)
        files_window.click(TO_DEVICE)
        text = console.wait_text("Finished", 90)
        self.assertEqual(text.count("Transfer completed OK!"), 3, text)

        back = os.path.join(self.pc, "back")
        os.mkdir(back)
        files_window.click(REFRESH)
        time.sleep(1.5)
        files_window.open_pc_folder(back)
        files_window.select(DEVICE_FIRST, 2, 3)  # behind ".." and the drive's line
        files_window.click(TO_PC)
        wait_for("three files", lambda: console.text().count("Finished") == 2, 90, 1)
        for name, data in files.items():
            with open(os.path.join(back, name), "rb") as f:
                self.assertEqual(f.read(), padded(padded(data)), name)

        time.sleep(2)  # this firmware throws away what comes right behind a transfer
        files_window.select(DEVICE_FIRST, 2)
        files_window.click(DELETE)
        time.sleep(3)
        files_window.click(NEW_FOLDER)
        files_window.answer("New folder", "made here", "Return")
        time.sleep(4)

        files_window.click(FLASH)
        time.sleep(1.5)
        files_window.open_pc_folder(self.pc)
        files_window.select(PC_FIRST, 3)  # behind "..", "back" and "up"
        files_window.click(TO_DEVICE)
        files_window.answer("Warning!", "", "alt+y")
        files_window.click((DEVICE_FIRST[0], DEVICE_FIRST[1] + 14))  # slot 1
        time.sleep(12)  # it goes over, the board writes its flash, the list is asked for anew
        console.wait_text("Upload completed", 60)

        files_window.click(FLASH)
        time.sleep(1.5)
        files_window.select(PC_FIRST, 4)
        files_window.click(TO_DEVICE)
        console.wait_text("Sent: 20/469", 60)
        files_window.click(ABORT)
        wait_for("end of the transfer", lambda: re.search(
            r"Transfer failed!|Sent: [23]0/469\s+>", console.text()), 60, 1)
        files_window.click(REFRESH)
        time.sleep(2)
        self.close(files_window.window)
        time.sleep(0.5)

        listed = self.board_says(console, "FILES", "bytes free")
        self.assertNotIn("a1.bin", listed)
        self.assertRegex(listed, r"<DIR>  made here[\s\S]*a2\.bin[\s\S]*a3\.bin")
        self.assertIn('1 in use: "Print "from a slot""', self.board_says(console, "FLASH LIST", "Slot 3"))
        self.assertEqual(console.close(), 0)
        self.assertEqual(self.saved("PC start folder"), self.pc + "/")
        self.assertEqual(self.saved("Warn when copying to flash"), "0")


class DropSession(FileSession):
    """The board stands on a serial line behind socat, as behind a terminal server."""

    def board_on_tcp(self):
        port = free_port()
        board = self.start_board("--board", "picomite-6.00", "--empty", "--pty")
        line = re.search(r"/dev/pts/\d+", board.stdout.readline()).group()
        self.desktop.start(["socat", f"TCP4-LISTEN:{port},bind=127.0.0.1", f"{line},raw,echo=0"])
        with open("/proc/net/tcp", encoding="ascii") as f:
            wait_for("bridge", lambda: f.seek(0) or f":{port:04X} 00000000:0000 0A" in f.read())
        return port

    def test_several_files_are_dropped_on_the_main_window(self):
        console = self.connect()
        paths = [self.make(name, bytes(range(256))) for name in ("d1.bas", "d2.bin")]
        self.desktop.start([os.environ["DRAG_SOURCE"], *paths])
        source = self.windows("drag source")[0]
        self.desktop.run("xdotool", "windowmove", "--sync", source, "1300", "300")
        self.desktop.run("xdotool", "mousemove", "--window", source, "40", "30", "mousedown", "1")
        for x, y in ((60, 40), (50, 20), (-200, 100), (-500, 150), (-800, 200), (-810, 205)):
            self.desktop.run("xdotool", "mousemove", "--window", source, "--", str(x), str(y))
            time.sleep(0.15)
        self.desktop.run("xdotool", "mouseup", "1")
        text = console.wait_text("Finished", 60)
        self.assertEqual(text.count("Transfer completed OK!"), 2, text)
        self.assertRegex(self.board_says(console, "FILES", "bytes free"), r"d1\.bas[\s\S]*d2\.bin")
        self.assertEqual(console.close(), 0)


if __name__ == "__main__":
    unittest.main()
