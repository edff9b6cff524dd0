"""What the end-to-end tests share: one stage a test class, one publisher and one freshly
installed launcher a test."""
import functools
import os
import pathlib
import re
import sys
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools"))

from stage import BIN, KEY, ROOT, Stage, StageError, pack_player, wait_for, windows_path  # noqa: E402

TITLE_BAR = "6dabff"  # of every window
RUN_KEY = r"Software\Microsoft\Windows\CurrentVersion\Run"  # below HKEY_CURRENT_USER
PACKAGE = ROOT / "build/player16.7z"

# The launcher's windows beside the main one: class and skin.
SETTINGS = ("QzVySetupFrame", "xm_setupframe.xml")
CHECK = ("updatecheckframe", "updatecheckframe.xml")
UPDATE = ("updateFrame", "updateframe.xml")
BOX = ("MessageBoxWindow", "common/xml_messagebox.xml")
FOLDERS = ("#32770", None)  # the system's dialog for choosing a folder
MAIN = ("QZVYMainFrame", None)


@functools.cache
def places_of(wine, skin):
    """Centres of the named controls of a skin file at its design size."""
    markup = (ROOT / "skin" / skin).read_text(encoding="utf-8")
    size = re.search(r'<Window size="(\d+),(\d+)"', markup).groups()
    output, _ = wine.call(windows_path(BIN / "vynkit.exe"), "layout", windows_path(ROOT / "skin" / skin), *size)
    places = {}
    for name, *sides in re.findall(r"#(\w+) (-?\d+),(-?\d+),(-?\d+),(-?\d+)", output):
        left, top, right, bottom = map(int, sides)
        places.setdefault(name, ((left + right) // 2, (top + bottom) // 2))
    return places


class Scene(unittest.TestCase):
    SCREEN = "1920x1080"

    @classmethod
    def setUpClass(cls):
        pack_player(PACKAGE, "--megabytes", "16")
        cls.stage = Stage("e2e", size=cls.SCREEN).__enter__()

    @classmethod
    def tearDownClass(cls):
        cls.stage.__exit__(None, None, None)

    def setUp(self):
        self.publisher = self.stage.publisher()
        os.link(PACKAGE, self.publisher.folder / "player.7z")
        self.publisher.configuration(appminversion=5100, playerminversion=2100)
        self.publisher.player("/player.7z")
        self.launcher = self.stage.launcher()
        self.expected = list(ORDINARY)

    def tearDown(self):
        self.stage.display.screenshot(ROOT / f"build/screenshots/{self.id().split('.', 1)[1]}.png")
        self.stage.wine.end_programs()
        self.assertEqual(self.unexpected(), [], "log lines of errors that the test did not ask for")

    def expect_errors(self, *texts):
        """From here on: lines that hold one of these texts are what the test is about."""
        self.expected += texts

    def unexpected(self):
        signs = ("error", "fail", "refuse")
        return [line for line in (self.launcher.earlier + self.launcher.log()).splitlines()
                if any(sign in line.lower() for sign in signs) and not any(text in line for text in self.expected)]

    # -- The launcher's windows, and a user's hands on them.

    def windows(self):
        """The launcher's visible ones, from the top down."""
        return [window for window in self.stage.wine.windows() if window.program == "tkvyn.exe"]

    def count(self, kind):
        return sum(window.name == kind[0] for window in self.windows())

    def find(self, kind):
        return next((window for window in self.windows() if window.name == kind[0]), None)

    def wait_open(self, kind, seconds=15):
        return wait_for(lambda: self.find(kind), seconds, f"the window {kind[0]}")

    def wait_button(self, kind, control):
        """A button shows: its colour is not that of the window any more."""
        window = self.wait_open(kind)
        x, y = places_of(self.stage.wine, kind[1])[control]
        ground = self.stage.display.pixel(window.x + 3, window.y + window.height // 2)
        wait_for(lambda: self.stage.display.pixel(window.x + x, window.y + y) != ground, 20, f"the button {control}")

    def wait_closed(self, kind, seconds=15):
        wait_for(lambda: not self.find(kind), seconds, f"the end of the window {kind[0]}")

    def wait_active(self, *kinds):
        """Until a window of these kinds has the keyboard, the main window without any; its class."""
        names = [kind[0] for kind in kinds or [MAIN]]
        return wait_for(lambda: next((w.name for w in self.windows() if w.active and w.name in names), None), 20,
                        f"the keyboard for {names}")

    def press(self, kind, control):
        """Once the window is painted: a hand does not hit what it does not see. Wine's desktop may lay a
        window above what it owns, as Windows never does."""
        window = self.wait_open(kind)
        self.stage.wine.give_keyboard(kind[0])
        wait_for(lambda: self.stage.display.pixel(window.x + 6, window.y + 8) == TITLE_BAR, 20,
                 f"the window {kind[0]} in front")
        x, y = places_of(self.stage.wine, kind[1])[control]
        self.stage.display.click(window.x + x, window.y + y)

    def keys(self, *names):
        self.stage.wine.keys(*names)

    def picture(self, name):
        self.stage.display.screenshot(ROOT / f"build/screenshots/{name}.png")

    def open_settings(self):
        self.launcher.click(self.launcher.SETUP)
        self.wait_active(SETTINGS)

    def wait_list(self):
        wait_for(lambda: any(window.name == "ComboWnd" for window in self.windows()), 20, "the list")

    def choose_language(self):
        """The one below the present one; the window asks for a restart."""
        self.press(SETTINGS, "languageCombo")
        self.wait_list()
        self.keys("Down")
        self.wait_active(BOX)

    def written(self):
        """The settings as they lie on the disk."""
        try:
            return (self.launcher.folder / "config.data").read_text()
        except OSError:
            return ""

    def wait_written(self, record):
        wait_for(lambda: record in self.written().split("|"), 10, f"{record} in config.data")

    def registry(self, key, value):
        """The text of a value below HKEY_CURRENT_USER, or None."""
        return self.stage.wine.registry(key, value)

    def wait_folders_stand_on(self, name):
        """The dialog for choosing a folder opens its tree down to the present path, which it tells nobody."""
        wait_for(lambda: "".join(self.stage.wine.agent.ask("folder")).endswith(f"\\{name}\\"), 20,
                 f"the folder dialog on {name}")

    def install(self):
        """A first installation, quietly to its end."""
        self.launcher.start()
        self.launcher.click(self.launcher.START)
        self.launcher.wait_log("\\driverconfig.exe]", 120)

    def open_game(self):
        """Presses the start button until the game's window is up."""
        def game_is_up():
            if self.stage.wine.window("VYN Game"):
                return True
            if self.launcher.window():
                self.launcher.click(self.launcher.START)
            return False
        wait_for(game_is_up, 60, "the game's window")

    def assert_installed(self):
        report = (self.launcher.game / "repair.log").read_text()
        self.assertRegex(report, r"^\d+ files good, 0 bad")
        self.assertEqual((self.launcher.game / "playerversion").read_text(), "2100")

    def counts(self):
        """What the launcher holds: handles, threads, windows, GDI objects."""
        text, code = self.stage.wine.call(BIN / "vynkit.exe", "counts", "tkvyn.exe")
        self.assertEqual(code, 0, text)
        return [int(n) for n in re.findall(r"\d+", text)]

    def settled_counts(self):
        """Counts that stand still for two seconds: some threads of the system end a moment later."""
        counts, since = None, 0

        def still():
            nonlocal counts, since
            now = self.counts()
            if now != counts:
                counts, since = now, time.monotonic()
            return time.monotonic() - since > 2
        wait_for(still, 60, "counts that stand still")
        return counts

    def assert_no_growth(self, before, after, limit):
        print(f"handles, threads, windows, GDI objects: {before} before, {after} after")
        for name, old, new in zip(("handles", "threads", "windows", "GDI objects"), before, after):
            self.assertLess(new - old, limit, f"{name}: {before} before, {after} after")


# What an ordinary first run reports although nothing is wrong.
ORDINARY = (
    "taskkill", "exitcode = 128",          # nothing to end
    "open config file error 2",            # no settings yet
    "initCrashReport error",               # no crash reporter beside the program
    "load Noto Sans fonts",                # no font folder beside the program
    "open reg =", "lastError = 0",         # no registry key yet; success lines that name an error of 0
    "read reg lastError = 2",              # no value of its own yet
    "RemoveDirectory error",               # no log folder yet
)


def main():
    try:
        program = unittest.main(module="__main__", warnings="ignore", exit=False)
    except StageError as error:
        sys.exit(str(error))
    sys.exit(not program.result.wasSuccessful())
