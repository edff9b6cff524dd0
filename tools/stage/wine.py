"""Wine on a stage: a prefix of its own, and the programs in it."""
import collections
import os
import pathlib
import re
import shutil
import signal
import subprocess

from .basics import BIN, ROOT, StageError, wait_for

Window = collections.namedtuple("Window", "program name title x y width height enabled active")

SHELL = r"C:\windows\explorer.exe"  # where it lies on Windows: the game is started with its rights
# What Wine itself runs, and what the stage keeps from its beginning to its end.
KEPT = {"services.exe", "winedevice.exe", "plugplay.exe", "svchost.exe", "rpcss.exe", "explorer.exe",
        "winemenubuilder.exe", "start.exe", "conhost.exe", "stage_agent.exe"}


class Agent:
    """The stage's eye inside Windows; see kit/stage_agent.cpp."""

    def __init__(self, wine):
        self.process = wine.start(BIN / "stage_agent.exe", stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def ask(self, *question):
        """The lines of the answer."""
        self.process.stdin.write(("\t".join(question) + "\n").encode())
        self.process.stdin.flush()
        lines = []
        while True:
            line = self.process.stdout.readline()
            if not line:
                raise StageError("the stage's agent has ended")
            text = line.decode(errors="replace").rstrip("\r\n")
            if not text:
                return lines
            lines.append(text)


class Wine:
    """A prefix of the stage's own, so that its display, registry and processes meet nobody
    else's. Made once; its windows lie on a desktop of Wine's own where a size is given: there
    the focus moves at once, not when a window manager gets to it."""

    def __init__(self, display, folder, desktop=None):
        self.prefix, self.desktop = folder / "prefix", desktop
        home = folder / "home"
        home.mkdir(parents=True, exist_ok=True)
        drop = {"LANGUAGE", "LD_PRELOAD", "VYN_PUBLISHER"} | {k for k in os.environ if k.lower().endswith("_proxy")}
        self.environment = {k: v for k, v in os.environ.items() if k not in drop}
        self.environment.update(
            WINEPREFIX=str(self.prefix), WINEARCH="win32", WINEDEBUG="-all", WINEDLLOVERRIDES="mscoree,mshtml=",
            HOME=str(home), LC_ALL="C.UTF-8", DISPLAY=display.name)
        self._make_prefix()
        self.server("-p")
        self._boot()
        self.agent = Agent(self)

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

    def _boot(self):
        """Wine starts a shell of its own from another folder while it boots, which goes a
        moment after the last program that could show a window."""
        explorer = r"HKCU\Software\Wine\Explorer"
        if self.desktop:
            self.call("reg", "add", explorer, "/v", "Desktop", "/d", "own", "/f")
            self.call("reg", "add", explorer + r"\Desktops", "/v", "own", "/d", self.desktop, "/f")
        else:
            self.call("reg", "delete", explorer, "/v", "Desktop", "/f")
        wait_for(lambda: "explorer.exe" not in self.processes(), 30, "the end of Wine's own shell")
        self.start(SHELL, f"/desktop=own,{self.desktop}" if self.desktop else "/desktop")
        wait_for(lambda: SHELL.lower() in self.command_lines(), 10, "the desktop's shell")

    def server(self, option):
        subprocess.run(["wineserver", option], env=self.environment,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def kill(self):
        """Ends every program of this prefix."""
        self.server("-k")
        self.server("-w")

    def end_programs(self, *names):
        """Ends all programs of these names, at once; without a name all but the stage's own."""
        def ended():
            left = [(process, name) for process, name in self._running()
                    if (name.lower() in names if names else name.lower() not in KEPT)]
            for process, _ in left:
                try:
                    os.kill(process, signal.SIGKILL)
                except ProcessLookupError:
                    pass
            return not left
        wait_for(ended, 20, "the end of what was running")

    def start(self, program, *arguments, cwd=None, locale=None, **options):
        environment = dict(self.environment, **({"LC_ALL": locale} if locale else {}))
        for stream in ("stdin", "stdout", "stderr"):
            options.setdefault(stream, subprocess.DEVNULL)
        return subprocess.Popen(["wine", str(program), *map(str, arguments)], env=environment, cwd=cwd,
                                start_new_session=True, **options)

    def call(self, program, *arguments):
        process = self.start(program, *arguments, stdout=subprocess.PIPE, text=True, errors="replace")
        return process.communicate()[0], process.returncode

    def _paths(self):
        """(process, path as it was started) of all running Windows programs of this prefix."""
        wanted = f"WINEPREFIX={self.prefix}\0".encode()
        for entry in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                if wanted not in (entry / "environ").read_bytes():
                    continue
                path = (entry / "cmdline").read_bytes().split(b"\0")[0].decode(errors="replace")
            except OSError:
                continue
            if path.lower().endswith(".exe"):
                yield int(entry.name), path

    def _running(self):
        return [(process, re.split(r"[\\/]", path)[-1]) for process, path in self._paths()]

    def command_lines(self):
        """Lower-case paths of all running Windows programs of this prefix, as they were started."""
        return [path.lower() for _, path in self._paths()]

    def processes(self):
        """The same as names alone."""
        return [name.lower() for _, name in self._running()]

    def windows(self):
        """All that are visible and not minimised, from the top down."""
        rows = [line.split("\t") for line in self.agent.ask("windows")]
        return [Window(*r[:3], *map(int, r[3:7]), r[7] == "enabled", r[8] == "active") for r in rows if len(r) == 9]

    def window(self, title):
        """The topmost window whose title matches the pattern, or None."""
        return next((window for window in self.windows() if re.fullmatch(title, window.title)), None)

    def give_keyboard(self, name):
        """To the window of that class, as Windows does when a user starts a program."""
        self.agent.ask("front", name)

    def keys(self, *names):
        """Presses them one after the other. Not through the display: there the keyboard stays with a
        window that hides."""
        for name in names:
            self.agent.ask("key", name)

    def registry(self, key, value):
        """The text of a value below HKEY_CURRENT_USER, or None."""
        lines = self.agent.ask("value", key, value)
        return lines[0] if lines else None
