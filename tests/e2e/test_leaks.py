import re
import time

from scene import BIN, Scene, main, wait_for


class Leaks(Scene):
    CYCLES = 100

    def counts(self):
        """What the launcher holds: handles, threads, windows, GDI objects."""
        text, code = self.stage.wine.call(BIN / "vynkit.exe", "counts", "tkvyn.exe")
        self.assertEqual(code, 0, text)
        return [int(n) for n in re.findall(r"\d+", text)]

    def settled_counts(self):
        """Counts that stand still: some threads of the system end a moment later."""
        seen = []

        def still():
            time.sleep(0.5)
            seen.append(self.counts())
            return len(seen) > 3 and seen[-1] == seen[-2] == seen[-3]
        wait_for(still, 60, "counts that stand still")
        return seen[-1]

    def pause_and_resume(self):
        transfers = self.launcher.log().count(" download file ")
        self.launcher.click(self.launcher.PAUSE)
        self.launcher.click(self.launcher.PAUSE)
        self.launcher.wait_log(" download file ", 30, transfers + 1)

    def test_hundred_pauses_of_the_player_download(self):
        self.publisher.fault("/player.7z", "slow", 64 * 1024)
        self.launcher.start()
        self.launcher.click(self.launcher.START)
        self.launcher.wait_log("start size")
        for _ in range(5):
            self.pause_and_resume()
        before = self.settled_counts()
        for _ in range(self.CYCLES):
            self.pause_and_resume()
        after = self.settled_counts()
        print(f"handles, threads, windows, GDI objects: {before} before, {after} after")
        # A thread of the system's pool may come or go; a leak would show a hundred times.
        for name, old, new in zip(("handles", "threads", "windows", "GDI objects"), before, after):
            self.assertLess(new - old, 10, f"{name}: {before} before, {after} after")


if __name__ == "__main__":
    main()
