"""A session with the file manager: its window, its buttons, its two lists, and what the board then holds."""
import os
import re
import time
import unittest

from console_sessions import CONNECT, Session, free_port
from desktop import CONTENT_TOP, Console, wait_for

# Places of the file manager's gadgets at its default size and division.
TO_DEVICE, ABORT = (255, 19), (310, 19)
TO_PC, DELETE, NEW_FOLDER, REFRESH, FLASH = (367, 19), (420, 19), (490, 19), (570, 19), (670, 19)
PATH_BOX = (200, 60)
PC_FIRST, DEVICE_FIRST = (100, 106), (640, 88)  # first rows of the two lists, beside notices
DIALOGS = ("Kewlink File Commander", "New folder", "Warning!", "Notice")


class FilesSession(Session):
    SCREEN = "1800x1100"

    def setUp(self):
        super().setUp()
        self.pc = os.path.join(self.folder, "pc")
        self.back = os.path.join(self.pc, "back")
        for folder in (os.path.join(self.pc, "up"), self.back):
            os.makedirs(folder)
        self.files = {"a1.bin": os.urandom(129), "a2.bin": bytes(range(256)) * 3, "a3.bin": b"x"}
        for name, data in self.files.items():
            self.make("up/" + name, data)
        self.make("prog.bas", b'PRINT "from a slot"\n')
        self.make("zz-big.bin", bytes(60000))
        port = free_port()
        self.start_board("--board", "picomite-6.00", "--empty", "--port", str(port))
        self.write_tcp_settings(port, "", f"FileX = 1010\nFileY = 100\nPC start folder = {self.pc}/\n",
                                device="Device0")
        self.console = Console(self.desktop, self.program)
        self.console.click(35, 16)  # the preset
        self.console.click(*CONNECT)
        self.console.wait_text("Connected to 127.0.0.1 port")
        self.console.menu("Mode", 5)
        self.manager = self.windows("Kewlink File Commander")[0]
        self.wait_for_list()

    def make(self, name, data):
        with open(os.path.join(self.pc, name), "wb") as f:
            f.write(data)

    def press(self, place, pause=0.3):
        """A click in the file manager. Keys sent before it is the active window would go to the board."""
        self.click(self.manager, *place)
        wait_for("active file manager", lambda: self.desktop.output(
            ["xdotool", "getactivewindow", "getwindowname"]).strip() in DIALOGS)
        time.sleep(pause)

    def wait_for_list(self):
        """Until the device's list, which is emptied first, is there and stays as it is."""
        def picture():
            time.sleep(1)
            return self.desktop.pixels(self.manager, 250, 60, 314, 82)
        wait_for("list", lambda: len(set(shown := picture())) > 1 and shown == picture())

    def select(self, first_row, row, count=1):
        """Selects `count` rows of a list from `row` on, counted from 0. The path box's list of
        completions, where it still stands, takes the click for itself."""
        def lit():
            self.press(first_row)
            return set(self.desktop.pixels(self.manager, 1, 1, *first_row)) - {255}
        wait_for("selected row", lit, step=0.5)
        self.desktop.key("Home", *["Down"] * row, *["shift+Down"] * (count - 1))

    def open_pc_folder(self, path):
        self.press(PATH_BOX)
        self.desktop.key("ctrl+a")
        self.desktop.type(path + "/\n")

    def answer(self, title, text, key):
        self.front(self.windows(title)[0])
        self.desktop.type(text)
        self.desktop.key(key)
        wait_for("answer", lambda: title not in self.desktop.output(["wmctrl", "-l"]))  # it blocks the rest

    def wait_for_text(self, pattern):
        wait_for(pattern, lambda: re.search(pattern, self.console.text()), 90, 1)

    def board_says(self, command, last):
        self.console.click(300, CONTENT_TOP + 200)
        self.desktop.type(command + "\n")
        return self.console.wait_text(last).rsplit(command, 1)[-1]

    def test_files_go_there_and_back_and_slots_and_folders_come_and_go(self):
        self.open_pc_folder(os.path.join(self.pc, "up"))
        self.select(PC_FIRST, 1, 3)
        self.press(TO_DEVICE)
        self.wait_for_text("(?s)(Transfer completed OK!.*){3}Finished")

        self.press(REFRESH)
        self.wait_for_list()
        self.open_pc_folder(self.back)
        self.select(DEVICE_FIRST, 2, 3)  # behind ".." and the drive's line
        self.press(TO_PC)
        self.wait_for_text("(?s)Finished.*Finished")
        for name, data in self.files.items():
            with open(os.path.join(self.back, name), "rb") as f:
                self.assertEqual(f.read(), data + bytes(-len(data) % 128), name)  # whole frames

        time.sleep(2)  # this firmware throws away what comes right behind a transfer
        self.select(DEVICE_FIRST, 2)
        self.press(DELETE)
        self.wait_for_list()
        self.press(NEW_FOLDER)
        self.answer("New folder", "made here", "Return")
        self.wait_for_list()

        self.press(FLASH)
        self.wait_for_list()
        self.open_pc_folder(self.pc)
        self.select(PC_FIRST, 3)  # behind "..", "back" and "up"
        self.press(TO_DEVICE)
        self.answer("Warning!", "", "alt+y")
        # To slot 1. It goes over, the board writes its flash, and the list is asked for anew.
        self.press((DEVICE_FIRST[0], DEVICE_FIRST[1] + 14), 10)
        self.wait_for_list()
        self.wait_for_text("Upload completed")

        self.press(FLASH)
        self.wait_for_list()
        self.select(PC_FIRST, 4)
        self.press(TO_DEVICE)
        self.wait_for_text("Sent: 20/469")
        self.press(ABORT)
        self.wait_for_text(r"Transfer failed!|Sent: \d+/469\s+>")
        self.press(REFRESH)
        self.wait_for_list()
        self.close(self.manager)
        time.sleep(0.5)

        listed = self.board_says("FILES", "bytes free")
        self.assertNotIn("a1.bin", listed)
        self.assertRegex(listed, r"<DIR>  made here[\s\S]*a2\.bin[\s\S]*a3\.bin")
        self.assertIn('1 in use: "Print "from a slot""', self.board_says("FLASH LIST", "Slot 3"))
        self.assertEqual(self.console.close(), 0)
        self.assertEqual(self.saved("PC start folder"), self.pc + "/")
        self.assertEqual(self.saved("Warn when copying to flash"), "0")


if __name__ == "__main__":
    unittest.main()
