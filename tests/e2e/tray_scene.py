"""A scene with a notification area, and words for what a user does there."""
import time

from scene import FOLDERS, TITLE_BAR, Scene, wait_for, windows_path

HOT_ROW = "e3e5e8"
MENU_SIZE = (170, 80)
DOUBLE_CLICK = 0.7  # seconds
# The notification area lies at the right end of the bar at the screen's lower edge.
BAR_HEIGHT, ICON_WIDTH, ICONS = 20, 20, 5


class TrayScene(Scene):
    def setUp(self):
        super().setUp()
        self.display = self.stage.display
        self.last_click = 0

    def start(self):
        self.launcher.start()
        self.icon()
        self.wait_in_front()

    def icons(self):
        """Centres of the icons in the notification area that show a picture."""
        width, height = self.display.screen.size
        top = height - BAR_HEIGHT
        centres = [(width - ICON_WIDTH * number + ICON_WIDTH // 2, top + BAR_HEIGHT // 2) for number in range(1, ICONS)]
        return [(x, y) for x, y in centres if len({self.display.pixel(x + dx, y) for dx in (-4, 0, 4)}) > 1]

    def icon(self):
        """The centre of the one icon, once it shows."""
        return wait_for(lambda: len(self.icons()) == 1 and self.icons()[0], 20, "the icon")

    def wait_in_front(self):
        """The launcher's window is up and covered by no other."""
        def in_front():
            place = self.launcher.window()
            return place and self.display.pixel(place[0] + place[2] // 2, place[1] + 20) == TITLE_BAR
        wait_for(in_front, 10, "the launcher in front")

    def hide(self):
        self.launcher.click(self.launcher.CLOSE)
        wait_for(lambda: not self.launcher.window(), 10, "the launcher to hide")

    def minimise(self):
        self.launcher.click(self.launcher.MINIMIZE)
        wait_for(lambda: not self.launcher.window(), 10, "the launcher to go to the bar")

    def cover(self):
        """Another program in front of the launcher."""
        self.stage.wine.start("notepad")
        wait_for(lambda: self.stage.wine.window(".*Notepad"), 20, "another program")
        self.stage.wine.give_keyboard("Notepad")

    def open_folder_chooser(self):
        self.launcher.click(self.launcher.BROWSE)
        self.wait_active(FOLDERS)

    def ask_for_restart(self):
        self.open_settings()
        self.choose_language()

    def raise_from_everywhere(self, bring_back):
        for leave in (self.minimise, self.hide, self.cover):
            with self.subTest(leave.__name__):
                leave()
                bring_back()
                self.wait_in_front()
                self.wait_active()
        self.assertEqual(len(self.icons()), 1)

    def wait_on_top(self, kind):
        """A window of the launcher's is in front of its others."""
        wait_for(lambda: self.windows()[0].name == kind[0], 10, f"{kind[0]} above the other windows")

    def click_icon(self, button=1, heard="mouse LButtonDown"):
        """The launcher logs what reaches it."""
        before = self.launcher.log().count(heard)
        icon = self.icon()
        # What follows sooner upon the last click than this is a double click.
        wait_for(lambda: time.monotonic() - self.last_click > DOUBLE_CLICK, 2 * DOUBLE_CLICK, "a click of its own")
        self.display.click(*icon, button=button)
        self.last_click = time.monotonic()
        self.launcher.wait_log(heard, 20, before + 1)

    def menus(self):
        return [window[3:7] for window in self.windows() if window[5:7] == MENU_SIZE]

    def open_menu(self):
        self.click_icon(3, "mouse rightButtonDown")
        return wait_for(lambda: len(self.menus()) == 1 and self.menus()[0], 10, "the menu")

    def wait_no_menu(self):
        wait_for(lambda: not self.menus(), 10, "the menu to close")

    def choose(self, row):
        x, y, _, _ = self.open_menu()
        x, y = x + 30, y + 20 + 40 * row  # the right half may lie below the icon's tooltip
        self.wait_hot(x, y)
        self.display.click(x, y)
        self.wait_no_menu()

    def wait_hot(self, x, y):
        def hot():
            self.display.move(x, y - 3)
            self.display.move(x, y)
            return self.display.pixel(x - 20, y - 10) == HOT_ROW
        wait_for(hot, 3, "the hot row")

    def exit(self):
        self.choose(1)
        self.assertEqual(self.launcher.wait_end(), 1)

    def start_again(self):
        return self.stage.wine.start(windows_path(self.launcher.folder / "tkvyn.exe"), cwd=self.launcher.folder)

    def second_start(self):
        self.assertEqual(self.start_again().wait(20), 1)

    def running(self):
        return self.stage.wine.processes().count("tkvyn.exe")

    def assert_nothing_left(self):
        wait_for(lambda: self.running() == 0, 10, "the end of every launcher")
        wait_for(lambda: not self.icons(), 10, "the icon to go")
        self.assertEqual(sorted(p.name for p in self.launcher.folder.rglob("*.tmp")), [])
