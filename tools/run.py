"""The main job, done as a user would: press the start button, watch the download and the
installation, press it again, and meet the game. See ./run for the options."""
import argparse
import errno
import os
import pathlib
import re
import signal
import socket
import subprocess
import sys
import time

from stage import ROOT, Stage, StageError, languages, pack_player, wait_for

RATE = 4 * 1024 * 1024  # bytes per second: slow enough to watch


def options():
    parser = argparse.ArgumentParser(prog="./run", add_help=False)
    parser.add_argument("--check", action="store_true")
    parser.add_argument("--stay", action="store_true")
    parser.add_argument("--keep", action="store_true")
    parser.add_argument("--port", type=int, default=0)
    parser.add_argument("--size", default="1920x1080")
    parser.add_argument("--language", choices=languages(), metavar="CODE")
    chosen = parser.parse_args()
    if not re.fullmatch(r"\d{3,4}x\d{3,4}", chosen.size):
        parser.error("--size takes WIDTHxHEIGHT")
    return chosen


def holder(port):
    """Who listens on a port of this machine, in a few words."""
    wanted = f":{port:04X}"
    inodes = set()
    for table in ("/proc/net/tcp", "/proc/net/tcp6"):
        for line in pathlib.Path(table).read_text().splitlines()[1:]:
            fields = line.split()
            if fields[1].endswith(wanted) and fields[3] == "0A":
                inodes.add(f"socket:[{fields[9]}]")
    for link in pathlib.Path("/proc").glob("[0-9]*/fd/*"):
        try:
            if os.readlink(link) in inodes:
                command = (link.parents[1] / "cmdline").read_bytes().replace(b"\0", b" ").decode(errors="replace")
                return f"process {link.parts[2]} ({command.strip()[:80]})"
        except OSError:
            continue
    return "another program"


def refuse_taken_port(port):
    with socket.socket() as probe:
        probe.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
        try:
            probe.bind(("127.0.0.1", port))
        except OSError as error:
            if error.errno != errno.EADDRINUSE:
                raise StageError(f"port {port} cannot be had: {error.strerror}") from error
            raise StageError(f"port {port} is taken by {holder(port)}; take another with --port N") from error


def show_progress(partial, total, done, at_half):
    """One line a half second until done() holds: percent, amount, speed, time left.
    at_half() is called once, in the middle."""
    before, tick = 0, time.monotonic()
    while not done():
        time.sleep(0.5)
        size = partial.stat().st_size if partial.exists() else before
        now = time.monotonic()
        speed = max(0, size - before) / (now - tick)
        left = f"{(total - size) / speed:4.0f} s left" if speed else "   -- s left"
        if size != before:
            print(f"run: {size * 100 // total:3d} %  {size >> 20:3d} of {total >> 20} MB  "
                  f"{speed / 1048576:5.1f} MB/s  {left}", flush=True)
        if before * 2 < total <= size * 2:
            at_half()
        before, tick = size, now


def install(stage, launcher, archive):
    print("run: pressing the start button")
    launcher.click(launcher.START)
    partial = launcher.folder / "vynen_2.1.0.7z.tmp"
    finished = launcher.folder / "vynen_2.1.0.7z"
    deadline = time.monotonic() + 240
    show_progress(partial, archive.stat().st_size, lambda: finished.exists() or time.monotonic() > deadline,
                  lambda: stage.display.screenshot(ROOT / "build/screenshots/downloading.png"))
    if not finished.exists():
        raise StageError("the download did not end in four minutes")
    print("run: 100 %, installing", flush=True)
    launcher.wait_log("start run repair", 120)
    stage.display.screenshot(ROOT / "build/screenshots/installing.png")
    launcher.wait_log("\\driverconfig.exe]", 120)


def play(stage, launcher):
    def game_is_up():
        if stage.wine.window("VYN Game"):
            return True
        if launcher.window():
            launcher.click(launcher.START)
        return False

    print("run: installed; pressing the start button again")
    wait_for(game_is_up, 60, "the game's window")
    stage.display.screenshot(ROOT / "build/screenshots/game.png")
    print("run: the game client is up")


def publish(stage, archive, port):
    publisher = stage.publisher(port)
    os.link(archive, publisher.folder / "player.7z")
    publisher.configuration(appminversion=5100, playerminversion=2100)
    publisher.player("/player.7z")
    subprocess.run([sys.executable, ROOT / "publisher/pages/make_pages.py", publisher.folder], check=True)
    return publisher


def last_as_long_as_wanted(stage, publisher, launcher):
    """Until Ctrl+C or the end of the last launcher: a restart or an update brings up another."""
    print(f"run: the launcher stays open; Ctrl+C ends it and all that belongs to it\n"
          f"run: the publisher serves {publisher.folder} on {publisher.address}\n"
          f"run: the log is {launcher.folder / 'log/main.log'}\n"
          f"run: a hidden window comes back by a click on its icon in the notification area", flush=True)
    handed_over = launcher.folder / "update/argument.txt"  # left by the stand-in of a new launcher
    quiet = 0
    while quiet < 20:  # a new launcher may be on its way
        time.sleep(0.5)
        quiet = 0 if "tkvyn.exe" in stage.wine.processes() else quiet + 1
        if quiet and handed_over.exists():
            handed_over.unlink()
            print("run: the launcher has been updated and starts again", flush=True)
            launcher.start_unseen()
    print("run: the launcher has been ended")


def main():
    wanted = options()
    if wanted.port:
        refuse_taken_port(wanted.port)
    if wanted.check:
        return 0
    archive = pack_player(ROOT / "build/player.7z")
    with Stage("run", own_display=wanted.stay and "DISPLAY" in os.environ, size=wanted.size) as stage:
        publisher = publish(stage, archive, wanted.port)
        launcher = stage.launcher(keep=wanted.keep)
        if wanted.language:
            launcher.speak(wanted.language)
        if not wanted.stay:
            publisher.fault("/player.7z", "slow", RATE)
        launcher.start()
        stage.display.screenshot(ROOT / "build/screenshots/start.png")
        if wanted.stay:
            last_as_long_as_wanted(stage, publisher, launcher)
            return 0
        if not (launcher.game / "playerversion").exists():
            install(stage, launcher, archive)
        play(stage, launcher)
        print(f"run: screenshots are in build/screenshots, the log is {launcher.folder / 'log/main.log'}")
    return 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except StageError as error:
        print(f"run: {error}", file=sys.stderr)
        sys.exit(1)
    except KeyboardInterrupt:
        signal.signal(signal.SIGINT, signal.SIG_IGN)
        sys.exit(130)
