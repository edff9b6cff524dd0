import os

from scene import BIN, BOX, CHECK, SETTINGS, UPDATE, Scene, main, wait_for


class Update(Scene):
    def test_game_package_is_fetched_and_handed_to_the_client(self):
        self.install()
        apk = os.urandom(300_000)
        (self.publisher.folder / "game.apk").write_bytes(apk)
        self.publisher.configuration(appminversion=5210, apkurl=self.publisher.address + "/game.apk",
                                     playerminversion=2100)
        self.launcher.kill()
        self.launcher.start()
        self.launcher.wait_log("local config version")
        self.launcher.click(self.launcher.START)
        self.launcher.wait_log("game installed", 60)
        self.assertEqual((self.launcher.game / "data/appversion1000").read_text(), "5210")
        self.assertEqual((self.launcher.game / "vyn_app_sea_5210.apk").read_bytes(), apk)
        self.assertEqual((self.launcher.game / "data/packages/com.play.vysea.apk").read_bytes(), apk)
        self.open_game()

    def test_player_update_comes_from_the_configured_address(self):
        self.install()
        self.publisher.configuration(appminversion=5100, playerminversion=2200,
                                     playerurl=self.publisher.address + "/player.7z")
        (self.launcher.game / "vynrepairer.exe").unlink()
        self.launcher.kill()
        self.launcher.start()
        self.launcher.wait_log("local config version")
        self.launcher.click(self.launcher.START)
        self.launcher.wait_log("\\driverconfig.exe]", 120)
        self.assertTrue((self.launcher.folder / "vynen_1.0.7z").exists())
        self.assert_installed()

    # -- The launcher itself.

    def publish_launcher(self, **more):
        """A new launcher, offered when asked for unless more says otherwise."""
        self.program = self.publisher.folder / "new.exe"
        os.link(BIN / "update_program.exe", self.program)
        self.publisher.update(**dict(dict(ver=10100, strVer="1.1.0", url=self.publisher.address + "/new.exe",
                                          content="new", forceVer=0, noiceVer=0), **more))

    def check(self):
        """Asks for a check in the settings, once the silent one is through."""
        self.launcher.wait_log("onUpdateResult")
        self.open_settings()
        self.press(SETTINGS, "checkUpdateBtn")

    def assert_handed_over(self):
        folder = self.launcher.folder / "update"
        argument = folder / "argument.txt"
        wait_for(argument.exists, 60, "the new program's start")
        self.assertEqual((folder / "vyn_1.1.0.exe").read_bytes(), self.program.read_bytes())
        text = argument.read_text()
        self.assertTrue(text.startswith("from=update|path=Z:\\"), text)
        self.assertTrue(text.endswith("launcher\\"), text)
        self.assertIn("It is needUpdate : 1, path", self.launcher.log())
        self.launcher.wait_end()

    def test_check_finds_nothing_newer(self):
        self.publisher.update(ver=10000, strVer="1.0.0")
        self.launcher.start()
        self.check()
        self.wait_active(CHECK)
        self.launcher.wait_log("onUpdateResult", count=2)
        self.picture("update_newest")
        self.keys("space")  # the page's button has the focus
        self.wait_closed(CHECK)

    DOCUMENT = "/vyn/update_en.data"

    def delay_document(self, seconds):
        size = (self.publisher.folder / "vyn/update_en.data").stat().st_size
        self.publisher.fault(self.DOCUMENT, "slow", size // seconds)

    def test_check_by_hand_joins_the_one_at_the_start(self):
        self.publisher.update(ver=10000, strVer="1.0.0", content="x" * 2000)
        self.delay_document(10)
        self.launcher.start()
        self.open_settings()
        self.press(SETTINGS, "checkUpdateBtn")
        self.wait_active(CHECK)
        self.assertNotIn("onUpdateResult", self.launcher.log())
        self.launcher.wait_log("onUpdateResult")
        self.keys("space")  # only that page has a button
        self.wait_closed(CHECK)
        self.assertEqual(self.publisher.requests().count(self.DOCUMENT), 1)
        self.assertEqual(self.launcher.log().count("onUpdateResult"), 1)

    def force_update_upon_restart_box(self):
        self.publish_launcher(forceVer=10100, content="x" * 2000)
        self.publisher.fault("/new.exe", "slow", 60_000)  # for 38 seconds
        self.delay_document(12)
        self.launcher.start()
        self.open_settings()
        self.choose_language()
        self.assertNotIn("onUpdateResult", self.launcher.log())
        self.wait_active(UPDATE)
        self.picture("update_forced_upon_box")
        self.stage.wine.give_keyboard(BOX[0])  # from behind the update's window
        self.wait_active(BOX)
        return self.find(BOX)

    def test_forced_update_meets_the_restart_box_left_for_later(self):
        box = self.force_update_upon_restart_box()
        self.stage.display.click(box.x + 280, box.y + 190)  # "Don't restart"
        self.wait_closed(BOX)
        self.press(SETTINGS, "autoRunOffOpt")  # beside the update's window
        self.wait_written("autorun=0")
        self.press(SETTINGS, "closebtn")
        self.wait_closed(SETTINGS)
        self.assert_handed_over()

    def test_forced_update_meets_the_restart_box_and_a_restart(self):
        box = self.force_update_upon_restart_box()
        self.stage.display.click(box.x + 120, box.y + 190)  # "Restart now"
        self.launcher.wait_end()
        self.publisher.clear()
        self.assert_handed_over()  # by the new launcher

    def test_check_without_a_server_ends_as_one_without_news(self):
        self.publisher.fault("/vyn/update_en.data", "status", 500)
        self.launcher.start()
        self.check()
        self.wait_active(CHECK)
        self.picture("update_checking")
        self.launcher.wait_log("onUpdateResult", count=2)
        self.press(CHECK, "closebtn")
        self.wait_closed(CHECK)

    def test_offered_update_is_taken(self):
        self.publish_launcher()
        self.publisher.fault("/new.exe", "slow", 200_000)
        self.launcher.start()
        self.check()
        self.wait_active(UPDATE)
        self.wait_closed(CHECK)
        self.picture("update_offered")
        self.press(UPDATE, "updateBtn")
        self.launcher.wait_log("update:  download file")
        wait_for(lambda: "/new.exe" in self.publisher.requests(), 10, "the download")
        self.picture("update_downloading")
        self.publisher.clear()
        self.assert_handed_over()

    def test_offered_update_is_refused_and_offered_again(self):
        self.publish_launcher(noiceVer=10100)
        self.publisher.fault("/new.exe", "slow", 50_000)
        self.launcher.start()
        self.press(UPDATE, "updateBtn")
        self.expect_errors("update: download error")  # what a stop looks like
        partial = self.launcher.folder / "update/vyn_1.1.0.exe.tmp"
        wait_for(partial.exists, 20, "the download")
        self.press(UPDATE, "closebtn")
        self.wait_closed(UPDATE)
        size = partial.stat().st_size
        self.open_settings()
        self.press(SETTINGS, "checkUpdateBtn")
        self.wait_active(UPDATE)
        self.keys("Escape")
        self.wait_closed(UPDATE)
        self.assertEqual(partial.stat().st_size, size, "the download was ended")
        self.assertIsNone(self.launcher.process.poll())

    def test_failed_update_can_be_tried_again(self):
        self.publish_launcher(forceVer=10100)
        self.publisher.fault("/new.exe", "status", 500, times=3)
        self.launcher.start()
        self.expect_errors("update: download error")
        self.launcher.wait_log("update: download error 2")
        self.wait_active(UPDATE)
        self.wait_button(UPDATE, "updateBtn")
        self.picture("update_failed")
        self.press(UPDATE, "updateBtn")
        self.assert_handed_over()

    def test_closing_a_forced_update_ends_the_launcher(self):
        self.publish_launcher(forceVer=10100)
        self.publisher.fault("/new.exe", "slow", 10_000)
        self.expect_errors("update: download error")  # what a stop looks like
        self.launcher.start()
        self.wait_active(UPDATE)
        self.picture("update_forced")
        self.press(UPDATE, "oldVersionLabel")  # the window manager gives it the keyboard for sure
        self.keys("Escape")
        self.keys("alt+F4")
        self.launcher.wait_end()
        self.assertIn("It is needUpdate : 0", self.launcher.log())

    def test_forced_update_found_by_hand(self):
        self.publisher.update(ver=10000, strVer="1.0.0")
        self.launcher.start()
        self.launcher.wait_log("onUpdateResult")
        self.publish_launcher(forceVer=10100)
        self.check()
        self.assert_handed_over()

    def test_forced_update_runs_up_to_the_hand_over(self):
        self.publish_launcher(forceVer=10100)
        self.launcher.start_unseen()
        self.assert_handed_over()


if __name__ == "__main__":
    main()
