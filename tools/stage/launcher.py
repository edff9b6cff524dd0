"""tkvyn.exe on a stage."""
import shutil

from .basics import BIN, TABLE, wait_for, windows_path

# Languages that the launcher chooses by a market's short code; English goes for all others.
MARKETS = {"zh_TW": "tw", "zh_CN": "cn", "ko_KR": "kr", "ja_JP": "jp", "vi_VN": "vn", "th_TH": "th", "pt_PT": "pt",
           "in_ID": "id"}
KEY = r"Software\wexlane\VYN"  # below HKEY_CURRENT_USER


class Launcher:
    """The launcher in a folder of its own, freshly installed unless an earlier one is kept."""

    # Centres of the controls at the design size of 1642 by 977.
    START = (1384, 860)  # on the button in the small layout, too
    PAUSE = (1055, 861)
    SETUP = (1534, 20)
    MINIMIZE = (1577, 20)
    CLOSE = (1620, 20)
    BROWSE = (462, 887)

    def __init__(self, wine, display, folder, keep=False):
        self.wine, self.display, self.folder = wine, display, folder
        self.process = None
        self.earlier = ""  # logs of earlier starts, which each start empties
        if not keep:
            shutil.rmtree(folder, ignore_errors=True)
            wine.call("reg", "delete", "HKCU\\" + KEY, "/f")
        folder.mkdir(parents=True, exist_ok=True)
        for name in ("tkvyn.exe", "node.dll"):
            shutil.copy(BIN / name, folder)

    @property
    def game(self):
        return self.folder / "game"

    def start(self, locale=None):
        self.start_unseen(locale)
        wait_for(self.window, 30, "the launcher's window")
        self.wine.give_keyboard("QZVYMainFrame")

    def start_unseen(self, locale=None):
        """Without waiting for the window, which may be gone before one looks."""
        self.earlier += self.log()
        self.process = self.wine.start(windows_path(self.folder / "tkvyn.exe"), cwd=self.folder, locale=locale)

    def speak(self, language):
        """From the next start on: by the choice that a user made, or, where no market has the
        language yet, by a table beside the program whose English is that language."""
        market = MARKETS.get(language, "en")
        self.wine.call("reg", "add", "HKCU\\" + KEY, "/v", "Language", "/d", market, "/f")
        if market != "en":
            return
        rows = [line.split("\t") for line in TABLE.read_text(encoding="utf-8").splitlines()]
        column = rows[0].index(language)
        text = "\r\n".join("\t".join([*row[:2], row[column], *row[3:]] if i else row) for i, row in enumerate(rows))
        (self.folder / TABLE.name).write_text(text, encoding="utf-8")

    def window(self):
        """(x, y, width, height) of the visible main window, or None."""
        found = self.wine.window("VYN")
        return found and found[3:7]

    def on_screen(self, place):
        """A place of the design on the screen, where the window has been scaled to it."""
        window = wait_for(self.window, 10, "the launcher's window")
        return window[0] + place[0] * window[2] // 1642, window[1] + place[1] * window[3] // 977

    def click(self, place):
        self.display.click(*self.on_screen(place))

    def log(self):
        try:
            return (self.folder / "log/main.log").read_text(encoding="utf-8", errors="replace")
        except OSError:
            return ""

    def wait_log(self, text, seconds=30, count=1):
        wait_for(lambda: self.log().count(text) >= count, seconds, f"the log line {text!r}")

    def wait_end(self, seconds=30):
        return self.process.wait(timeout=seconds)

    def kill(self):
        self.wine.end_programs("tkvyn.exe")
