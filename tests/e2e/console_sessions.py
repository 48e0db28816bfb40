"""Sessions with the real console window: real display, keys, mouse, processes, pty, sockets."""
import contextlib
import os
import pathlib
import re
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import threading
import time
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
sys.path.insert(0, os.path.join(ROOT, "tools"))
from desktop import CONTENT_TOP, Console, Desktop, wait_for  # noqa: E402

CONNECT = (652, 66)       # middle of the button, client area coordinates
COMMAND_BAR = (100, 116)
SEND_CR = (560, 116)
EXAMPLES = [("hello.bas", "on the board's clock. Bye."), ("colours.bas", "288 moves of the cursor."),
            ("sieve.bas", "primes in")]


def free_port():
    with socket.socket() as s:
        s.bind(("127.0.0.1", 0))
        return s.getsockname()[1]


class Session(unittest.TestCase):
    """A desktop and a folder with a copy of the program, for one test."""
    SCREEN = "1280x1100"

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="kwcc e2e ")  # with a blank in its path
        os.mkdir(os.path.join(self.folder, "data"))
        self.program = shutil.copy(os.environ["KWCC"], self.folder)
        self.settings = os.path.join(self.folder, "data", "KWCC.inf")
        self.desktop = Desktop(self.SCREEN).__enter__()
        self.addCleanup(shutil.rmtree, self.folder)
        self.addCleanup(self.desktop.__exit__)

    def write_settings(self, device, rest="", windows=""):
        with open(self.settings, "w", encoding="ascii") as f:
            f.write("[Windows]\nMainX = 30\nMainY = 20\nMainW = 960\nMainH = 1000\n" + windows +
                    "[Device]\n" + device + "Line ending = CR\n" + rest)

    def start_board(self, *arguments):
        return self.desktop.start([os.environ["BOARDSIM"], *arguments], stdout=subprocess.PIPE,
                                  text=True)

    def start_board_on_pty(self, board, *arguments):
        """The path of its serial line."""
        board = self.start_board("--board", board, "--pty", *arguments)
        return re.search(r"/dev/pts/\d+", board.stdout.readline()).group()

    def write_tcp_settings(self, port, rest="", windows="", device="Device"):
        self.write_settings(f"Comport = TCPIP\nTCPIP address = 127.0.0.1\nTCPIP port = {port}\n",
                            f"{rest}[myDeviceList]\n{device} = Sim|'target s\\picomite le\\cr\n", windows)

    def copy(self, text):
        subprocess.run(["xclip", "-selection", "clipboard"], env=self.desktop.env,
                       input=text.encode(), stdout=subprocess.DEVNULL, check=True)

    def windows(self, title):
        """Numbers of the visible windows of that title, once there is one."""
        return wait_for(title, lambda: self.desktop.output(
            ["xdotool", "search", "--onlyvisible", "--name", f"^{title}$"]).split())

    def front(self, window):
        self.desktop.run("xdotool", "windowactivate", "--sync", window)

    def click(self, window, x, y):
        self.desktop.run("xdotool", "mousemove", "--window", window, str(x), str(y), "click", "1")

    def close(self, window):
        self.desktop.run("wmctrl", "-i", "-c", hex(int(window)))

    def start_beside(self, name, *arguments):
        """Starts a copy of a program, named by a variable, in the console's folder."""
        program = os.path.join(self.folder, os.path.basename(os.environ[name]))
        if not os.path.exists(program):
            shutil.copy(os.environ[name], program)
        return self.desktop.start([program, *arguments])

    def saved(self, key):
        text = pathlib.Path(self.settings).read_text("utf-8")
        found = re.search(rf"^{re.escape(key)} = (.*)$", text, re.M)
        return found.group(1) if found else None


class TcpSession(Session):
    def test_talk_upload_quit(self):
        port = free_port()
        self.start_board("--board", "picomite", "--port", str(port))
        self.write_tcp_settings(port, '[Macros]\nMacro0 = Six|PRINT 2*3; "six"\\013\n')
        console = Console(self.desktop, self.program)
        console.click(*CONNECT)
        console.wait_text("Connected to 127.0.0.1 port")
        console.click(300, CONTENT_TOP + 200)
        self.desktop.type("PRINT 6*7\n")
        self.assertRegex(console.wait_text("42"), r"PRINT 6\*7\s+42")
        console.click(*COMMAND_BAR)
        self.desktop.type("PRINT 1000+234\n")
        console.wait_text("1234")
        console.click(35, 91)  # the first macro button
        console.wait_text("6six")

        for name, ending in EXAMPLES:
            console.click(735, 91)  # Cls
            self.copy(pathlib.Path(ROOT, "examples", name).read_text("utf-8"))
            console.popup(1)  # AUTOSAVE code
            text = console.wait_text(ending, 60)
            self.assertNotIn("Error", text, name)

        self.assertEqual(console.close(), 0)
        self.assertEqual(self.saved("Cmd0"), "PRINT 1000+234")


class LocalTools(Session):
    """Programs of others at the local ports: picocom through socat, and nc."""

    def nc(self, port, text, *options):
        return subprocess.run(["nc", *options, "127.0.0.1", str(port)], input=text.encode(),
                              capture_output=True, timeout=30, check=False).stdout.decode()

    def test_bridge_welcome_and_load(self):
        port, data, control = free_port(), free_port(), free_port()
        self.start_board("--board", "picomite", "--port", str(port))
        self.write_tcp_settings(port, f"[Network]\nIP data port = {data}\nIP control port = {control}\n"
                                "[VTterminal]\nVT Mode = 1\n")
        console = Console(self.desktop, self.program)
        console.click(*CONNECT)
        console.wait_text("Connected to 127.0.0.1 port")
        line = os.path.join(self.folder, "line")
        self.desktop.start(["socat", f"PTY,link={line},rawer,wait-slave", f"TCP:127.0.0.1:{data}"])
        wait_for("pty", lambda: os.path.exists(line))
        # In a process group of its own: ended by a signal, picocom sends that to its group.
        picocom = self.desktop.start(["picocom", "-q", "-b", "115200", line], bufsize=0,
                                     stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                     start_new_session=True)
        console.wait_text("connected- 127.0.0.1")
        for _ in range(2):
            picocom.stdin.write(b"PRINT 6*7\r")
            shown = b""
            while not shown.endswith(b"> "):
                shown += picocom.stdout.read(1)
            self.assertRegex(shown, rb"PRINT 6\*7\s+42\s+> $")
        self.assertRegex(self.nc(data, "PRINT 7*8\r", "-w", "2"), r"PRINT 7\*8\s+56\s+> ")

        console.menu("Mode", 1)
        self.assertEqual(self.nc(data, "", "-w", "1"), "Welcome to KWCC\r\n")
        self.nc(control, f"/load {os.path.join(ROOT, 'examples', 'hello.bas')}\r\n", "-N")
        console.wait_text("on the board's clock. Bye.", 60)
        self.assertEqual(console.close(), 0)


class SlowBoard(threading.Thread):
    """A board behind TCP that echoes each line after 130 ms, or reads nothing at all."""

    def __init__(self, reads=True):
        super().__init__(daemon=True)
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]
        self.reads = reads
        self.received = b""
        self.start()

    def run(self):
        line, _ = self.listener.accept()
        self.line = line  # stays open
        while self.reads and (block := line.recv(65536)):
            self.received += block
            time.sleep(0.13)
            with contextlib.suppress(OSError):  # who has gone gets no answer
                line.sendall(block + b"\n> ")


class Leaving(Session):
    """Whatever blocks, a close or a signal ends the program soon, and what it kept is saved."""

    def start_console(self, port):
        self.write_tcp_settings(port)
        console = Console(self.desktop, self.program)
        console.click(*COMMAND_BAR)
        self.desktop.type("kept")
        return console

    def leaves(self, console, end, status=0, seconds=3.5):
        start = time.monotonic()
        end()
        self.assertEqual(console.process.wait(60), status)
        self.assertLess(time.monotonic() - start, seconds)
        self.assertEqual(self.saved("Welcome message"), "Welcome to KWCC")

    def test_an_upload_is_aborted_and_the_window_painted_meanwhile(self):
        board = SlowBoard()
        console = self.start_console(board.port)
        self.copy("PRINT 1\n" * 400)
        console.popup(1)  # AUTOSAVE code
        wait_for("lines", lambda: board.received.count(b"PRINT 1") > 5)
        # Uncovered, the window is painted while the upload goes on.
        cover = self.desktop.start(["xmessage", "-geometry", "900x900+40+40", "cover"])
        wait_for("cover", lambda: self.desktop.output(["xdotool", "search", "--name", "xmessage"]))
        time.sleep(0.3)
        cover.terminate()
        cover.wait()
        width = wait_for("frame", console.measure, 5) and console.geometry()["WIDTH"]
        self.assertGreater(width, 900)
        self.leaves(console, lambda: self.close(console.window))
        wait_for("byte 3", lambda: board.received.endswith(b"\x03"), 5)  # it reads at its own pace
        self.assertLess(board.received.count(b"PRINT 1"), 200)

    def test_a_send_that_is_not_taken_and_a_signal(self):
        board = SlowBoard(reads=False)
        console = self.start_console(board.port)
        console.click(*CONNECT)
        console.wait_text("Connected to 127.0.0.1")
        self.copy("x" * 79 + "\n" + ("y" * 79 + "\n") * 100000)
        console.popup(2)  # Paste text
        time.sleep(2)
        self.leaves(console, console.process.terminate)

    def test_the_display_goes(self):
        self.leaves(self.start_console(free_port()), self.desktop.processes[0].terminate, 1)


class EditorSession(Session):
    def setUp(self):
        super().setUp()
        line = self.start_board_on_pty("picomite-6.00")
        self.write_settings(f"Comport = {line[5:]}\nSerialSpeed = 115200\n",
                            f"[Network]\nIP control port = {free_port()}\nIP data port = {free_port()}\n"
                            f"KWedit control port = {free_port()}\n"
                            "[myDeviceList]\nDevice = Sim|'target s\\picomite le\\cr\n")
        self.source = os.path.join(self.folder, "my game.bas")

    def test_edit_load_run_and_the_listing_back(self):
        console = Console(self.desktop, self.program)
        editor = self.start_beside("KWEDIT", self.source)
        self.front(self.editor_window())
        self.desktop.type('PRINT "It is";6*7\n')
        self.desktop.key("F5")
        self.assertRegex(console.wait_text("It is 42", 60), r"Control\s.*my game.bas\s")
        self.assertEqual(self.content(self.source), 'PRINT "It is";6*7\n')
        self.front(self.editor_window())
        self.desktop.type("PRINT 99-1\n")
        self.desktop.key("ctrl+F5")
        wait_for("second upload", lambda: console.text().count("Upload completed") == 2, 60, 0.5)
        # A busy editor hears of the listing before it hears that the clipboard has changed.
        editor.send_signal(signal.SIGSTOP)
        self.front(console.window)
        console.menu("Action", 11)  # Send Listing to Editor
        time.sleep(2)
        editor.send_signal(signal.SIGCONT)
        self.front(self.editor_window("New text"))
        self.desktop.key("ctrl+a", "ctrl+c")
        time.sleep(0.3)
        text = self.desktop.output(["xclip", "-selection", "clipboard", "-o"])
        self.assertEqual(text.split("\n")[:2], ['Print "It is";6*7', "Print 99-1"])
        self.assertNotRegex(console.text(), r"[\r\n] *98\s")  # it was not run
        editor.terminate()
        self.assertEqual(console.close(), 0)

    def test_unsaved_work_survives_and_a_later_start_is_the_same_editor(self):
        editor = self.start_beside("KWEDIT", self.source)
        self.front(self.editor_window())
        self.desktop.type("PRINT 1")
        copy = os.path.join(self.folder, ".my game.bas.kwedit")
        wait_for("whole copy", lambda: self.content(copy) == "PRINT 1")
        editor.kill()
        editor.wait()
        self.start_beside("KWEDIT")
        self.front(self.windows("KWEdit")[0])  # the question
        self.desktop.key("Return")
        self.front(self.editor_window())
        self.desktop.key("ctrl+s")
        wait_for("saved", lambda: self.content(self.source) == "PRINT 1")
        self.assertEqual(self.start_beside("KWEDIT", self.source).wait(20), 0)
        self.assertFalse(os.path.exists(copy))
        for wish, start in (("--help", "usage: KWEdit"), ("--version", "KWEdit ")):
            shown = subprocess.run([os.environ["KWEDIT"], wish], text=True, check=False,
                                   env={**os.environ, "DISPLAY": ""}, stdout=subprocess.PIPE)
            self.assertEqual((shown.returncode, shown.stdout[:len(start)]), (0, start))

    @staticmethod
    def content(path):
        return os.path.exists(path) and pathlib.Path(path).read_text("ascii")

    def editor_window(self, name="my game.bas"):
        return self.windows(f"{name}.* - KWEdit")[0]


if __name__ == "__main__":
    unittest.main()
