"""The stage on which the real program is run: a display, a Wine prefix, the publisher
and an installed launcher. Used by ./run and by the end-to-end tests.

A stage has all for itself: display, prefix, port and folder, so that stages stand side by
side, of one checkout and of several. Everything that is started here ends with the stage,
also after Ctrl+C.
"""
import fcntl

from .basics import (BIN, ROOT, TABLE, StageError, end_soundly_when_terminated, languages, pack_player, wait_for,
                     windows_path)
from .display import Display
from .launcher import KEY, Launcher
from .publisher import Publisher
from .wine import Window, Wine

__all__ = ["BIN", "KEY", "ROOT", "TABLE", "Display", "Launcher", "Publisher", "Stage", "StageError", "Window", "Wine",
           "end_soundly_when_terminated", "languages", "pack_player", "wait_for", "windows_path"]


class Place:
    """The first folder NAME-1, NAME-2, ... below build/stage that no other stage stands on. What
    is costly to make, the prefix, stays there for the next one."""

    def __init__(self, name):
        number = 1
        while not self._take(ROOT / f"build/stage/{name}-{number}"):
            number += 1

    def _take(self, folder):
        folder.mkdir(parents=True, exist_ok=True)
        lock = open(folder / "lock", "w")
        try:
            fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except BlockingIOError:
            lock.close()
            return False
        self.folder, self.lock = folder, lock
        return True


class Stage:
    """Display, Wine and a scratch folder; a context that cleans up after itself."""

    def __init__(self, name, own_display=False, size="1920x1080"):
        self.place = Place(name)
        self.scratch = self.place.folder
        self.own_display, self.size = own_display, size

    def __enter__(self):
        end_soundly_when_terminated()
        self.display = Display(self.own_display, self.size, manager=False)
        try:
            self.wine = Wine(self.display, self.scratch, None if self.own_display else self.size)
        except BaseException:
            self.display.close()
            raise
        return self

    def __exit__(self, *_):
        self.wine.kill()
        self.display.close()
        self.place.lock.close()

    def publisher(self, port=0):
        return Publisher(self.wine, self.scratch / "www", port)

    def launcher(self, keep=False):
        return Launcher(self.wine, self.display, self.scratch / "launcher", keep)
