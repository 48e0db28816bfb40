"""What a user installs, tried in fresh folders and under fresh homes."""
import os
import re
import shutil
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

    def environment(self):
        rest = {k: v for k, v in os.environ.items() if not k.startswith("XDG_")}
        return dict(rest, HOME=self.home, QT_QPA_PLATFORM="offscreen")


class Texts(Case):
    def test_desktop_entries_metainfo_and_manual_pages_are_valid(self):
        run("desktop-file-validate", *packaging("kewlink-console.desktop", "kwedit.desktop"))
        run("appstreamcli", "validate", "--no-net", *packaging("org.kewlink.console.metainfo.xml"))
        run("mandoc", "-T", "lint", "-W", "warning",
            *packaging("man/KWCC.1", "man/KWEdit.1", "man/boardsim.1"))
        for script in packaging("launcher.sh", "add-to-menu.sh"):
            run("sh", "-n", script)

    def test_the_texts_tell_what_the_programs_do(self):
        page = re.sub(r".\x08", "", run("mandoc", "-T", "ascii", *packaging("man/boardsim.1")))
        options = [set(re.findall(r"--[a-z-]+", text))
                   for text in (page, run(os.path.join(BUILD, "bin", "boardsim"), "--help"))]
        self.assertEqual(*options)
        version = os.environ["KWCC_VERSION"]
        changes, metainfo = map(text_of, packaging("changelog", "org.kewlink.console.metainfo.xml"))
        self.assertTrue(changes.startswith(f"kewlink-console ({version}) "))
        self.assertIn(f'<release version="{version}"', metainfo)


class Folder(Case):
    def test_it_works_where_it_lies_and_keeps_its_settings_there(self):
        self.install()
        moved = os.path.join(self.folder, "moved here")
        os.rename(self.prefix, moved)
        for name in ("LICENSE", "THIRD-PARTY.txt", "data/html/index.htm", "data/html2/index.htm",
                     "udev/70-kewlink-console.rules", "examples/hello.bas"):
            self.assertTrue(os.path.isfile(os.path.join(moved, name)), name)
        for name in ("KWEdit", "libkewlink_web.so"):
            self.assertNotIn("not found", run("ldd", os.path.join(moved, name)))
        self.assertIn("picomite", run(os.path.join(moved, "boardsim"), "--list-boards"))
        settings = os.path.join(moved, "data", "KWCC.inf")
        with open(settings, "w", encoding="ascii") as f:
            f.write("[Windows]\nMainX = 30\nMainY = 20\nMainW = 960\nMainH = 1000\n")
        with Desktop() as desktop:
            console = Console(desktop, os.path.join(moved, "KWCC"))
            console.click(300, CONTENT_TOP + 100)
            self.assertEqual(console.close(), 0)
        self.assertIn("MainW = 960", text_of(settings))


class UserFolder(Case):
    def start(self, name):
        process = subprocess.Popen([os.path.join(self.prefix, "bin", name)], env=self.environment(),
                                   stderr=subprocess.DEVNULL, cwd=self.folder)
        own = os.path.join(self.home, ".local/share/kewlink-console")
        program = os.path.join(own, "KWEdit" if name == "kwedit" else "KWCC")
        try:
            wait_for(program, lambda: os.readlink(f"/proc/{process.pid}/exe") == program)
            if name != "kwedit":
                wait_for("settings", lambda: os.path.exists(os.path.join(own, "data/KWCC.inf")))
        finally:
            process.kill()
            process.wait()
        return own

    def test_the_launcher_gives_each_user_settings_that_last(self):
        self.install("--component", "system")
        shared = os.path.join(self.prefix, "libexec/kewlink-console")
        own = self.start("kewlink-console")
        for name in ("data/html2/index.htm", "data/html/index.htm", "libkewlink_web.so"):
            self.assertTrue(os.path.isfile(os.path.join(own, name)), name)
        self.assertFalse(os.path.exists(os.path.join(shared, "data/KWCC.inf")))
        settings = os.path.join(own, "data/KWCC.inf")
        run("sed", "-i", "$a [Mine]\\nkept = 1", settings)
        # The package brings a new program; the old one may be running, so its file is not written to.
        old = os.stat(os.path.join(own, "KWCC")).st_ino
        with open(os.path.join(shared, "KWCC"), "ab") as f:
            f.write(b"newer")
        self.start("kewlink-console")
        self.assertNotEqual(os.stat(os.path.join(own, "KWCC")).st_ino, old)
        run("cmp", os.path.join(own, "KWCC"), os.path.join(shared, "KWCC"))
        run("grep", "kept = 1", settings)
        self.home += " of another"
        another = self.start("kwedit")
        self.assertEqual(sorted(os.listdir(another)),
                         ["KWCC", "KWEdit", "data", "libkewlink_web.so"])


class MenuEntries(Case):
    def test_the_folder_adds_itself_to_the_menu_by_its_own_path(self):
        self.install()
        odd = os.path.join(self.folder, 'a "b" `c` \\d')
        os.rename(self.prefix, odd)
        run(os.path.join(odd, "add-to-menu"), env=self.environment())
        entries = os.path.join(self.home, ".local/share/applications")
        for name, program in (("kewlink-console", "KWCC"), ("kwedit", "KWEdit")):
            path = os.path.join(entries, name + ".desktop")
            run("desktop-file-validate", path)
            line = re.search(r'^Exec="(.*)" %[fF]$', text_of(path), re.M).group(1)
            # As a desktop reads it: the value's escapes, then those in quotes, then field codes.
            text = re.sub(r"\\(.)", r"\1", re.sub(r"\\\\", r"\\", line)).replace("%%", "%")
            self.assertEqual(text, os.path.join(odd, program))
        run(os.path.join(odd, "add-to-menu"), "--remove", env=self.environment())
        self.assertEqual(os.listdir(entries), [])


def usb(number, vendor, product, port, name):
    """A USB device with a serial port, as umockdev describes it."""
    device = f"/devices/usb1/1-{number}"
    major = 166 if name.startswith("ttyACM") else 188
    return (f"P: {device}\nN: bus/usb/001/00{number}\nE: SUBSYSTEM=usb\nE: DEVTYPE=usb_device\n"
            f"E: DEVNAME=/dev/bus/usb/001/00{number}\nA: idVendor={vendor}\nA: idProduct={product}\n\n"
            f"P: {device}/tty/{name}\nN: {name}\nE: SUBSYSTEM=tty\nE: DEVNAME=/dev/{name}\n"
            f"E: MAJOR={major}\nE: MINOR={port}\n\n")


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


class UdevRules(Case):
    BOARDS = [("2e8a", "000a"), ("04d8", "000a"), ("0483", "5740"), ("1a86", "7523"), ("10c4", "ea60"),
              ("0403", "6001"), ("067b", "2303")]

    def test_rules_are_whole_on_any_machine(self):
        """What can be said of the file without a udev that may be tried."""
        path = packaging("udev/70-kewlink-console.rules")[0]
        lines = [line for line in text_of(path).split("\n") if line and line[0] != "#"]
        token = r'[A-Z]+(\{\w+\})?(==|!=|=|\+=)"[^"]*"'
        for line in lines:
            self.assertRegex(line, f"^{token}(, {token})*$")
        named = {kind: set(re.findall(kind + '="([^"]*)"', "\n".join(lines)))
                 for kind in ("GOTO", "LABEL")}
        self.assertEqual(named["GOTO"], named["LABEL"])
        links = re.findall(r'^KERNEL=="(\w+)", SYMLINK\+="(\w+)"$', "\n".join(lines), re.M)
        self.assertEqual(links, [(f"tty{kind}{i}", f"TTY{kind}{i}") for kind in ("USB", "ACM")
                                 for i in range(4)])
        self.assertLess(int(os.path.basename(path)[:2]), 73)  # where the seat's user gets access

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

    def udev(self, description, device):
        path = os.path.join(self.folder, "device.umockdev")
        with open(path, "w", encoding="ascii") as f:
            f.write(description)
        done = own_places('mkdir -p /run/udev/rules.d && cp "$2" /run/udev/rules.d && '
                          'umockdev-run -d "$3" -- udevadm test --action=add "/sys/devices/$4"',
                          packaging("udev/70-kewlink-console.rules")[0], path, device)
        self.assertEqual(done.returncode, 0, done.stdout)
        return done.stdout


if __name__ == "__main__":
    unittest.main()
