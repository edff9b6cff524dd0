import os

from scene import BIN, Scene, main, wait_for


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

    def test_forced_update_runs_up_to_the_hand_over(self):
        program = self.publisher.folder / "new.exe"
        os.link(BIN / "update_program.exe", program)
        self.publisher.update(ver=10100, strVer="1.1.0", url=self.publisher.address + "/new.exe", content="new",
                              forceVer=10100, noiceVer=0)
        self.launcher.start_unseen()
        folder = self.launcher.folder / "update"
        argument = folder / "argument.txt"
        wait_for(argument.exists, 60, "the new program's start")
        self.assertEqual((folder / "vyn_1.1.0.exe").read_bytes(), program.read_bytes())
        text = argument.read_text()
        self.assertTrue(text.startswith("from=update|path=Z:\\"), text)
        self.assertTrue(text.endswith("launcher\\"), text)
        self.assertIn("It is needUpdate : 1, path", self.launcher.log())
        self.launcher.wait_end()


if __name__ == "__main__":
    main()
