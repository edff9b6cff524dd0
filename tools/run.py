"""The main job, done as a user would: press the start button, watch the download and the
installation, press it again, and meet the game."""
import os
import subprocess
import sys
import time

from stage import ROOT, Stage, StageError, pack_player, wait_for

RATE = 4 * 1024 * 1024  # bytes per second: slow enough to watch


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
    deadline = time.monotonic() + 120
    show_progress(partial, archive.stat().st_size, lambda: finished.exists() or time.monotonic() > deadline,
                  lambda: stage.display.screenshot(ROOT / "build/screenshots/downloading.png"))
    if not finished.exists():
        raise StageError("the download did not end in two minutes")
    print("run: 100 %, installing", flush=True)
    launcher.wait_log("start run repair", 120)
    stage.display.screenshot(ROOT / "build/screenshots/installing.png")
    launcher.wait_log("\\driverconfig.exe]", 120)


def main():
    stay = "--stay" in sys.argv
    archive = pack_player(ROOT / "build/player.7z")
    with Stage("run", own_display=stay and "DISPLAY" in os.environ) as stage:
        publisher = stage.publisher()
        os.link(archive, publisher.folder / "player.7z")
        publisher.configuration(appminversion=5100, playerminversion=2100)
        publisher.player("/player.7z")
        subprocess.run([sys.executable, ROOT / "publisher/pages/make_pages.py", publisher.folder], check=True)
        publisher.fault("/player.7z", "slow", RATE)
        launcher = stage.launcher()
        launcher.start()
        stage.display.screenshot(ROOT / "build/screenshots/start.png")
        install(stage, launcher, archive)

        def game_is_up():
            if stage.display.window("VYN Game"):
                return True
            if launcher.window():
                launcher.click(launcher.START)
            return False

        print("run: installed; pressing the start button again")
        wait_for(game_is_up, 60, "the game's window")
        time.sleep(0.3)
        stage.display.screenshot(ROOT / "build/screenshots/game.png")
        print("run: the game client is up")
        print("run: screenshots are in build/screenshots, the log is build/run/launcher/log/main.log")
        if stay:
            print("run: the launcher stays open; Ctrl+C ends it")
            launcher.process.wait()
    return 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except StageError as error:
        print(f"run: {error}", file=sys.stderr)
        sys.exit(1)
    except KeyboardInterrupt:
        sys.exit(130)
