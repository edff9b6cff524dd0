"""What every piece of the stage needs."""
import fcntl
import pathlib
import signal
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
BIN = ROOT / "build/win32/bin"
TABLE = ROOT / "skin/multi_language.tsv"


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
        time.sleep(0.05)


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
    with open(out.with_suffix(".lock"), "w") as lock:  # stages stand side by side
        fcntl.flock(lock, fcntl.LOCK_EX)
        if not out.exists() or out.stat().st_mtime < newest:
            print("packing the player package", flush=True)
            subprocess.run([sys.executable, script, programs, out, *options], check=True)
    return out
