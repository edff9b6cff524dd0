from scene import BOX, CHECK, FOLDERS, MAIN, RUN_KEY, SETTINGS, Scene, main, wait_for
from stage import KEY, languages, windows_path

# Languages of the settings' list, with the short codes that they are stored as.
OFFERED = {"en_US": "en", "zh_CN": "cn", "vi_VN": "vn", "th_TH": "th", "in_ID": "id"}
# On the box; its buttons are as wide as their texts ask for.
RESTART, LATER = (120, 190), (280, 190)


class Mouse:
    """One user's way through the settings. The other's has the same operations."""

    def __init__(self, scene):
        self.scene = scene

    def click(self, kind, place):
        window = self.scene.wait_open(kind)
        self.scene.stage.display.click(window.x + place[0], window.y + place[1])

    def open_settings(self):
        self.scene.open_settings()

    def start_with_system(self, on):
        self.scene.press(SETTINGS, "autoRunOnOpt" if on else "autoRunOffOpt")

    def choose_exit(self):
        self.scene.press(SETTINGS, "closeExistOpt")

    def open_folders(self):
        self.scene.press(SETTINGS, "chanagePathBtn")

    def leave_folders(self):
        self.scene.keys("Escape")
        self.scene.wait_closed(FOLDERS)

    def check_update(self):
        self.scene.press(SETTINGS, "checkUpdateBtn")

    def close_check(self):
        self.scene.press(CHECK, "closebtn")

    def choose_language(self):
        self.scene.press(SETTINGS, "languageCombo")
        self.scene.wait_list()
        self.click(SETTINGS, (174, 684))  # its second row

    def answer(self, restart):
        self.click(BOX, RESTART if restart else LATER)


class Keys:
    def __init__(self, scene):
        self.scene, self.press = scene, scene.keys

    def open_settings(self):
        self.press("Tab", "Return")

    def start_with_system(self, on):
        self.press(*(("shift+Tab", "Return") if on else ("Tab", "space")))

    def choose_exit(self):
        self.press(*["Tab"] * 5, "space")

    def open_folders(self):
        self.press("Tab", "Return")

    def leave_folders(self):
        self.press("Escape")
        self.back_to_settings(FOLDERS)

    # The owner of what was closed has the keyboard then. In the main window the button that opened
    # the settings still has the focus, and brings them back.
    def back_to_settings(self, closed):
        self.scene.wait_closed(closed)
        if self.scene.wait_active(SETTINGS, MAIN) == MAIN[0]:
            self.press("Return")
            self.scene.wait_active(SETTINGS)

    def check_update(self):
        self.press("Tab", "space")

    def close_check(self):
        self.press("Return")
        self.back_to_settings(CHECK)

    def choose_language(self):
        self.press("Tab", "Down")

    def answer(self, restart):
        self.press(*(("Return",) if restart else ("Tab", "space")))


class Languages(Scene):
    def test_settings_work_in_every_language(self):
        self.publisher.update(ver=10000, strVer="1.0.0")
        for number, language in enumerate(languages()):
            hands = (Keys, Mouse)[number % 2]
            with self.subTest(language, hands=hands.__name__):
                self.launcher.kill()
                self.launcher = self.stage.launcher()
                self.launcher.speak(language)
                self.launcher.start()
                self.visit(language, hands(self))

    def visit(self, language, hands):
        self.launcher.wait_log("onUpdateResult")
        self.wait_active()
        hands.open_settings()
        self.wait_active(SETTINGS)
        self.switch_autorun(hands)
        hands.choose_exit()
        self.wait_written("minbyclose=0")
        self.look_at_folders(hands)
        self.check_update(hands)
        self.picture(f"settings_{language}")
        self.change_language(language, hands)

    def switch_autorun(self, hands):
        hands.start_with_system(False)
        self.wait_written("autorun=0")
        self.assertIsNone(self.registry(RUN_KEY, "VYN"))
        hands.start_with_system(True)
        self.wait_written("autorun=1")
        self.assertEqual(self.registry(RUN_KEY, "VYN"),
                         f'"{windows_path(self.launcher.folder)}\\tkvyn.exe" autorun')

    def look_at_folders(self, hands):
        before = self.registry(KEY, "pathDir")
        hands.open_folders()
        self.wait_active(FOLDERS)
        hands.leave_folders()
        self.assertEqual(self.registry(KEY, "pathDir"), before)

    def check_update(self, hands):
        hands.check_update()
        self.wait_active(CHECK)
        self.launcher.wait_log("onUpdateResult", count=2)
        hands.close_check()
        self.wait_closed(CHECK)

    def change_language(self, language, hands):
        present = self.registry(KEY, "Language")
        hands.choose_language()
        self.wait_active(BOX)
        self.picture(f"restart_{language}")
        chosen = self.registry(KEY, "Language")
        self.assertIn(chosen, set(OFFERED.values()) - {present})
        restart = language in OFFERED
        hands.answer(restart)
        self.wait_closed(BOX)
        if not restart:
            self.assertIsNotNone(self.find(SETTINGS))
            self.assertIsNone(self.launcher.process.poll())
            return
        self.launcher.wait_end()
        new = next(code for code, short in OFFERED.items() if short == chosen)
        self.launcher.wait_log(f"language:{new}")
        wait_for(self.launcher.window, 30, "the new launcher's window")


if __name__ == "__main__":
    main()
