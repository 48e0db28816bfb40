"""The program boardsim, started as a user starts it: ports, pseudo-terminals, its end."""
import os
import signal
import socket
import subprocess
import tempfile
import time
import unittest


def read_until(read, part):
    """All that `read` gives until `part` has come, or until the end."""
    got, block = b"", b"-"
    while part not in got and block:
        block = read(1)
        got += block
    return got


class Boardsim(unittest.TestCase):
    def start(self, *arguments):
        program = subprocess.Popen([os.environ["BOARDSIM"], *arguments], bufsize=0,
                                   stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.addCleanup(lambda: (program.kill(), program.wait(), program.stdout.close()))
        return program

    def refusal(self, *arguments):
        program = self.start(*arguments)
        return program.stdout.read(), program.wait(10)

    def connect(self, port):
        line = socket.create_connection(("127.0.0.1", port), 10)
        self.addCleanup(line.close)
        return line

    def test_one_host_after_another_over_tcp(self):
        with tempfile.TemporaryDirectory() as folder:
            os.mkdir(os.path.join(folder, "sub"))
            with open(os.path.join(folder, "sub", "one.bas"), "w", encoding="ascii") as f:
                f.write('PRINT "from the PC"\n')
            program = self.start("--port", "0", "--folder=" + folder)
            port = int(program.stdout.readline().rsplit(b" ", 1)[1])
            program.stdout.readline()
            line = self.connect(port)
            self.assertTrue(read_until(line.recv, b"\x1b[?7h").startswith(b"\rPicoMite MMBasic"))
            line.sendall(b'RUN "sub/one"\r')
            self.assertIn(b"\r\nfrom the PC\r\n", read_until(line.recv, b"\x1b[?7h"))

        def wakes():
            with open(f"/proc/{program.pid}/status", encoding="ascii") as f:
                return int(f.read().split("\nvoluntary_ctxt_switches:")[1].split()[0])
        before = wakes()
        time.sleep(0.3)
        self.assertLessEqual(wakes() - before, 3)  # at the prompt it sleeps
        self.assertIn(b"is taken", self.refusal("--port", str(port))[0])
        # A restart takes the port away; who comes meanwhile waits.
        line.sendall(b"CPU RESTART\r")
        self.assertEqual(read_until(line.recv, b"never"), b"CPU RESTART\r\n")
        line = self.connect(port)
        line.sendall(b"PRINT 6*7\r")
        self.assertIn(b"42\r", read_until(line.recv, b"42\r"))
        program.send_signal(signal.SIGTERM)
        self.assertEqual(program.wait(10), 0)

    def test_a_pseudo_terminal_with_a_link_that_goes_at_the_end(self):
        with tempfile.TemporaryDirectory() as folder:
            link = os.path.join(folder, "board")
            program = self.start("--board", "webmite", "--pty", "--link", link)
            self.assertTrue(program.stdout.readline().startswith(b"boardsim: /dev/pts/"))
            self.assertIn(b"linked as", program.stdout.readline())
            with os.fdopen(os.open(link, os.O_RDWR | os.O_NOCTTY), "r+b", buffering=0) as line:
                line.write(b"nosuch\r")
                answer = read_until(line.read, b"command")
            self.assertIn(b"nosuch\r\nError : Unknown command", answer)  # no telnet here
            program.send_signal(signal.SIGINT)
            self.assertEqual(program.wait(10), 0)
            self.assertFalse(os.path.lexists(link))
            os.mkdir(link)  # what is no link of its own is left alone
            self.assertIn(b"can't make the link", self.refusal("--pty", "--link", link)[0])

    def test_telnet_once_and_other_options(self):
        program = self.start("--port", "0", "--once", "--board", "webmite")
        line = self.connect(int(program.stdout.readline().rsplit(b" ", 1)[1]))
        self.assertEqual(read_until(line.recv, b"\x1b[?7h")[12:18], b"\xff\xfe\x22\0\r\0")
        line.close()
        self.assertEqual(program.wait(10), 0)
        for option, part, ending in [
                ("--nosuch", b'no option "--nosuch"', 2), ("--port=70000", b"from 0 to 65535", 2),
                ("--board=nosuch", b"no board", 2), ("--pin", b"needs a value", 2)]:
            words, code = self.refusal(option)
            self.assertTrue(part in words and code == ending, (option, words, code))


if __name__ == "__main__":
    unittest.main()
