import time

from scene import BOX, FOLDERS, ROOT, SETTINGS, main, wait_for
from tray_scene import TrayScene


class Icon(TrayScene):
    def test_click_raises_the_window_from_everywhere(self):
        self.start()
        self.raise_from_everywhere(self.click_icon)

    def test_double_click_raises_once(self):
        self.start()
        self.hide()
        self.display.click(*self.icon(), times=2)
        self.wait_in_front()
        self.launcher.wait_log("mouse doubleButtonDown")
        self.assertEqual(self.launcher.log().count("mouse LButtonDown"), 1)

    def test_menu_shows_the_window_and_ends_the_program(self):
        self.start()
        for leave in (self.minimise, self.hide):
            leave()
            self.choose(0)
            self.wait_in_front()
        self.exit()
        self.assert_nothing_left()

    def test_menu_by_keyboard(self):
        self.start()
        self.hide()
        self.open_menu()
        self.keys("Down", "Return")
        self.wait_no_menu()
        self.wait_in_front()
        self.hide()
        self.open_menu()
        self.keys("Down", "Down", "Return")
        self.assertEqual(self.launcher.wait_end(), 1)
        self.assert_nothing_left()

    def test_menu_closes_without_a_choice(self):
        self.start()
        self.open_menu()
        self.keys("Escape")
        self.wait_no_menu()
        self.open_menu()
        self.launcher.click((800, 300))
        self.wait_no_menu()
        self.hide()
        self.open_menu()
        self.keys("Escape")
        self.wait_no_menu()
        self.assertIsNone(self.launcher.window())
        # A second right click takes the menu's place; there is never more than one.
        self.open_menu()
        self.open_menu()
        self.keys("Escape")
        self.wait_no_menu()
        self.exit()

    def test_menu_opens_above_the_pointer_and_stays_on_the_screen(self):
        self.start()
        x, y = self.icon()
        left, top, width, height = self.open_menu()
        self.assertEqual((left + width, top + height), (1920, y))
        self.keys("Escape")

    def test_menu_in_several_scripts(self):
        for language in ("en", "th", "cn"):
            self.stage.wine.call("reg", "add", r"HKCU\Software\wexlane\VYN", "/v", "Language", "/d", language, "/f")
            self.start()
            x, y, width, height = self.open_menu()
            self.display.move(x + 30, y + 20)
            wait_for(lambda: self.display.pixel(x + 8, y + 8) == "e3e5e8", 10, "the hot row")
            self.display.screenshot(ROOT / f"build/screenshots/tray_menu_{language}.png")
            self.keys("Escape")
            self.wait_no_menu()
            self.exit()


class SecondStart(TrayScene):
    def test_raises_the_first_from_everywhere(self):
        self.start()
        self.raise_from_everywhere(self.second_start)
        self.assertEqual(self.running(), 1)
        self.exit()
        self.assert_nothing_left()

    def test_an_open_dialog_stays_in_front_and_keeps_the_keyboard(self):
        self.start()
        self.open_folder_chooser()
        self.second_start()
        self.launcher.wait_log("handle ipc topwindow")
        self.wait_active(FOLDERS)
        self.cover()
        self.second_start()
        self.wait_active(FOLDERS)

    def test_settings_and_their_question_come_forward(self):
        self.start()
        # Not from behind other programs: there Wine does not take the main window along.
        for leave in (self.minimise, self.hide):
            for kind, open_it in ((SETTINGS, self.open_settings), (BOX, self.ask_for_restart)):
                with self.subTest(f"{kind[0]}, {leave.__name__}"):
                    open_it()
                    leave()
                    self.second_start()
                    self.wait_in_front()
                    self.wait_on_top(kind)
                    self.wait_active(kind)
                    self.press(kind, "closebtn")
                    self.wait_closed(kind)
            self.press(SETTINGS, "closebtn")
            self.wait_closed(SETTINGS)

    def test_program_ends_from_the_menu_with_a_dialog_open(self):
        self.start()
        self.open_folder_chooser()
        self.exit()
        self.assert_nothing_left()

    def test_at_the_moment_of_the_first_start(self):
        for delay in (0, 0.05, 0.1, 0.2, 0.4):
            with self.subTest(delay):
                first = self.start_again()
                time.sleep(delay)
                second = self.start_again()
                wait_for(lambda: (first.poll() is None) != (second.poll() is None), 20, "one to be left")
                winner, loser = (first, second) if first.poll() is None else (second, first)
                self.assertEqual(loser.returncode, 1)
                self.launcher.process = winner
                self.wait_in_front()
                self.icon()
                self.assertIn("main exist", self.launcher.log())
                self.exit()
                self.assert_nothing_left()

    def test_at_the_moment_of_the_end(self):
        for delay in (0, 0.02, 0.05, 0.1):
            with self.subTest(delay):
                self.start()
                x, y, _, _ = self.open_menu()
                self.display.click(x + 30, y + 60)
                time.sleep(delay)
                second = self.start_again()
                self.assertEqual(self.launcher.wait_end(), 1)
                # It was too early and is gone, or it has taken over.
                wait_for(lambda: second.poll() is not None or self.launcher.window(), 20, "the second start's fate")
                if second.poll() is None:
                    self.launcher.process = second
                    self.wait_in_front()
                    self.exit()
                self.assert_nothing_left()


if __name__ == "__main__":
    main()
