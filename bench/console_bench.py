"""What the figures of the running console have in common: a desktop, a TCP board that this
process plays, and the program with settings that connect to it."""
import os
import select
import shutil
import socket
import sys
import tempfile
import time

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.path.insert(0, os.path.join(ROOT, "tools"))

from desktop import Console, Desktop  # noqa: E402

# Settings behind those of the bench: the group [Choices] for reading as it comes.
AS_IT_COMES = "[Choices]\nRead as it comes = 1\n"
BOTH_WAYS = (("by the timer", ""), ("as it comes", AS_IT_COMES))
CONNECT = (652, 66)  # middle of the button, client area coordinates
TICKS = os.sysconf("SC_CLK_TCK")


def free_port():
    """A port that nobody holds."""
    with socket.socket() as s:
        s.bind(("127.0.0.1", 0))
        return s.getsockname()[1]


class Bench:
    """The console connected to this process, for as long as the `with` block lasts."""

    def __init__(self, program, settings="", connect=True):
        self.program, self.extra, self.connect = program, settings, connect

    def __enter__(self):
        self.folder = tempfile.mkdtemp(prefix="kwcc-bench-")
        os.mkdir(os.path.join(self.folder, "data"))
        shutil.copy(self.program, self.folder)
        self.listener = socket.create_server(("127.0.0.1", 0))
        port = self.listener.getsockname()[1]
        with open(os.path.join(self.folder, "data", "KWCC.inf"), "w", encoding="ascii") as f:
            f.write("[Windows]\nMainX = 10\nMainY = 10\nMainW = 960\nMainH = 1000\n[Device]\n"
                    f"Comport = TCPIP\nTCPIP address = 127.0.0.1\nTCPIP port = {port}\n" + self.extra)
        self.desktop = Desktop().__enter__()
        self.console = None
        self.link = None
        if self.connect:
            self.open_console()
        return self

    def open_console(self):
        self.console = Console(self.desktop, os.path.join(self.folder, os.path.basename(self.program)))
        time.sleep(0.6)
        self.console.click(*CONNECT)
        self.link, _ = self.listener.accept()
        self.link.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)

    def __exit__(self, *_):
        if self.console:
            self.console.close()
        self.desktop.__exit__()
        self.listener.close()
        shutil.rmtree(self.folder)

    def cpu_seconds(self):
        with open(f"/proc/{self.console.process.pid}/stat", encoding="ascii") as f:
            fields = f.read().rsplit(")", 1)[1].split()
        return (int(fields[11]) + int(fields[12])) / TICKS

    def rss_mb(self):
        with open(f"/proc/{self.console.process.pid}/status", encoding="ascii") as f:
            for line in f:
                if line.startswith("VmRSS:"):
                    return int(line.split()[1]) / 1024
        return 0.0

    def sync(self, seconds=60):
        """Waits until the console has shown all that was sent: it answers CSI 6n."""
        self.link.sendall(b"\x1b[6n")
        answer = b""
        while not answer.endswith(b"R"):
            if not select.select([self.link], [], [], seconds)[0]:
                raise TimeoutError("no answer to CSI 6n")
            answer += self.link.recv(64)


def default_program():
    return sys.argv[1] if len(sys.argv) > 1 else os.path.join(ROOT, "build", "release", "bin", "KWCC")


def program_lines(count):
    """Listing-like lines of 5 to 60 columns with CR LF."""
    return [b"%d PRINT \"" % (10 * i) + b"x" * (i * 29 % 48) + b"\"\r\n" for i in range(1, count + 1)]


def colour_lines(count):
    """Lines of 80 columns with an SGR change every four characters."""
    return [b"".join(b"\x1b[%dmabcd" % (30 + (i + k) % 8) for k in range(20)) + b"\x1b[0m\r\n"
            for i in range(count)]
