"""A desktop of one's own: a virtual display with a small window manager, and the console's
window on it, driven by real keys and the real mouse.

Used by the end-to-end tests and by ./run where there is no display.
"""
import contextlib
import os
import re
import subprocess
import time

CONTENT_TOP = 155            # y of the terminal's frame with all toolbar rows on show
FRAME_FOCUSED = b"\x7f\xc2\xff"  # its colour while the terminal has the focus
MENUS = {"Setup": (20, 9), "Action": (100, 11), "Mode": (200, 5), "Help": (240, 2)}  # x, rows
POPUP_ROWS = 7


def wait_for(what, condition, seconds=20.0, step=0.05):
    """Waits until condition() is true and gives its value; raises when time is up."""
    end = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise TimeoutError(what)
        time.sleep(step)


class Desktop:
    """Xvfb and openbox, for as long as the `with` block lasts."""

    def __init__(self, size="1280x1100"):
        self.size = size
        self.processes = []

    def __enter__(self):
        read, write = os.pipe()
        # At 96 dots to the inch a pixel of the program is one of the screen.
        self.start(["Xvfb", "-displayfd", str(write), "-screen", "0", self.size + "x24", "-dpi", "96",
                    "-nolisten", "tcp", "-noreset"], pass_fds=[write])
        os.close(write)
        with os.fdopen(read) as pipe:
            number = pipe.readline().strip()
        if not number:
            raise RuntimeError("Xvfb did not start")
        self.env = dict(os.environ, DISPLAY=":" + number, QT_QPA_PLATFORM="xcb", NO_AT_BRIDGE="1")
        self.env.pop("QT_SCALE_FACTOR", None)
        self.start(["openbox"])
        wait_for("window manager", lambda: "WINDOW_MANAGER" in self.output(["xprop", "-root"]) or
                 "_NET_SUPPORTING_WM_CHECK(WINDOW)" in self.output(["xprop", "-root"]))
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            if process.poll() is None:
                process.terminate()
        for process in self.processes:
            try:
                process.wait(10)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()

    def start(self, command, **options):
        options.setdefault("env", getattr(self, "env", None))
        options.setdefault("stdin", subprocess.DEVNULL)
        options.setdefault("stderr", subprocess.DEVNULL)
        options.setdefault("stdout", subprocess.DEVNULL)
        process = subprocess.Popen(command, **options)
        self.processes.append(process)
        return process

    def output(self, command):
        return subprocess.run(command, env=self.env, stdin=subprocess.DEVNULL, capture_output=True,
                              text=True, check=False).stdout

    def run(self, *command):
        subprocess.run(command, env=self.env, stdin=subprocess.DEVNULL, check=True,
                       stdout=subprocess.DEVNULL)

    def key(self, *keys):
        self.run("xdotool", "key", "--delay", "30", *keys)

    def type(self, text):
        """Types a text; a line end in it is the Return key."""
        for i, line in enumerate(text.split("\n")):
            if i:
                self.key("Return")
            if line:
                self.run("xdotool", "type", "--delay", "15", line)

    def picture(self, path):
        """The whole screen as a PNG."""
        self.run("import", "-window", "root", path)

    def pixels(self, window, *part):
        """Of a window, or of a part of it: width, height, and place from the left upper corner.
        Three bytes each; none of a window that is not there."""
        crop = ["-crop", "{}x{}+{}+{}".format(*part)] if part else []
        return subprocess.run(["import", "-window", window, *crop, "-depth", "8", "rgb:-"], env=self.env,
                              capture_output=True, check=False).stdout


class Console:
    """The console's main window on a desktop."""

    def __init__(self, desktop, program, arguments=()):
        self.desktop = desktop
        self.process = desktop.start([program, *arguments], stdout=None, stderr=None)
        self.window = wait_for("main window", self.find, 30)
        self.menu_height = wait_for("terminal frame", self.measure, 20)

    def find(self):
        ids = self.desktop.output(["xdotool", "search", "--onlyvisible", "--name",
                                   "^Kewlink Console$"]).split()
        return ids[0] if ids else None

    def windows(self):
        return self.desktop.output(["xdotool", "search", "--onlyvisible", "--pid",
                                    str(self.process.pid)]).split()

    def geometry(self, window=None):
        text = self.desktop.output(["xdotool", "getwindowgeometry", "--shell", window or self.window])
        return {k: int(v) for k, v in re.findall(r"(X|Y|WIDTH|HEIGHT)=(-?\d+)", text)}

    def measure(self):
        """Height of the menu bar, from where the focused terminal's frame begins."""
        width, raw = self.geometry()["WIDTH"], self.desktop.pixels(self.window)
        for y in range(len(raw) // (3 * width)):
            if raw[3 * (y * width + 100):3 * (y * width + 100) + 3] == FRAME_FOCUSED:
                return y - CONTENT_TOP if y >= CONTENT_TOP else None
        return None

    def point(self, x, y):
        """Moves the pointer to a place of the client area below the menu bar."""
        self.desktop.run("xdotool", "mousemove", "--window", self.window, str(x),
                         str(y + self.menu_height))

    def click(self, x, y, button=1):
        self.point(x, y)
        self.desktop.run("xdotool", "click", str(button))

    def menu(self, title, entry):
        """Chooses entry (counted from 1) of a menu of the menu bar."""
        x, rows = MENUS[title]
        self.desktop.run("xdotool", "mousemove", "--window", self.window, str(x), "10", "click", "1")
        self.choose(wait_for("menu", self.open_menu, 90), entry, rows)

    def popup(self, entry):
        """Chooses entry (counted from 1) of the terminal's pop-up menu. While a handler blocks it opens
        late; a click that comes as another window takes the focus opens none."""
        def opened():
            self.click(300, CONTENT_TOP + 200, 3)
            with contextlib.suppress(TimeoutError):
                return wait_for("pop-up menu", self.open_menu, 10)
        self.choose(wait_for("pop-up menu", opened, 90), entry, POPUP_ROWS)

    def choose(self, menu, entry, rows):
        """By the mouse: keys sent before the menu has the keyboard would go to the board."""
        y = (2 * entry - 1) * self.geometry(menu)["HEIGHT"] // (2 * rows)
        self.desktop.run("xdotool", "mousemove", "--window", menu, "20", str(y), "click", "1")
        wait_for("end of the menu", lambda: not self.open_menu())

    def open_menu(self):
        for window in self.windows():
            if "_MENU" in self.desktop.output(["xprop", "-id", window, "_NET_WM_WINDOW_TYPE"]):
                return window
        return None

    def text(self):
        """All text that the terminal holds, through its own Copy All."""
        subprocess.run(["xclip", "-selection", "clipboard", "-i", "/dev/null"],
                       env=self.desktop.env, stdout=subprocess.DEVNULL, check=True)
        self.popup(4)

        def copied():
            return subprocess.run(["xclip", "-selection", "clipboard", "-o"], env=self.desktop.env,
                                  capture_output=True, check=False).stdout
        try:
            return wait_for("copy", copied, 5).decode("utf-8", "replace")
        except TimeoutError:
            return ""

    def wait_text(self, text, seconds=30):
        """Waits until the terminal holds a text; gives all it holds."""
        seen = [""]

        def held():
            seen[0] = self.text()
            return text in seen[0]
        try:
            wait_for(text, held, seconds, 0.5)
        except TimeoutError:
            raise TimeoutError(f"{text!r} is not in the terminal:\n{seen[0].rstrip()}") from None
        return seen[0]

    def close(self, seconds=20):
        """Closes the window as a user does and gives the exit status."""
        self.desktop.run("wmctrl", "-i", "-c", hex(int(self.window)))
        return self.process.wait(seconds)
