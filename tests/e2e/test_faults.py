import shutil

from scene import BIN, PACKAGE, Scene, main, wait_for


class Faults(Scene):
    def test_second_source_takes_over(self):
        # The first client has two tries; both are cut in the middle of the body.
        self.publisher.fault("/player.7z", "cut", 400_000, times=2)
        self.install()
        self.assert_installed()
        log = self.launcher.log()
        self.assertIn("curl download file sucess", log)
        self.assertNotIn("ie download file sucess", log)
        self.assertEqual((self.launcher.folder / "vynen_2.1.0.7z").read_bytes(), PACKAGE.read_bytes())

    def test_failed_download_is_retried_by_the_pause_button(self):
        self.publisher.fault("/player.7z", "cut", 100_000)
        self.expect_errors("curl download error Transferred a partial file", "flow_no_download")
        self.launcher.start()
        self.launcher.click(self.launcher.START)
        self.launcher.wait_log("no installer file", 60)
        self.launcher.wait_log("tell the user: flow_no_download")
        self.publisher.clear()
        self.launcher.click(self.launcher.PAUSE)
        self.launcher.wait_log("\\driverconfig.exe]", 120)
        self.assert_installed()

    def test_documents_that_are_junk(self):
        for name in ("config_sea.data", "qzvyn", "update_en.data"):
            (self.publisher.folder / "vyn" / name).write_bytes(b"\x00{[\xff" * 500)
        # Nothing was unpacked that could be started, and no version could be read.
        self.expect_errors("shellEx failed", "createProcess failed", "execute failed", "openfile error 2",
                           "flow_broken_package")
        self.launcher.start()
        self.launcher.wait_log("not a object")
        # The built-in address holds nothing here: no package, and no crash.
        self.launcher.click(self.launcher.START)
        self.launcher.wait_log("download url 1.0 ")
        self.launcher.wait_log("result:", 60)
        self.launcher.wait_log("tell the user: flow_broken_package", 60)
        self.assertIsNone(self.launcher.process.poll())
        # What an error page left behind does not stand in the way of the next try.
        self.publisher.player("/player.7z", "1.0")
        self.launcher.kill()
        self.install()
        self.assert_installed()

    def test_engine_that_lacks_a_function_leaves_the_panels_empty(self):
        shutil.copy(BIN / "node_without_wkeOnLoadUrlEnd.dll", self.launcher.folder / "node.dll")
        self.launcher.start_unseen()
        wait_for(lambda: self.stage.wine.window("wkeOnLoadUrlEnd"), 20, "the box that names it")
        self.keys("Return")
        wait_for(self.launcher.window, 20, "the launcher's window")
        self.launcher.wait_log("start check version")  # a fault would have cut the start short
        self.launcher.click(self.launcher.START)
        self.launcher.wait_log("\\driverconfig.exe]", 120)
        self.assert_installed()
        self.assertNotIn("/PCpic", self.publisher.requests())


if __name__ == "__main__":
    main()
