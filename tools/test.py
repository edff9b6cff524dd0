"""Runs the tests of both builds through one CTest, on a virtual display."""
import os
import subprocess
import sys

from stage import ROOT, Display, end_soundly_when_terminated


def main():
    end_soundly_when_terminated()
    display = Display(tray=False)
    environment = dict(os.environ, DISPLAY=display.name, VYN_DESKTOP="1920x1080")
    wine = dict(environment, WINEPREFIX=str(ROOT / "build/wine-desktop"), WINEDEBUG="-all")
    # One Wine server for the whole run: it starts once, not once a test.
    subprocess.run([ROOT / "tools/wine-run", "cmd", "/c", "ver"], env=environment, stdout=subprocess.DEVNULL)
    subprocess.run(["wineserver", "-p"], env=wine)
    # One more than the machine has processors: a stage waits most of its time.
    command = ["ctest", "--test-dir", ROOT / "build/win32", "--output-on-failure", "-j", str(os.cpu_count() + 1)]
    if len(sys.argv) > 1:
        command += ["-R", sys.argv[1]]
    try:
        return subprocess.run(command, env=environment).returncode
    finally:
        subprocess.run(["wineserver", "-k"], env=wine)
        display.close()


if __name__ == "__main__":
    try:
        sys.exit(main())
    except KeyboardInterrupt:
        sys.exit(130)
