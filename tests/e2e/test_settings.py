from scene import BOX, CHECK, FOLDERS, RUN_KEY, SETTINGS, Scene, main, wait_for
from stage import KEY, windows_path


class Settings(Scene):
    def setUp(self):
        super().setUp()
        self.stage.wine.call("reg", "delete", "HKCU\\" + RUN_KEY, "/v", "VYN", "/f")
        self.launcher.start()

    def test_each_option_is_written_at_once(self):
        self.open_settings()
        self.picture("settings_en")
        for option, record in (("exstgameNotTopOpt", "existgame=0"), ("exstgameTopOpt", "existgame=1"),
                               ("closeExistOpt", "minbyclose=0"), ("closeMinOpt", "minbyclose=1")):
            self.press(SETTINGS, option)
            self.wait_written(record)
        self.press(SETTINGS, "autoRunOffOpt")
        self.wait_written("autorun=0")
        self.assertIsNone(self.registry(RUN_KEY, "VYN"))
        self.press(SETTINGS, "autoRunOnOpt")
        self.wait_written("autorun=1")
        command = self.registry(RUN_KEY, "VYN")
        self.assertEqual(command, f'"{windows_path(self.launcher.folder)}\\tkvyn.exe" autorun')

    def test_choices_are_shown_again_and_count(self):
        self.open_settings()
        self.press(SETTINGS, "closeExistOpt")
        self.wait_written("minbyclose=0")
        self.press(SETTINGS, "closebtn")
        self.wait_closed(SETTINGS)
        self.open_settings()
        self.picture("settings_exit_chosen")
        self.press(SETTINGS, "closeExistOpt")  # is selected: nothing changes
        self.launcher.click(self.launcher.CLOSE)
        self.launcher.wait_end()

    def test_the_button_never_opens_a_second_window(self):
        self.open_settings()
        self.launcher.click(self.launcher.SETUP)
        self.launcher.click(self.launcher.SETUP)
        self.press(SETTINGS, "closeMinOpt")  # the clicks before it have been handled
        self.assertEqual(self.count(SETTINGS), 1)

    def test_keys_alone_are_enough(self):
        self.open_settings()
        self.keys("Tab", "space")  # from "on" to "off"
        self.wait_written("autorun=0")
        self.keys("shift+Tab", "Return")
        self.wait_written("autorun=1")
        self.keys("Tab", "Tab", "Tab", "Tab", "Tab", "space")
        self.wait_written("minbyclose=0")
        self.picture("settings_by_keys")
        self.keys("Tab", "Tab", "space")  # past the button of the path
        self.wait_active(CHECK)
        self.picture("update_checking")
        self.keys("Escape")
        self.wait_closed(CHECK)
        # Its owner has the keyboard now, which Escape does not end.
        self.keys("Escape")
        self.open_settings()
        self.keys("Escape")
        self.wait_closed(SETTINGS)

    def open_folder_dialog(self):
        self.press(SETTINGS, "chanagePathBtn")
        self.wait_folders_stand_on("game")

    def test_path_changes_through_the_folder_dialog(self):
        self.open_settings()
        self.open_folder_dialog()
        self.keys("Left")  # to the folder above
        self.picture("settings_folder_dialog")
        self.keys("Return")
        self.wait_closed(FOLDERS)
        expected = windows_path(self.launcher.folder) + "\\VYN\\"
        wait_for(lambda: self.registry(KEY, "pathDir") == expected, 10, f"the path {expected}")
        self.picture("settings_path_changed")
        self.press(SETTINGS, "chanagePathBtn")
        self.wait_active(FOLDERS)  # the new folder is not there yet
        self.keys("Escape")
        self.wait_closed(FOLDERS)
        self.assertEqual(self.registry(KEY, "pathDir"), expected)

    def test_language_change_comes_up_again_in_the_new_language(self):
        self.open_settings()
        self.choose_language()  # Chinese
        self.picture("settings_restart_box")
        self.assertEqual(self.registry(KEY, "Language"), "cn")
        self.keys("Return")  # "Restart now" has the focus
        self.launcher.wait_end()
        self.launcher.wait_log("language:zh_CN")
        wait_for(self.launcher.window, 30, "the new launcher's window")
        self.open_settings()
        self.picture("settings_zh")

    def test_language_change_may_wait(self):
        self.open_settings()
        self.choose_language()
        self.assertFalse(self.find(SETTINGS).enabled)
        self.keys("Tab", "space")  # "Don't restart"
        self.wait_closed(BOX)
        self.assertTrue(self.find(SETTINGS).enabled)
        self.assertEqual(self.registry(KEY, "Language"), "cn")
        self.choose_language()
        self.press(BOX, "closebtn")
        self.wait_closed(BOX)
        self.assertEqual(self.registry(KEY, "Language"), "vn")
        self.assertEqual(self.count(SETTINGS), 1)
        self.assertIsNone(self.launcher.process.poll())

    def test_the_program_ends_whatever_is_open(self):
        for last, open_last in ((BOX, self.choose_language), (FOLDERS, self.open_folder_dialog)):
            with self.subTest(last[0]):
                (self.launcher.folder / "config.data").write_text("minbyclose=0")
                self.launcher.kill()
                self.launcher.start()
                self.open_settings()
                open_last()
                self.assertFalse(self.find(SETTINGS).enabled)
                self.launcher.click(self.launcher.CLOSE)
                self.launcher.wait_end()
                self.assertIn("qznim end", self.launcher.log())

    def test_settings_that_cannot_be_written_hold_for_the_run(self):
        (self.launcher.folder / "config.data").mkdir()  # neither written nor replaced
        self.expect_errors("config.data")
        self.open_settings()
        self.press(SETTINGS, "closeExistOpt")
        self.launcher.wait_log("config.data")
        self.press(SETTINGS, "closebtn")
        self.wait_closed(SETTINGS)
        self.launcher.click(self.launcher.CLOSE)
        self.launcher.wait_end()


if __name__ == "__main__":
    main()
