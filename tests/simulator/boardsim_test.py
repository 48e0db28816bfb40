"""The program boardsim, started as a user starts it: a port, wrong options."""
import os
import socket
import subprocess
import unittest

EXAMPLES = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "examples")


def read_until(read, part):
    """All that `read` gives until `part` has come, or until the end."""
    got, block = b"", b"-"
    while part not in got and block:
        block = read(1)
        got += block
    return got


class Boardsim(unittest.TestCase):
    def start(self, *arguments):
        """The last word of the program's first line: its port or its terminal."""
        program = subprocess.Popen([os.environ["BOARDSIM"], *arguments], bufsize=0,
                                   stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        self.addCleanup(lambda: (program.kill(), program.wait(), program.stdout.close()))
        return program.stdout.readline().split()[-1]

    def connect(self, port):
        line = socket.create_connection(("127.0.0.1", int(port)), 10)
        self.addCleanup(line.close)
        return line

    def test_one_host_after_another_over_tcp(self):
        port = self.start("--port", "0", "--folder=" + EXAMPLES)
        line = self.connect(port)
        self.assertTrue(read_until(line.recv, b"\x1b[?7h").startswith(b"\rPicoMite MMBasic"))
        line.sendall(b'RUN "hello"\r')
        self.assertIn(b"Hello from PicoMite!\r\n", read_until(line.recv, b"\x1b[?7h"))
        line.sendall(b"CPU RESTART\r")  # takes the port away; who comes meanwhile waits
        self.assertEqual(read_until(line.recv, b"never"), b"CPU RESTART\r\n")
        line = self.connect(port)
        line.sendall(b"PRINT 6*7\r")
        self.assertIn(b"42\r", read_until(line.recv, b"42\r"))

    def test_wrong_options(self):
        for options, part, status in [
                (["--nosuch"], "no option", 2), (["--port=70000"], "from 0 to 65535", 2),
                (["--board=nosuch"], "no board", 2), (["--pin"], "needs a value", 2),
                (["--pty", "--folder=/no/such"], "can't read", 1),
                (["--port", self.start("--port", "0").decode()], "can't listen", 1)]:
            ended = subprocess.run([os.environ["BOARDSIM"], *options], timeout=10, text=True,
                                   stderr=subprocess.PIPE, check=False)
            self.assertEqual((part in ended.stderr, ended.returncode), (True, status), ended)


if __name__ == "__main__":
    unittest.main()
