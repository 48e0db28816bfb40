"""What a user installs, tried in fresh folders and under fresh homes."""
import contextlib
import glob
import os
import pty
import re
import socket
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PACKAGING = ROOT / "packaging"
PROGRAMS = Path(os.environ["KWCC_BUILD"], "bin")
sys.path.insert(0, str(ROOT / "tools"))

from desktop import CONTENT_TOP, Console, Desktop, wait_for  # noqa: E402


def attempt(*command, **options):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          check=False, **options)


def run(*command, **options):
    """Output of a command that must succeed."""
    done = attempt(*command, **options)
    assert done.returncode == 0, f"{command}: {done.stdout}"
    return done.stdout


class Case(unittest.TestCase):
    def setUp(self):
        odd = tempfile.TemporaryDirectory(prefix="kwcc it's 100% $HOME ")  # a path with everything
        self.folder = Path(self.enterContext(odd))
        self.home = self.folder / "home"
        self.prefix = self.folder / "in st"
        rest = {k: v for k, v in os.environ.items() if not k.startswith("XDG_")}
        self.environment = dict(rest, HOME=str(self.home), QT_QPA_PLATFORM="offscreen")

    def device(self, description):
        path = self.folder / "device.umockdev"
        path.write_text(description)
        return path

    def install(self, *options):
        run("cmake", "--install", PROGRAMS.parent, "--prefix", self.prefix, *options)


class Texts(Case):
    def test_texts_are_valid_and_tell_what_the_programs_do(self):
        run("desktop-file-validate", *PACKAGING.glob("*.desktop"))
        run("appstreamcli", "validate", "--no-net", PACKAGING / "org.kewlink.console.metainfo.xml")
        run("mandoc", "-T", "lint", "-W", "warning", *PACKAGING.glob("man/*.1"))
        for program in ("boardsim", "kwports", "KWPlot"):
            page = re.sub(r".\x08", "", run("mandoc", "-T", "ascii", PACKAGING / f"man/{program}.1"))
            told, known = (set(re.findall(r"--[a-z-]+", text))
                           for text in (page, run(PROGRAMS / program, "--help")))
            self.assertLessEqual(told, known | {"--version"})
        version = os.environ["KWCC_VERSION"]
        for name, words in (("changelog", f"console ({version}) "),
                            ("org.kewlink.console.metainfo.xml", f'<release version="{version}"')):
            self.assertIn(words, (PACKAGING / name).read_text())


class Folder(Case):
    def test_it_works_where_it_lies_and_its_window_fits_a_small_display(self):
        self.install()
        moved = self.prefix = self.prefix.rename(self.folder / "moved here")
        for name in ("LICENSE", "THIRD-PARTY.txt", "data/html/index.htm", "data/html2/index.htm",
                     "udev/70-kewlink-console.rules", "examples/hello.bas", "KWEdit", "KWPlot",
                     "libkewlink_web.so", "kwports", "boardsim"):
            self.assertTrue((moved / name).is_file(), name)
        settings = moved / "data/KWCC.inf"
        with Desktop("1366x768") as desktop:
            console = Console(desktop, str(moved / "KWCC"))
            place = console.geometry()
            console.click(300, CONTENT_TOP + 100)
            self.assertEqual(console.close(), 0)
        kept = dict(re.findall("^(.+) = (.*)$", settings.read_text(), re.M))
        width, height, rows = (int(kept[key]) for key in ("VT width", "VT height", "Number of rows"))
        self.assertEqual((kept["Characters per line"], rows), ("101", 30))
        # Room for the scroll bar, and for a panel below.
        self.assertTrue(width + 40 <= place["WIDTH"] <= 1366 - place["X"], place)
        least = console.menu_height + CONTENT_TOP + height + 10
        self.assertTrue(least <= place["HEIGHT"] <= 768 - 40 - place["Y"], place)
        settings.write_text("[Mine]\n")
        self.install()  # again, over what the user has
        self.assertEqual(settings.read_text(), "[Mine]\n")


class UserFolder(Case):
    def setUp(self):
        super().setUp()
        self.install("--component", "system")
        self.own = self.home / ".local/share/kewlink-console"
        self.settings = self.own / "data/KWCC.inf"

    def launch(self, name, *arguments, **options):
        launched = subprocess.Popen([self.prefix / "bin" / name, *arguments], cwd=self.folder,
                                    env=dict(self.environment, **options), text=True,
                                    stderr=subprocess.PIPE, stdout=subprocess.PIPE)
        self.addCleanup(launched.communicate)
        self.addCleanup(self.end_programs)
        return launched

    def programs(self):
        """Process numbers of this user's copies of the programs."""
        found = []
        for link in glob.glob("/proc/[0-9]*/exe"):
            with contextlib.suppress(OSError):  # any process may end meanwhile
                if os.readlink(link).startswith(str(self.own)):
                    found.append(link.split("/")[2])
        return found

    def end_programs(self):
        for number in self.programs():
            with contextlib.suppress(ProcessLookupError):
                os.kill(int(number), 9)

    def run_for_a_while(self, name, *arguments):
        """Starts a program and ends it; gives its own arguments."""
        launcher = self.launch(name, *arguments)
        number = wait_for(name, self.programs)[0]
        words = Path(f"/proc/{number}/cmdline").read_text().split("\0")[1:-1]
        self.end_programs()
        launcher.communicate()
        return words

    def test_each_user_gets_settings_that_last_and_a_program_as_new_as_the_package(self):
        self.assertEqual(self.run_for_a_while("kewlink-console", "a  b", "c"), ["a  b", "c"])
        for name in ("data/html2/index.htm", "data/html/index.htm", "libkewlink_web.so"):
            self.assertTrue((self.own / name).is_file(), name)
        self.assertIn("[Choices]", self.settings.read_text())
        run("sed", "-i", "$a [Mine]\\nkept = 1", self.settings)
        # The old program may be running, so its file is not written to.
        copy, package = self.own / "KWCC", self.prefix / "libexec/kewlink-console/KWCC"
        old = copy.stat().st_ino
        run("sh", "-c", 'printf newer >>"$1"', "sh", package)
        self.run_for_a_while("kewlink-console")
        self.assertNotEqual(copy.stat().st_ino, old)
        run("cmp", copy, package)
        run("grep", "kept = 1", self.settings)
        for name in ("kwedit", "kwplot"):
            self.assertEqual(self.run_for_a_while(name, "x y"), ["x y"])
        for name in ("kewlink-console", "kwedit", "kwplot"):
            entry = (self.prefix / f"share/applications/{name}.desktop").read_text()
            icon = re.search("^Icon=(.*)$", entry, re.M)[1] + ".svg"
            self.assertTrue((self.prefix / "share/icons/hicolor/scalable/apps" / icon).is_file(), icon)
        self.assertTrue((self.prefix / "lib/udev/rules.d/70-kewlink-console.rules").is_file())

    def test_a_running_console_is_given_the_file(self):
        servers = [socket.create_server(("127.0.0.1", 0)) for _ in range(4)]
        ports = [server.getsockname()[1] for server in servers]
        board = servers.pop()
        for server in servers:  # its port is free then
            server.close()
        self.addCleanup(board.close)
        board.settimeout(60)
        self.settings.parent.mkdir(parents=True)
        self.settings.write_text("[Network]\nIP control port = %d\nIP data port = %d\n"
                                 "KWedit control port = %d\n" % tuple(ports[:3]))
        source = f"'target s\\picomite ip\\127.0.0.1:{ports[3]} le\\cr\n"
        (self.folder / "a  b.bas").write_text(source)
        self.launch("kewlink-console")
        wait_for("console", self.programs)
        second = self.launch("kewlink-console", "a  b.bas")
        second.communicate(timeout=30)
        self.assertEqual((second.returncode, len(self.programs())), (0, 1))
        board.accept()[0].close()  # the upload has begun
        third = self.launch("kewlink-console")
        self.assertIn("running already", third.communicate(timeout=30)[1])

    def test_a_failed_start_is_shown_in_a_window(self):
        zenity = self.folder / "zenity"
        run("install", "-m755", "/dev/stdin", zenity, input='printf "%s" "$4" >"$HOME/shown"\n')
        for fault, status, words in (({"QT_QPA_PLATFORM": "nothing"}, 134, "platform plugin"),
                                     ({"XDG_DATA_HOME": zenity}, 1, "cannot be made")):
            failed = self.launch("kewlink-console", PATH=f"{self.folder}:{os.environ['PATH']}", **fault)
            failed.communicate(timeout=60)
            self.assertEqual(failed.returncode, status)
            self.assertIn(words, (self.home / "shown").read_text())

    @unittest.skipUnless(os.geteuid() == 0, "another user's port needs another user")
    def test_ports_of_another_user_are_left_to_them(self):
        done = attempt("unshare", "-n", "sh", "-c", """
            setpriv --reuid=65534 --clear-groups python3 -c '
import socket, time
s = socket.create_server(("0.0.0.0", 50900)); print(flush=True); time.sleep(60)' >"$HOME.ready" & other=$!
            until [ -s "$HOME.ready" ]; do sleep 0.1; done
            QT_QPA_PLATFORM=nothing "$1"; kill $other""", "sh",
                       self.prefix / "bin/kewlink-console", env=self.environment)
        self.assertTrue(self.settings.exists(), done.stdout)
        self.assertIn("IP control port = 50901\nIP data port = 50902\nKWedit control port = 6834\n",
                      self.settings.read_text())


class MenuEntries(Case):
    def test_the_folder_adds_itself_to_the_menu_by_its_own_path(self):
        self.install()
        odd = self.prefix.rename(self.folder / 'a "b" `c` \\d')
        run(odd / "add-to-menu", env=self.environment)
        shared = self.home / ".local/share"
        for name, program in (("kewlink-console", "KWCC"), ("kwedit", "KWEdit"), ("kwplot", "KWPlot")):
            path = shared / f"applications/{name}.desktop"
            run("desktop-file-validate", path)
            keys = dict(re.findall("^([A-Z][a-z]+)=(.*)$", path.read_text(), re.M))
            self.assertTrue(Path(keys["Icon"].replace("\\\\", "\\")).is_file(), keys)
            line = re.fullmatch('"(.*)" %[fF]', keys["Exec"]).group(1)
            # As a desktop reads it: the value's escapes, then those in quotes, then field codes.
            text = re.sub(r"\\(.)", r"\1", re.sub(r"\\\\", r"\\", line)).replace("%%", "%")
            self.assertEqual(text, str(odd / program))
        kinds = dict(re.findall(r"^\d+:(\S+):\*(.ba[se])$", (shared / "mime/globs2").read_text(), re.M))
        self.assertEqual(sorted(kinds.values()), [".bae", ".bas"])
        openers = (shared / "applications/mimeinfo.cache").read_text().split("\n")[1:-1]
        self.assertEqual(sorted(openers), sorted(["text/csv=kwplot.desktop;",
                                                  *(kind + "=kwedit.desktop;" for kind in kinds)]))
        run(odd / "add-to-menu", "--remove", env=self.environment)
        self.assertEqual([*shared.glob("applications/*.desktop"), *shared.glob("mime/packages/*")], [])


class Package(Case):
    """The Debian package, named in KWCC_DEB; ./test --package builds it and runs this."""

    def test_it_asks_for_what_its_programs_need(self):
        package = os.environ["KWCC_DEB"]
        depends, recommends = (re.findall(r"(?:^|, )([a-z0-9.+-]+)", run("dpkg-deb", "-f", package, name))
                               for name in ("Depends", "Recommends"))
        # One library that only KWCC has, one of kwports alone, one of boardsim as well.
        self.assertLessEqual({"libsodium23", "libqt5serialport5", "libstdc++6"}, set(depends))
        self.assertIn("libqt5webkit5", set(recommends) - set(depends))
        run("dpkg-deb", "-x", package, self.prefix)
        for program in self.prefix.glob("usr/libexec/*/[Kl]*"):
            self.assertIn("BIND_NOW", run("readelf", "-d", program), program)


def usb(number, ids, name, facts):
    """A USB device with a serial port, as umockdev describes it; `facts` are udev's own."""
    device = f"/devices/usb1/1-{number}"
    vendor, product = ids.split(":")
    return (f"P: {device}\nN: bus/usb/001/00{number}\nE: SUBSYSTEM=usb\nE: DEVTYPE=usb_device\n"
            f"E: DEVNAME=/dev/bus/usb/001/00{number}\nA: idVendor={vendor}\nA: idProduct={product}\n\n"
            f"P: {device}/tty/{name}\nN: {name}\nE: SUBSYSTEM=tty\nE: DEVNAME=/dev/{name}\n"
            f"E: MAJOR=166\nE: MINOR={name[-1]}\n{facts}\n")


# A /run and a /dev of their own, for what udev writes; a few real devices stay.
OWN_PLACES = """
mount --rbind /dev "$1" && mount -t tmpfs none /dev || exit 1
for name in null zero random urandom; do : >/dev/$name; mount --bind "$1/$name" /dev/$name; done
mkdir /dev/pts && mount --rbind "$1/pts" /dev/pts && ln -s pts/ptmx /dev/ptmx || exit 1
mount -t tmpfs none /run
"""


def own_places(script, *arguments):
    """Runs a script where it cannot touch the machine's devices."""
    with tempfile.TemporaryDirectory() as folder:
        return attempt("unshare", "-rm", "sh", "-c", OWN_PLACES + script, "sh", folder, *arguments)


class Ports(Case):
    def listed(self, description):
        # The preloaded testbed comes before the sanitizer, and LeakSanitizer stops in it.
        return attempt("umockdev-run", "-d", self.device(description), "--", PROGRAMS / "kwports",
                       env=dict(os.environ, ASAN_OPTIONS="verify_asan_link_order=0:detect_leaks=0"))

    def test_a_board_is_listed_with_what_hangs_on_its_port(self):
        board = usb(1, "2e8a:000a", "ttyACM0", "E: ID_VENDOR_ID=2e8a\nE: ID_MODEL_ID=000a\n"
                    "E: ID_VENDOR=Raspberry_Pi\nE: ID_MODEL=Pico\nE: ID_SERIAL_SHORT=E66\n")
        done = self.listed(board)
        self.assertEqual((done.returncode, done.stdout), (0, "/dev/ttyACM0\n"
            "  device         Raspberry Pi Pico (2e8a:000a), serial number E66\n"
            "  access         you may open it\n"
            "  specification  'target s\\picomite port\\ttyACM0:115200 le\\cr\n"))
        self.assertEqual(self.listed("P: " + board.split("P: ")[1]).returncode, 1)  # no port

    def test_a_port_is_looked_at_by_name(self):
        kwports = PROGRAMS / "kwports"
        ends = pty.openpty()
        line = os.ttyname(ends[1])
        link = self.folder / "link"
        link.symlink_to(line)
        self.assertRegex(run(kwports, link), rf"^{line}\n(.*\n)+  held by .*\({os.getpid()}\)\n"
                         rf"  specification  'target s\\picomite port\\{line[5:]}:115200 le\\cr\n")
        os.chmod(line, 0)
        nobody = ["setpriv", "--reuid=65534", "--clear-groups"] if os.geteuid() == 0 else []
        self.assertIn("only its owner", run(*nobody, kwports, line))
        self.assertIn("there is no port /dev/x\n", attempt(kwports, "/dev/x").stdout)
        for end in ends:
            os.close(end)


@unittest.skipUnless(own_places("").returncode == 0, "this machine gives no /dev of one's own")
class UdevRules(Case):
    def test_links_access_and_modem_manager(self):
        """The machine's own udev, with made-up devices, in a /dev and /run of its own."""
        # Ids and port, serial number and interface, links; and whether it is a board's.
        devices = (("2e8a:000a", "ttyACM0", "E66", "00", "KW-E66 TTYACM0", True),
                   ("04d8:000a", "ttyACM1", "E66", "02", "KW-E66-02 TTYACM1", True),
                   ("0483:5740", "ttyACM2", "0001", "00", "TTYACM2", True),
                   ("1a86:7523", "ttyACM3", "a:b", "00", "TTYACM3", True),
                   ("10c4:ea60", "ttyUSB0", "", "00", "TTYUSB0", True),
                   ("0403:6001", "ttyUSB1", "E66", "", "KW-E66 TTYUSB1", True),
                   ("067b:2303", "ttyUSB2", "E67", "00", "KW-E67 TTYUSB2", True),
                   ("12d1:1001", "ttyUSB3", "E66", "00", "TTYUSB3", False),
                   ("2e8a:000a", "ttyUSB4", "E68", "00", "KW-E68", True))
        for number, (ids, name, serial, interface, links, known) in enumerate(devices, 1):
            facts = f"E: ID_SERIAL_SHORT={serial}\nE: ID_USB_INTERFACE_NUM={interface}\n"
            device, port = (self.udev(usb(number, ids, name, facts), f"usb1/1-{number}{part}")
                            for part in ("", "/tty/" + name))
            self.assertEqual("ID_MM_DEVICE_IGNORE=1" in device, known, device)
            self.assertEqual("ID_MM_PORT_IGNORE=1" in port, known, port)
            self.assertEqual("run: 'uaccess'" in port, known, port)
            given = re.search("^DEVLINKS=.*", port, re.M)[0]
            self.assertEqual(sorted(re.findall("(?<=/dev/)[A-Z]\\S+", given)), links.split())
            self.assertNotRegex(port, r"kewlink-console\.rules:\d+ (?!LINK)")
        seen = own_places('ln -s null /dev/KW-A1 && "$2" null', PROGRAMS / "kwports").stdout
        self.assertIn("in any socket  'target s\\picomite port\\KW-A1:115200 le\\cr\n", seen)

    def udev(self, description, device):
        done = own_places('mkdir -p /run/udev/rules.d && cp "$2" /run/udev/rules.d && '
                          'umockdev-run -d "$3" -- udevadm test --action=add "/sys/devices/$4"',
                          PACKAGING / "udev/70-kewlink-console.rules", self.device(description), device)
        self.assertEqual(done.returncode, 0, done.stdout)
        return done.stdout


if __name__ == "__main__":
    unittest.main()
