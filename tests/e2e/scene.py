"""What the end-to-end tests share: one stage a test class, one publisher and one freshly
installed launcher a test."""
import os
import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools"))

from stage import BIN, ROOT, Stage, StageError, pack_player, wait_for, windows_path  # noqa: E402

PACKAGE = ROOT / "build/e2e/player.7z"


class Scene(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        pack_player(PACKAGE, "--megabytes", "16")
        cls.stage = Stage("e2e").__enter__()

    @classmethod
    def tearDownClass(cls):
        cls.stage.__exit__(None, None, None)

    def setUp(self):
        self.publisher = self.stage.publisher()
        os.link(PACKAGE, self.publisher.folder / "player.7z")
        self.publisher.configuration(appminversion=5100, playerminversion=2100)
        self.publisher.player("/player.7z")
        self.launcher = self.stage.launcher()

    def tearDown(self):
        self.stage.display.screenshot(ROOT / f"build/screenshots/{self.id().split('.', 1)[1]}.png")
        self.stage.wine.kill()
        self.stage.wine.server("-p")

    def install(self):
        """A first installation, quietly to its end."""
        self.launcher.start()
        self.launcher.click(self.launcher.START)
        self.launcher.wait_log("\\driverconfig.exe]", 120)

    def open_game(self):
        """Presses the start button until the game's window is up."""
        def game_is_up():
            if self.stage.display.window("VYN Game"):
                return True
            if self.launcher.window():
                self.launcher.click(self.launcher.START)
            return False
        wait_for(game_is_up, 60, "the game's window")

    def assert_installed(self):
        report = (self.launcher.game / "repair.log").read_text()
        self.assertRegex(report, r"^\d+ files good, 0 bad")
        self.assertEqual((self.launcher.game / "playerversion").read_text(), "2100")

    def unexpected(self, *allowed):
        """Log lines that tell of a failure and that the test did not ask for."""
        signs = ("error", "fail", "refuse")
        return [line for line in self.launcher.log().splitlines()
                if any(sign in line.lower() for sign in signs) and not any(text in line for text in allowed)]


# What an ordinary first run reports although nothing is wrong.
ORDINARY = (
    "taskkill", "exitcode = 128",          # nothing to end
    "open config file error 2",            # no settings yet
    "initCrashReport error",               # no crash reporter beside the program
    "load Noto Sans fonts",                # no font folder beside the program
    "open reg =", "lastError = 0",         # no registry key yet; success lines that name an error of 0
    "RemoveDirectory error",               # no log folder yet
)


def main():
    try:
        unittest.main(module="__main__", warnings="ignore")
    except StageError as error:
        sys.exit(str(error))
