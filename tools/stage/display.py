"""An X display: the user's own, or a virtual one."""
import os
import subprocess

from .basics import StageError
from .screen import Screen


class Display:
    """The user's own display, or a virtual one: empty for Wine's own desktop, or with a window
    manager and a notification area in its lower right corner (own panel: Wine shows icons
    otherwise in a window of its own, which takes the keyboard)."""

    def __init__(self, own=False, size="1920x1080", tray=True, manager=True):
        self.processes = []
        self.opened = None
        if own:
            self.name = os.environ["DISPLAY"]
            return
        self.name = ":" + self._start_server(size)
        if manager:
            self._start("openbox", "--sm-disable")
        if manager and tray:
            # Of a fixed width: Wine clips an icon to the width that it finds while it docks.
            self._start("trayer", "--edge", "bottom", "--align", "right", "--widthtype", "pixel", "--width", "60",
                        "--height", "24", "--SetDockType", "true")

    def _start_server(self, size):
        read, write = os.pipe()
        server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", size + "x24", "-nolisten", "tcp"],
                                  pass_fds=[write], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as pipe:
            number = pipe.readline().strip()
        self.processes.append(server)
        if not number:
            raise StageError("Xvfb gives no display")
        return number

    def _start(self, *command):
        self.processes.append(subprocess.Popen(command, env=dict(os.environ, DISPLAY=self.name),
                                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL))

    @property
    def screen(self):
        """Opened with the first look."""
        self.opened = self.opened or Screen(self.name)
        return self.opened

    def _input(self, *command):
        subprocess.run(["xdotool", *map(str, command)], env=dict(os.environ, DISPLAY=self.name), capture_output=True)

    def click(self, x, y, button=1, times=1):
        self._input("mousemove", x, y, "click", "--repeat", times, "--delay", 60, button)

    def move(self, x, y):
        self._input("mousemove", x, y)

    def pixel(self, x, y):
        """The colour at a place of the screen, as RRGGBB."""
        return self.pixels(x, y, 1, 1).hex()

    def pixels(self, x, y, width, height):
        """The screen's bytes in a rectangle, to compare."""
        return self.screen.pixels(x, y, width, height)

    def screenshot(self, path):
        self.screen.save(path)

    def close(self):
        if self.opened:
            self.opened.close()
        for process in reversed(self.processes):
            process.terminate()
            process.wait()
