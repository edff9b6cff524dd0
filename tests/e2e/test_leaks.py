from scene import Scene, main


class Leaks(Scene):
    CYCLES = 100

    def pause_and_resume(self):
        transfers = self.launcher.log().count(" download file ")
        self.launcher.click(self.launcher.PAUSE)
        self.launcher.click(self.launcher.PAUSE)
        self.launcher.wait_log(" download file ", 30, transfers + 1)

    def test_hundred_pauses_of_the_player_download(self):
        self.publisher.fault("/player.7z", "slow", 64 * 1024)
        self.expect_errors("onHttpErro")  # what a transfer that is stopped may look like
        self.launcher.start()
        self.launcher.click(self.launcher.START)
        self.launcher.wait_log("start size")
        for _ in range(5):
            self.pause_and_resume()
        before = self.settled_counts()
        for _ in range(self.CYCLES):
            self.pause_and_resume()
        after = self.settled_counts()
        # A thread of the system's pool may come or go; a leak would show a hundred times.
        self.assert_no_growth(before, after, 10)


if __name__ == "__main__":
    main()
