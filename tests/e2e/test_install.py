
from scene import PACKAGE, ROOT, Scene, main, wait_for


class Install(Scene):
    def test_first_install_and_start(self):
        self.launcher.start()
        self.stage.display.screenshot(ROOT / "build/screenshots/e2e_start.png")
        self.launcher.click(self.launcher.START)
        self.launcher.wait_log("\\driverconfig.exe]", 120)
        self.assert_installed()
        self.assertEqual((self.launcher.folder / "vynen_2.1.0.7z").read_bytes(), PACKAGE.read_bytes())
        self.open_game()
        wait_for(lambda: self.launcher.window() is None, 10, "the launcher to hide")

    def test_pause_and_resume(self):
        self.publisher.fault("/player.7z", "slow", 1024 * 1024)
        self.launcher.start()
        self.launcher.click(self.launcher.START)
        partial = self.launcher.folder / "vynen_2.1.0.7z.tmp"
        wait_for(lambda: partial.exists() and partial.stat().st_size > 500_000, 30, "half a megabyte")
        self.stage.display.screenshot(ROOT / "build/screenshots/e2e_downloading.png")
        self.launcher.click(self.launcher.PAUSE)

        def rests():
            sizes.append(partial.stat().st_size)
            return len(sizes) > 15 and len(set(sizes[-10:])) == 1
        sizes = []
        wait_for(rests, 30, "the partial file to rest")
        self.publisher.clear()
        self.launcher.click(self.launcher.PAUSE)
        self.launcher.wait_log("\\driverconfig.exe]", 120)
        self.assert_installed()
        self.assertIn(f"bytes={sizes[-1]}-", self.publisher.requests())

    def test_killed_download_goes_on_after_a_restart(self):
        self.publisher.fault("/player.7z", "slow", 1024 * 1024)
        self.launcher.start()
        self.launcher.click(self.launcher.START)
        partial = self.launcher.folder / "vynen_2.1.0.7z.tmp"
        wait_for(lambda: partial.exists() and partial.stat().st_size > 500_000, 30, "half a megabyte")
        self.launcher.kill()
        kept = partial.stat().st_size
        self.publisher.clear()
        self.install()
        self.assert_installed()
        self.assertIn(f"bytes={kept}-", self.publisher.requests())

    def test_finished_package_is_installed_without_a_transfer(self):
        (self.launcher.folder / "vynen_2.1.0.7z").write_bytes(PACKAGE.read_bytes())
        self.install()
        self.assert_installed()
        self.assertNotIn("/player.7z", self.publisher.requests())


if __name__ == "__main__":
    main()
