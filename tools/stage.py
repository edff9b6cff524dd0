"""The stage on which the real program is run: a display, a Wine prefix, the publisher
and an installed launcher. Used by ./run and by the end-to-end tests.

Everything that is started here ends with the stage, also after Ctrl+C.
"""
import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import time
import urllib.parse
import urllib.request

ROOT = pathlib.Path(__file__).resolve().parent.parent
BIN = ROOT / "build/win32/bin"
PORT = 18080  # the default endpoints of the build
TABLE = ROOT / "skin/multi_language.tsv"
# Languages that the launcher chooses by a market's short code; English goes for all others.
MARKETS = {"zh_TW": "tw", "zh_CN": "cn", "ko_KR": "kr", "ja_JP": "jp", "vi_VN": "vn", "th_TH": "th", "pt_PT": "pt",
           "in_ID": "id"}
REGISTRY_KEY = r"HKCU\Software\wexlane\VYN"


class StageError(Exception):
    """Something that the stage needs is not to be had; the text says what."""


def wait_for(condition, seconds, what):
    """The first true value of condition(), or StageError after so many seconds."""
    deadline = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise StageError(f"waited {seconds} seconds in vain for {what}")
        time.sleep(0.1)


def end_soundly_when_terminated():
    """Makes a termination like Ctrl+C, so that what was started is ended."""
    def interrupt(*_):
        raise KeyboardInterrupt
    signal.signal(signal.SIGTERM, interrupt)


def languages():
    """The codes of the language table."""
    return TABLE.read_text(encoding="utf-8").splitlines()[0].split("\t")[2:]


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def pack_player(out, *options):
    """The player package, packed anew when its programs or its script are newer."""
    programs, script = BIN.parent / "player", ROOT / "player/make_package.py"
    newest = max(p.stat().st_mtime for p in [*programs.glob("*.exe"), script])
    if not out.exists() or out.stat().st_mtime < newest:
        print("packing the player package", flush=True)
        subprocess.run([sys.executable, script, programs, out, *options], check=True)
    return out


class Display:
    """An X display: the user's own, or a virtual one with a window manager and a
    notification area in its lower right corner. Without that, Wine shows the icons in a
    window of its own, which takes the keyboard."""

    def __init__(self, own=False, size="1920x1080", tray=True):
        self.processes = []
        if own:
            self.name = os.environ["DISPLAY"]
            return
        read, write = os.pipe()
        server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", size + "x24", "-nolisten", "tcp"],
                                  pass_fds=[write], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as pipe:
            number = pipe.readline().strip()
        self.processes.append(server)
        if not number:
            raise StageError("Xvfb gives no display")
        self.name = ":" + number
        self._start("openbox", "--sm-disable")
        if tray:
            # Of a fixed width: Wine clips an icon to the width that it finds while it docks.
            self._start("trayer", "--edge", "bottom", "--align", "right", "--widthtype", "pixel", "--width", "60",
                        "--height", "24", "--SetDockType", "true")

    def _start(self, *command):
        self.processes.append(subprocess.Popen(command, env=dict(os.environ, DISPLAY=self.name),
                                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))

    def _run(self, *command):
        result = subprocess.run(command, env=dict(os.environ, DISPLAY=self.name), capture_output=True, text=True)
        return result.stdout

    def click(self, x, y, button=1, times=1):
        self._run("xdotool", "mousemove", str(x), str(y), "click", "--repeat", str(times), "--delay", "60", str(button))

    def move(self, x, y):
        self._run("xdotool", "mousemove", str(x), str(y))

    def key(self, *names):
        self._run("xdotool", "key", *names)

    def type(self, text):
        self._run("xdotool", "type", text)

    def window(self, title):
        """(x, y, width, height) of the visible window of that title, or None."""
        ids = self._run("xdotool", "search", "--onlyvisible", "--name", f"^{title}$").split()
        return self._place(ids[-1]) if ids else None

    def _place(self, window):
        shell = dict(re.findall(r"(\w+)=(-?\d+)", self._run("xdotool", "getwindowgeometry", "--shell", window)))
        return tuple(int(shell[k]) for k in ("X", "Y", "WIDTH", "HEIGHT")) if "X" in shell else None

    def windows(self, program):
        """Places of the visible windows of a program, each as window() gives them."""
        ids = self._run("xdotool", "search", "--onlyvisible", "--class", f"^{program}$").split()
        return [place for place in map(self._place, ids) if place]

    def cover(self, title):
        """Lays the window of that title over the whole screen, in front of all others."""
        self._run("xdotool", "search", "--onlyvisible", "--name", title, "windowactivate", "--sync",
                  "windowmove", "0", "0", "windowsize", "1900", "1040")

    def stacking(self):
        """Titles of the programs' windows, the lowest first."""
        ids = re.findall(r"0x\w+", self._run("xprop", "-root", "_NET_CLIENT_LIST_STACKING"))
        return [self._run("xdotool", "getwindowname", window).strip() for window in ids]

    def active(self):
        """Title of the window that has the focus."""
        return self._run("xdotool", "getactivewindow", "getwindowname").strip()

    def tray_icons(self):
        """Centres of the icons in the notification area."""
        tree = self._run("xwininfo", "-name", "panel", "-tree")
        return [(int(x) + int(w) // 2, int(y) + int(h) // 2) for w, h, x, y in
                re.findall(r'\("explorer\.exe" .*?\)\s+(\d+)x(\d+)\S+\s+\+(\d+)\+(\d+)', tree)]

    def wait_tray_icon(self):
        """The centre of the one icon, once it shows its picture."""
        def painted():
            icons = self.tray_icons()
            return (len(icons) == 1 and len({self.pixel(icons[0][0] + dx, icons[0][1]) for dx in (-4, 0, 4)}) > 1
                    and icons[0])
        return wait_for(painted, 10, "the icon")

    def pixel(self, x, y):
        """The colour at a place of the screen, as RRGGBB."""
        return self.pixels(x, y, 1, 1).hex()

    def screenshot(self, path):
        path.parent.mkdir(parents=True, exist_ok=True)
        self._run("import", "-window", "root", str(path))

    def pixels(self, x, y, width, height):
        """The screen's bytes in a rectangle, to compare."""
        return subprocess.run(["import", "-window", "root", "-crop", f"{width}x{height}+{x}+{y}",
                               "-depth", "8", "rgb:-"],
                              env=dict(os.environ, DISPLAY=self.name), capture_output=True).stdout

    def close(self):
        for process in reversed(self.processes):
            process.terminate()
            process.wait()


class Wine:
    """A prefix of the stage's own, so that its display, registry and processes meet
    nobody else's. Made once."""

    def __init__(self, display):
        self.prefix = ROOT / "build/wine-stage"
        home = ROOT / "build/home"
        home.mkdir(parents=True, exist_ok=True)
        drop = {"LANGUAGE", "LD_PRELOAD"} | {k for k in os.environ if k.lower().endswith("_proxy")}
        self.environment = {k: v for k, v in os.environ.items() if k not in drop}
        self.environment.update(
            WINEPREFIX=str(self.prefix), WINEARCH="win32", WINEDEBUG="-all", WINEDLLOVERRIDES="mscoree,mshtml=",
            HOME=str(home), LC_ALL="C.UTF-8", DISPLAY=display.name)
        self._make_prefix()
        self.server("-p")

    def _make_prefix(self):
        settings = ROOT / "tools/wine.reg"
        done = self.prefix / ".done"  # the settings that the prefix was made with
        if done.exists() and done.read_bytes() == settings.read_bytes():
            self.kill()
            return
        shutil.rmtree(self.prefix, ignore_errors=True)
        self.call("wineboot", "-i")
        self.server("-w")
        self.call("winecfg", "-v", "win10")
        self.call("regedit", "/S", str(settings))
        self.kill()
        shutil.copy(settings, done)

    def start_shell(self):
        """The desktop's shell, under the path that it has on Windows: the game is started
        with its rights. Wine starts one of its own from another folder while it boots; each
        goes a moment after the last program that could show a window."""
        shell = r"C:\windows\explorer.exe"
        if shell.lower() in self.command_lines():
            return
        self.call("cmd", "/c", "ver")  # boots
        wait_for(lambda: "explorer.exe" not in self.processes(), 30, "the end of Wine's own shell")
        self.start(shell, "/desktop")
        wait_for(lambda: shell.lower() in self.command_lines(), 10, "the desktop's shell")

    def server(self, option):
        subprocess.run(["wineserver", option], env=self.environment,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def kill(self):
        """Ends every program of this prefix."""
        self.server("-k")
        self.server("-w")

    def start(self, program, *arguments, cwd=None, locale=None, **options):
        environment = dict(self.environment, **({"LC_ALL": locale} if locale else {}))
        options.setdefault("stdout", subprocess.DEVNULL)
        options.setdefault("stderr", subprocess.DEVNULL)
        return subprocess.Popen(["wine", str(program), *map(str, arguments)], env=environment, cwd=cwd,
                                start_new_session=True, **options)

    def call(self, program, *arguments):
        process = self.start(program, *arguments, stdout=subprocess.PIPE, text=True, errors="replace")
        return process.communicate()[0], process.returncode

    def command_lines(self):
        """Lower-case paths of all running Windows programs of this prefix, as they were
        started."""
        paths = []
        for entry in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                environment = (entry / "environ").read_bytes()
                path = (entry / "cmdline").read_bytes().split(b"\0")[0].decode(errors="replace")
            except OSError:
                continue
            if f"WINEPREFIX={self.prefix}\0".encode() in environment and path.lower().endswith(".exe"):
                paths.append(path.lower())
        return paths

    def processes(self):
        """The same as names alone."""
        return [re.split(r"[\\/]", path)[-1] for path in self.command_lines()]


class Publisher:
    """publisher.exe over a folder of its own, on the port that the build names."""

    def __init__(self, wine, folder):
        self.folder = folder
        self.address = f"http://127.0.0.1:{PORT}"
        shutil.rmtree(folder, ignore_errors=True)
        (folder / "vyn").mkdir(parents=True)
        wine.start_shell()
        self.process = wine.start(BIN / "publisher.exe", windows_path(folder), "--port", PORT,
                                  stdout=subprocess.PIPE, text=True)
        line = self.process.stdout.readline()
        if not line.startswith("listening"):
            raise StageError(f"the publisher cannot listen on port {PORT}; is it taken?")

    def document(self, name, content):
        (self.folder / "vyn" / name).write_text(json.dumps(content), encoding="utf-8")

    def configuration(self, **members):
        self.document("config_sea.data", members)

    def player(self, url, version="2.1.0"):
        self.document("qzvyn", {"sea": {"url": self.address + url, "vershow": version}})

    def update(self, **members):
        self.document("update_en.data", members)

    def _control(self, verb, query=None, method="POST"):
        query = "?" + urllib.parse.urlencode(query) if query else ""
        body = b"" if method == "POST" else None
        request = urllib.request.Request(f"{self.address}/control/{verb}{query}", data=body, method=method)
        opener = urllib.request.build_opener(urllib.request.ProxyHandler({}))
        return opener.open(request, timeout=10).read().decode()

    def fault(self, path, kind, value="", times=0):
        self._control("fault", dict(path=path, kind=kind, value=value, times=times))

    def clear(self):
        """Takes all faults and the list of requests away."""
        self._control("clear")

    def requests(self):
        return self._control("requests", method="GET")


class Launcher:
    """tkvyn.exe in a folder of its own, freshly installed."""

    # Centres of the controls at the design size of 1642 by 977.
    START = (1384, 860)  # on the button in the small layout, too
    PAUSE = (1055, 861)
    SETUP = (1534, 20)
    MINIMIZE = (1577, 20)
    CLOSE = (1620, 20)
    BROWSE = (462, 887)

    def __init__(self, wine, display, folder):
        self.wine, self.display, self.folder = wine, display, folder
        self.process = None
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir(parents=True)
        for name in ("tkvyn.exe", "node.dll"):
            shutil.copy(BIN / name, folder)
        wine.call("reg", "delete", REGISTRY_KEY, "/f")

    @property
    def game(self):
        return self.folder / "game"

    def start(self, locale=None):
        self.start_unseen(locale)
        wait_for(self.window, 30, "the launcher's window")

    def start_unseen(self, locale=None):
        """Without waiting for the window, which may be gone before one looks."""
        self.process = self.wine.start(windows_path(self.folder / "tkvyn.exe"), cwd=self.folder, locale=locale)

    def speak(self, language):
        """From the next start on: by the choice that a user made, or, where no market has the
        language yet, by a table beside the program whose English is that language."""
        market = MARKETS.get(language, "en")
        self.wine.call("reg", "add", REGISTRY_KEY, "/v", "Language", "/d", market, "/f")
        if market != "en":
            return
        rows = [line.split("\t") for line in TABLE.read_text(encoding="utf-8").splitlines()]
        column = rows[0].index(language)
        text = "\r\n".join("\t".join([*row[:2], row[column], *row[3:]] if i else row) for i, row in enumerate(rows))
        (self.folder / TABLE.name).write_text(text, encoding="utf-8")

    def window(self):
        return self.display.window("VYN")

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
        self.wine.call("taskkill", "/F", "/IM", "tkvyn.exe")


class Stage:
    """Display, Wine and a scratch folder; a context that cleans up after itself."""

    def __init__(self, name, own_display=False, size="1920x1080", tray=True):
        self.scratch = ROOT / "build" / name
        self.scratch.mkdir(parents=True, exist_ok=True)
        self.own_display, self.size, self.tray = own_display, size, tray

    def __enter__(self):
        end_soundly_when_terminated()
        self.display = Display(self.own_display, self.size, self.tray)
        try:
            self.wine = Wine(self.display)
        except BaseException:
            self.display.close()
            raise
        return self

    def __exit__(self, *_):
        self.wine.kill()
        self.display.close()

    def publisher(self):
        return Publisher(self.wine, self.scratch / "www")

    def launcher(self):
        return Launcher(self.wine, self.display, self.scratch / "launcher")
