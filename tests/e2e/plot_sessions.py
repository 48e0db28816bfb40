"""KWPlot beside the console: what a board prints becomes lines on a real display."""
import csv
import os
import time
import unittest

from console_sessions import CONNECT, Session, free_port
from desktop import CONTENT_TOP, Console, wait_for

LINES = 40  # 8 s: time enough for a busy machine to pause in the middle of them
PROGRAM = f'FOR i=1 TO {LINES}:PRINT i;",";i*i;",";i/-8:PAUSE 200:NEXT:PRINT "E";"nd"\n'


class PlotSession(Session):
    def test_series_appear_pause_and_are_saved_as_they_were_printed(self):
        port, data = free_port(), free_port()
        self.start_board("--board", "picomite", "--port", str(port))
        self.write_tcp_settings(port, f"[Network]\nIP control port = {free_port()}\n"
                                f"IP data port = {data}\n[VTterminal]\nVT Mode = 2\n")
        self.desktop.env["HOME"] = self.folder
        plotter = self.start_beside("KWPLOT")
        self.plot = self.windows("localhost:.* - KWPlot")[0]  # nobody answers yet
        console = Console(self.desktop, self.program)
        console.click(*CONNECT)
        console.wait_text("Connected to 127.0.0.1 port")
        console.wait_text("connected- 127.0.0.1")
        console.click(300, CONTENT_TOP + 200)
        self.desktop.type(PROGRAM)

        self.front(self.plot)
        wait_for("three series", lambda: self.coloured() > 60)
        self.desktop.key("space")
        wait_for("a picture that stands", lambda: self.picture() == self.picture(0.5))
        stood = self.picture()
        self.front(console.window)
        console.wait_text("End")
        self.front(self.plot)
        self.assertEqual(self.picture(), stood)
        self.desktop.key("space")
        wait_for("what came meanwhile", lambda: self.picture() != stood)

        saved = os.path.join(self.folder, "run.csv")
        self.desktop.key("ctrl+s")
        self.front(self.windows("Save as CSV")[0])
        self.desktop.key("Return")  # as offered: a list of completions would swallow it
        wait_for("CSV", lambda: os.path.exists(saved))
        self.expect_lines(saved)
        self.close(self.plot)
        self.assertEqual(plotter.wait(20), 0)
        self.assertEqual(console.close(), 0)

    def expect_lines(self, path):
        with open(path, encoding="ascii", newline="") as f:
            rows = list(csv.reader(f))
        self.assertEqual(rows[0], ["time", "Column 1", "Column 2", "Column 3"])
        numbers = [[float(cell) for cell in row] for row in rows[1:]]
        self.assertEqual([row[1:] for row in numbers],
                         [[i, i * i, -i / 8] for i in range(1, LINES + 1)])
        times = [row[0] for row in numbers]
        self.assertEqual(times, sorted(times))
        self.assertGreater(times[-1], 0.2 * (LINES - 2))

    def picture(self, after=0.0):
        """Pixels of the plot, without legend and status line."""
        time.sleep(after)
        return self.desktop.pixels(self.plot, 700, 400, 20, 70)

    def coloured(self):
        """How many pixels are of a clear colour: all but the lines is grey."""
        raw = self.picture()
        return sum(max(raw[i:i + 3]) - min(raw[i:i + 3]) > 60 for i in range(0, len(raw), 3))


if __name__ == "__main__":
    unittest.main()
