"""What a user installs, tried in fresh folders and under fresh homes."""
import contextlib
import glob
import os
import pty
import re
import shutil
import socket
import subprocess
import sys
import tempfile
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
PACKAGING = os.path.join(ROOT, "packaging")
BUILD = os.environ["KWCC_BUILD"]
sys.path.insert(0, os.path.join(ROOT, "tools"))

from desktop import CONTENT_TOP, Console, Desktop, wait_for  # noqa: E402


def attempt(*command, **options):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          check=False, **options)


def run(*command, **options):
    """Output of a command that must succeed."""
    done = attempt(*command, **options)
    assert done.returncode == 0, f"{command}: {done.stdout}"
    return done.stdout


def text_of(path):
    with open(path, encoding="utf-8") as f:
        return f.read()


def packaging(*names):
    return [os.path.join(PACKAGING, name) for name in names]


class Case(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="kwcc it's 100% $HOME ")  # a path with everything
        self.addCleanup(shutil.rmtree, self.folder)
        self.home = os.path.join(self.folder, "home")
        self.prefix = os.path.join(self.folder, "in st")

    def install(self, *options):
        run("cmake", "--install", BUILD, "--prefix", self.prefix, *options)

    def write(self, name, text):
        """A file in the test's folder; its path."""
        path = os.path.join(self.folder, name)
        with open(path, "w", encoding="ascii") as f:
            f.write(text)
        return path

    def environment(self):
        rest = {k: v for k, v in os.environ.items() if not k.startswith("XDG_")}
        return dict(rest, HOME=self.home, QT_QPA_PLATFORM="offscreen")


class Texts(Case):
    def test_desktop_entries_metainfo_types_and_manual_pages_are_valid(self):
        run("desktop-file-validate", *glob.glob(PACKAGING + "/*.desktop"))
        run("appstreamcli", "validate", "--no-net", *packaging("org.kewlink.console.metainfo.xml"))
        run("mandoc", "-T", "lint", "-W", "warning", *glob.glob(PACKAGING + "/man/*.1"))
        for shell, script in (("bash", "launcher.sh"), ("sh", "add-to-menu.sh")):
            run(shell, "-n", *packaging(script))

    def test_the_texts_tell_what_the_programs_do(self):
        for program in ("boardsim", "kwports", "KWPlot"):
            page = re.sub(r".\x08", "", run("mandoc", "-T", "ascii", *packaging(f"man/{program}.1")))
            told = set(re.findall(r"--[a-z-]+", page))
            help_text = run(os.path.join(BUILD, "bin", program), "--help")
            self.assertLessEqual(told, set(re.findall(r"--[a-z-]+", help_text)) | {"--version"})
        version = os.environ["KWCC_VERSION"]
        for name, words in (("changelog", f"console ({version}) "),
                            ("org.kewlink.console.metainfo.xml", f'<release version="{version}"')):
            self.assertIn(words, text_of(packaging(name)[0]))


class Folder(Case):
    def test_it_works_where_it_lies_and_its_window_fits_a_small_display(self):
        self.install()
        moved = os.path.join(self.folder, "moved here")
        os.rename(self.prefix, moved)
        for name in ("LICENSE", "THIRD-PARTY.txt", "data/html/index.htm", "data/html2/index.htm",
                     "udev/70-kewlink-console.rules", "examples/hello.bas"):
            self.assertTrue(os.path.isfile(os.path.join(moved, name)), name)
        for name in ("KWEdit", "KWPlot", "libkewlink_web.so", "kwports"):
            self.assertNotIn("not found", run("ldd", os.path.join(moved, name)))
        self.assertIn("picomite", run(os.path.join(moved, "boardsim"), "--list-boards"))
        settings = os.path.join(moved, "data", "KWCC.inf")
        with Desktop("1366x768") as desktop:
            console = Console(desktop, os.path.join(moved, "KWCC"))
            place = console.geometry()
            console.click(300, CONTENT_TOP + 100)
            self.assertEqual(console.close(), 0)
        kept = dict(re.findall("^(.+) = (.*)$", text_of(settings), re.M))
        width, height, rows = (int(kept[key]) for key in ("VT width", "VT height", "Number of rows"))
        self.assertEqual((kept["Characters per line"], rows), ("101", 30))
        # Room for the scroll bar, and for a panel below.
        self.assertTrue(width + 40 <= place["WIDTH"] <= 1366 - place["X"], place)
        least = console.menu_height + CONTENT_TOP + height + 10
        self.assertTrue(least <= place["HEIGHT"] <= 768 - 40 - place["Y"], place)
        with open(settings, "a", encoding="utf-8") as f:
            f.write("[Mine]\n")
        self.prefix = moved
        self.install()  # again, over what the user has
        self.assertIn("[Mine]", text_of(settings))


class UserFolder(Case):
    def setUp(self):
        super().setUp()
        self.install("--component", "system")
        self.shared = os.path.join(self.prefix, "libexec/kewlink-console")
        self.own = os.path.join(self.home, ".local/share/kewlink-console")
        self.settings = os.path.join(self.own, "data/KWCC.inf")

    def launch(self, name, *arguments, **options):
        environment = dict(self.environment(), **options)
        return subprocess.Popen([os.path.join(self.prefix, "bin", name), *arguments],
                                env=environment, stderr=subprocess.PIPE, stdout=subprocess.PIPE,
                                cwd=self.folder, text=True)

    def programs(self, name):
        """Process numbers of this user's copies of a program."""
        path = os.path.join(self.own, name)
        return [link.split("/")[2] for link in glob.glob("/proc/[0-9]*/exe")
                if os.path.exists(link) and os.readlink(link).startswith(path)]

    def run_for_a_while(self, name, *arguments):
        """Starts a program and ends it; gives its own arguments."""
        program = {"kwedit": "KWEdit", "kwplot": "KWPlot"}.get(name, "KWCC")
        launcher = self.launch(name, *arguments)
        try:
            number = wait_for(program, lambda: self.programs(program))[0]
            words = text_of(f"/proc/{number}/cmdline").split("\0")[1:-1]
        finally:
            for each in self.programs(program):
                os.kill(int(each), 9)
            launcher.communicate()
        return words

    def test_each_user_gets_settings_that_last_and_a_program_as_new_as_the_package(self):
        self.assertEqual(self.run_for_a_while("kewlink-console", "a  b", "c"), ["a  b", "c"])
        for name in ("data/html2/index.htm", "data/html/index.htm", "libkewlink_web.so"):
            self.assertTrue(os.path.isfile(os.path.join(self.own, name)), name)
        self.assertIn("[Choices]", text_of(self.settings))
        run("sed", "-i", "$a [Mine]\\nkept = 1", self.settings)
        # The old program may be running, so its file is not written to.
        old = os.stat(os.path.join(self.own, "KWCC")).st_ino
        with open(os.path.join(self.shared, "KWCC"), "ab") as f:
            f.write(b"newer")
        self.run_for_a_while("kewlink-console")
        self.assertNotEqual(os.stat(os.path.join(self.own, "KWCC")).st_ino, old)
        run("cmp", os.path.join(self.own, "KWCC"), os.path.join(self.shared, "KWCC"))
        run("grep", "kept = 1", self.settings)
        for name in ("kwedit", "kwplot"):
            self.assertEqual(self.run_for_a_while(name, "x y"), ["x y"])
        self.assertTrue(os.path.isfile(self.prefix + "/lib/udev/rules.d/70-kewlink-console.rules"))

    def test_a_running_console_is_given_the_file(self):
        with contextlib.ExitStack() as free:
            ports = [free.enter_context(socket.create_server(("", 0))).getsockname()[1]
                     for _ in range(3)]
        board = socket.create_server(("127.0.0.1", 0))
        self.addCleanup(board.close)
        board.settimeout(60)
        os.makedirs(os.path.dirname(self.settings))
        self.write(self.settings, "[Network]\nIP control port = %d\nIP data port = %d\n"
                   "KWedit control port = %d\n" % tuple(ports))
        self.write("a  b.bas", "'target s\\picomite ip\\127.0.0.1:%d le\\cr\n" % board.getsockname()[1])
        first = self.launch("kewlink-console")
        try:
            wait_for("console", lambda: self.programs("KWCC"))
            second = self.launch("kewlink-console", "a  b.bas")
            second.communicate(timeout=30)
            self.assertEqual((second.returncode, len(self.programs("KWCC"))), (0, 1))
            board.accept()[0].close()  # the upload has begun
            third = self.launch("kewlink-console")
            self.assertIn("running already", third.communicate(timeout=30)[1])
        finally:
            for each in self.programs("KWCC"):
                os.kill(int(each), 9)
            first.communicate()

    def test_a_failed_start_is_shown_in_a_window(self):
        zenity = self.write("zenity", '#!/bin/sh\nprintf "%s" "$4" >"$HOME/shown"\n')
        os.chmod(zenity, 0o755)
        for options, status, words in (({"QT_QPA_PLATFORM": "nothing"}, 134, "platform plugin"),
                                       ({"XDG_DATA_HOME": zenity}, 1, "cannot be made")):
            failed = self.launch("kewlink-console", PATH=self.folder + ":" + os.environ["PATH"], **options)
            failed.communicate(timeout=60)
            self.assertEqual(failed.returncode, status)
            self.assertIn(words, text_of(os.path.join(self.home, "shown")))
            os.chmod(self.home, 0o755)

    @unittest.skipUnless(os.geteuid() == 0, "another user's port needs another user")
    def test_ports_of_another_user_are_left_to_them(self):
        done = attempt("unshare", "-n", "sh", "-c", """
            setpriv --reuid=65534 --clear-groups python3 -c '
import socket, time
s = socket.create_server(("0.0.0.0", 50900)); print(flush=True); time.sleep(60)' >"$HOME.ready" & other=$!
            until [ -s "$HOME.ready" ]; do sleep 0.1; done
            QT_QPA_PLATFORM=nothing "$1"; kill $other""", "sh",
                       self.prefix + "/bin/kewlink-console", env=self.environment())
        self.assertTrue(os.path.exists(self.settings), done.stdout)
        kept = dict(re.findall("^(.*port) = (.*)$", text_of(self.settings), re.M))
        self.assertEqual([kept[key] for key in ("IP control port", "IP data port",
                                                "KWedit control port")], ["50901", "50902", "6834"])


class MenuEntries(Case):
    def test_the_folder_adds_itself_to_the_menu_by_its_own_path(self):
        self.install()
        odd = os.path.join(self.folder, 'a "b" `c` \\d')
        os.rename(self.prefix, odd)
        run(os.path.join(odd, "add-to-menu"), env=self.environment())
        entries = os.path.join(self.home, ".local/share/applications")
        for name, program in (("kewlink-console", "KWCC"), ("kwedit", "KWEdit"), ("kwplot", "KWPlot")):
            path = os.path.join(entries, name + ".desktop")
            run("desktop-file-validate", path)
            line = re.search(r'^Exec="(.*)" %[fF]$', text_of(path), re.M).group(1)
            # As a desktop reads it: the value's escapes, then those in quotes, then field codes.
            text = re.sub(r"\\(.)", r"\1", re.sub(r"\\\\", r"\\", line)).replace("%%", "%")
            self.assertEqual(text, os.path.join(odd, program))
        kinds = dict(re.findall(r"^\d+:(\S+):\*(.ba[se])$",
                                text_of(self.home + "/.local/share/mime/globs2"), re.M))
        self.assertEqual(sorted(kinds.values()), [".bae", ".bas"])
        openers = dict(re.findall("^(.*)=(.*)$", text_of(entries + "/mimeinfo.cache"), re.M))
        self.assertEqual(openers, {"text/csv": "kwplot.desktop;",
                                   **dict.fromkeys(kinds, "kwedit.desktop;")})
        run(os.path.join(odd, "add-to-menu"), "--remove", env=self.environment())
        left = [n for n in os.listdir(entries) if n.endswith(".desktop")]
        self.assertEqual(left + os.listdir(self.home + "/.local/share/mime/packages"), [])


class Package(Case):
    """The Debian package, named in KWCC_DEB; ./test --package builds it and runs this."""

    def setUp(self):
        super().setUp()
        run("dpkg-deb", "-x", os.environ["KWCC_DEB"], self.prefix)

    def test_it_asks_for_what_its_programs_need(self):
        fields = {name: set(re.findall(r"(?:^|, )([a-z0-9.+-]+)", run(
            "dpkg-deb", "-f", os.environ["KWCC_DEB"], name))) for name in ("Depends", "Recommends")}
        # One library that only KWCC has, one of kwports alone, one of boardsim as well.
        self.assertLessEqual({"libsodium23", "libqt5serialport5", "libstdc++6"}, fields["Depends"])
        self.assertIn("libqt5webkit5", fields["Recommends"] - fields["Depends"])
        for program in glob.glob(self.prefix + "/usr/libexec/*/[Kl]*"):
            self.assertIn("BIND_NOW", run("readelf", "-d", program), program)


def usb(number, vendor, product, port, name, facts=""):
    """A USB device with a serial port, as umockdev describes it; `facts` are udev's own."""
    device = f"/devices/usb1/1-{number}"
    major = 166 if name.startswith("ttyACM") else 188
    return (f"P: {device}\nN: bus/usb/001/00{number}\nE: SUBSYSTEM=usb\nE: DEVTYPE=usb_device\n"
            f"E: DEVNAME=/dev/bus/usb/001/00{number}\nA: idVendor={vendor}\nA: idProduct={product}\n\n"
            f"P: {device}/tty/{name}\nN: {name}\nE: SUBSYSTEM=tty\nE: DEVNAME=/dev/{name}\n"
            f"E: MAJOR={major}\nE: MINOR={port}\n{facts}\n")


# A /run and a /dev of their own, for what udev writes; a few real devices stay.
OWN_PLACES = """
mount --rbind /dev "$1" && mount -t tmpfs none /dev || exit 1
for name in null zero random urandom; do : >/dev/$name; mount --bind "$1/$name" /dev/$name; done
mkdir /dev/pts && mount --rbind "$1/pts" /dev/pts && ln -s pts/ptmx /dev/ptmx || exit 1
mount -t tmpfs none /run
"""


def own_places(script, *arguments):
    """Runs a script where it cannot touch the machine's devices."""
    folder = tempfile.mkdtemp()
    try:
        return attempt("unshare", "-rm", "sh", "-c", OWN_PLACES + script, "sh", folder, *arguments)
    finally:
        os.rmdir(folder)


class Ports(Case):
    def listed(self, description):
        path = self.write("device.umockdev", description)
        # The preloaded testbed comes before the sanitizer, and LeakSanitizer stops in it.
        return attempt("umockdev-run", "-d", path, "--", os.path.join(BUILD, "bin/kwports"),
                       env=dict(os.environ, ASAN_OPTIONS="verify_asan_link_order=0:detect_leaks=0"))

    def test_a_board_is_listed_with_what_hangs_on_its_port(self):
        board = usb(1, "2e8a", "000a", 0, "ttyACM0", "E: ID_VENDOR_ID=2e8a\nE: ID_MODEL_ID=000a\n"
                    "E: ID_VENDOR=Raspberry_Pi\nE: ID_MODEL=Pico\nE: ID_SERIAL_SHORT=E66\n")
        done = self.listed(board)
        self.assertEqual((done.returncode, done.stdout), (0, "/dev/ttyACM0\n"
            "  device         Raspberry Pi Pico (2e8a:000a), serial number E66\n"
            "  access         you may open it\n"
            "  specification  'target s\\picomite port\\ttyACM0:115200 le\\cr\n"))
        no_port = board.split("\n\n", maxsplit=1)[0] + "\n\n"
        self.assertEqual(self.listed(no_port).returncode, 1)

    def test_a_port_is_looked_at_by_name(self):
        kwports = os.path.join(BUILD, "bin/kwports")
        ends = pty.openpty()
        line = os.ttyname(ends[1])
        link = os.path.join(self.folder, "link")
        os.symlink(line, link)
        self.assertRegex(run(kwports, link), rf"^{line}\n(.*\n)+  held by .*\({os.getpid()}\)\n"
                         rf"  specification  'target s\\picomite port\\{line[5:]}:115200 le\\cr\n")
        os.chmod(line, 0)
        nobody = ["setpriv", "--reuid=65534", "--clear-groups"] if os.geteuid() == 0 else []
        self.assertIn("only its owner", run(*nobody, kwports, line))
        for end in ends:
            os.close(end)
        done = attempt(kwports, "/dev/ttyUSBx")  # a pty's number, once free, is another test's pty at once
        self.assertEqual((done.returncode, done.stdout), (1, "kwports: there is no port /dev/ttyUSBx\n"))


class UdevRules(Case):
    BOARDS = [("2e8a", "000a"), ("04d8", "000a"), ("0483", "5740"), ("1a86", "7523"), ("10c4", "ea60"),
              ("0403", "6001"), ("067b", "2303")]

    def test_rules_are_whole_on_any_machine(self):
        """What can be said of the file without a udev that may be tried."""
        text = text_of(packaging("udev/70-kewlink-console.rules")[0])
        token = r'[A-Z]+(\{\w+\})?(==|!=|=|\+=)"[^"]*"'
        for line in re.findall("^[^#\n].*", text, re.M):
            self.assertRegex(line, f"^{token}(, {token})*$")
        self.assertEqual(*(set(re.findall(k + '="([^"]*)"', text)) for k in ("GOTO", "LABEL")))

    @unittest.skipUnless(own_places("").returncode == 0, "this machine gives no /dev of one's own")
    def test_links_access_and_modem_manager(self):
        """The machine's own udev, with made-up devices, in a /dev and /run of its own."""
        devices = [(*ids, i % 4, f"ttyACM{i % 4}") for i, ids in enumerate(self.BOARDS)]
        devices += [("12d1", "1001", 3, "ttyUSB3"), ("12d1", "1001", 4, "ttyUSB4")]
        for number, (vendor, product, port, name) in enumerate(devices, 1):
            known = (vendor, product) in self.BOARDS
            seen = self.udev(usb(number, vendor, product, port, name), f"usb1/1-{number}/tty/{name}")
            link = f"DEVLINKS=/dev/{name.upper()}"
            self.assertEqual(link in seen.split("\n"), port < 4, seen)
            self.assertEqual("ID_MM_PORT_IGNORE=1" in seen, known, seen)
            self.assertEqual("run: 'uaccess'" in seen, known, seen)
            self.assertNotRegex(seen, r"kewlink-console\.rules:\d+ (?!LINK)")
            device = self.udev(usb(number, vendor, product, port, name), f"usb1/1-{number}")
            self.assertEqual("ID_MM_DEVICE_IGNORE=1" in device, known, device)

    @unittest.skipUnless(own_places("").returncode == 0, "this machine gives no /dev of one's own")
    def test_kwports_finds_the_name_by_the_serial_number(self):
        seen = own_places('ln -s null /dev/KW-A1 && "$2" null', BUILD + "/bin/kwports").stdout
        self.assertIn("in any socket  'target s\\picomite port\\KW-A1:115200 le\\cr\n", seen)

    @unittest.skipUnless(own_places("").returncode == 0, "this machine gives no /dev of one's own")
    def test_a_board_has_a_name_by_its_serial_number(self):
        for serial, interface, name in (("E6614", "00", "KW-E6614"), ("E6614", "02", "KW-E6614-02"),
                                        ("0001", "00", None), ("a:b", "00", None), ("", "00", None)):
            facts = f"E: ID_SERIAL_SHORT={serial}\nE: ID_USB_INTERFACE_NUM={interface}\n"
            seen = self.udev(usb(1, "2e8a", "000a", 5, "ttyACM5", facts), "usb1/1-1/tty/ttyACM5")
            self.assertEqual(re.findall("^DEVLINKS=.*?/dev/(KW-[^ \n]*)", seen, re.M),
                             [name] if name else [], seen)

    def udev(self, description, device):
        path = self.write("device.umockdev", description)
        done = own_places('mkdir -p /run/udev/rules.d && cp "$2" /run/udev/rules.d && '
                          'umockdev-run -d "$3" -- udevadm test --action=add "/sys/devices/$4"',
                          packaging("udev/70-kewlink-console.rules")[0], path, device)
        self.assertEqual(done.returncode, 0, done.stdout)
        return done.stdout


if __name__ == "__main__":
    unittest.main()
