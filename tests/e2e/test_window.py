import shutil
import subprocess
import sys

from scene import BIN, FOLDERS, ROOT, SETTINGS, Scene, main, wait_for, windows_path
from stage import KEY, Launcher

# Centres at the design size.
SOCIAL = {"url_home": (1605, 127), "url_facebook": (1605, 239), "url_youtobe": (1605, 351),
          "url_discord": (1605, 463)}
PLACES_OF_PAGES = {"/season4": (163, 391), "/tab1": (166, 508), "/tab2": (418, 508), "/tab3": (668, 508),
                   "/news1": (384, 571), "/news2": (384, 611), "/news3": (384, 651)}
# The tab stops in their order: centre, half the width, colour of the focus.
DARK, BRIGHT = bytes.fromhex("0F2A52"), bytes.fromhex("FFB04A")
STOPS = {"setup": (Launcher.SETUP, 21, DARK), "minimise": (Launcher.MINIMIZE, 21, DARK),
         "close": (Launcher.CLOSE, 21, DARK), "browse": (Launcher.BROWSE, 14, BRIGHT),
         "pause": (Launcher.PAUSE, 21, BRIGHT), "start": (Launcher.START, 157, BRIGHT),
         **{key: (place, 26, BRIGHT) for key, place in SOCIAL.items()}}
NOWHERE = (1100, 300)
TITLE_BAR = bytes.fromhex("6DABFF")
FRAME = bytes.fromhex("BBD5F4")


def english_addresses():
    lines = (ROOT / "skin/multi_language.tsv").read_text(encoding="utf-8").splitlines()
    return {fields[1]: fields[2] for fields in (line.split("\t") for line in lines) if fields[0] == "url"}


class PagesScene(Scene):
    def setUp(self):
        super().setUp()
        subprocess.run([sys.executable, ROOT / "publisher/pages/make_pages.py", self.publisher.folder], check=True)

    def color(self, x, y):
        left, top, _, _ = self.launcher.window()
        return self.stage.display.pixels(left + x, top + y, 1, 1)

    def open(self):
        """Starts the launcher; its window is on the screen, and painted."""
        self.launcher.start()
        _, _, width, height = self.launcher.window()
        behind = self.stage.display.pixels(0, 0, 1, 1)
        wait_for(lambda: self.color(800, 20) == TITLE_BAR and self.color(width - 9, height - 9) != behind, 20,
                 "the window's first frame")


class SmallScreen(PagesScene):
    SCREEN = "1366x728"

    def test_window_fits_and_its_panels_lie_in_their_frames(self):
        for _ in range(2):  # the second start finds a warm system, and is faster
            self.open()
            self.assertEqual(self.launcher.window(), (1366 // 2 - 1189 // 2, 728 // 2 - 708 // 2, 1189, 708))
            for top, bottom in ((63, 407), (421, 553)):
                middle = (top + bottom) // 2
                wait_for(lambda: self.color(43, middle) != FRAME, 20, "the page")
                for x, y in ((41, middle), (795, middle), (400, top - 1), (793, bottom)):
                    self.assertEqual(self.color(x, y), FRAME, (x, y))
                self.assertNotEqual(self.color(797, middle), FRAME)
            self.launcher.kill()


class Window(PagesScene):
    OWN_EXIT = 1  # of every run that got as far as its end

    def around(self, place, half=12):
        x, y = self.launcher.on_screen(place)
        return self.stage.display.pixels(x - half, y - half, 2 * half, 2 * half)

    def hover(self, place):
        self.stage.display.move(*self.launcher.on_screen(place))

    def assert_reacts(self, place):
        """What is there looks different under the pointer, for the time that it is there."""
        self.hover(NOWHERE)
        before = self.around(place)
        self.hover(place)
        wait_for(lambda: self.around(place) != before, 10, f"another look at {place}")
        self.hover(NOWHERE)
        wait_for(lambda: self.around(place) == before, 10, f"the old look at {place}")

    def assert_rests(self, place):
        """What is there cares for no pointer: something that does has been told before."""
        self.hover(NOWHERE)
        before = self.around(place)
        self.hover(place)
        self.assert_reacts(self.launcher.MINIMIZE)
        self.hover(place)
        self.assert_reacts(self.launcher.CLOSE)
        self.assertEqual(self.around(place), before)

    def wait_pages(self):
        for place in ((100, 220), (100, 560)):
            wait_for(lambda: FRAME not in self.around(place, 1), 20, f"the panel at {place}")

    def is_gone(self):
        return self.launcher.window() is None

    def test_buttons_answer_the_pointer(self):
        self.publisher.fault("/player.7z", "slow", 64 * 1024)
        self.open()
        self.wait_pages()
        for place in (self.launcher.SETUP, self.launcher.MINIMIZE, self.launcher.CLOSE, self.launcher.BROWSE, self.launcher.START,
                      *SOCIAL.values(), PLACES_OF_PAGES["/season4"], PLACES_OF_PAGES["/tab2"],
                      PLACES_OF_PAGES["/news3"]):
            self.assert_reacts(place)
        self.launcher.click(self.launcher.START)
        self.assert_reacts(self.launcher.PAUSE)
        self.assert_rests(self.launcher.START)  # is disabled while a flow runs

    def focused(self):
        """The tab stops that are seen to have the focus."""
        x, y, width, height = self.launcher.window()
        picture = self.stage.display.pixels(x, y, width, height)

        def pixel(place, half):
            start = 3 * (place[1] * width + place[0] - half + 1)  # within the border, which is 2 wide
            return picture[start:start + 3]
        return [name for name, (place, half, color) in STOPS.items() if pixel(place, half) == color]

    def wait_focused(self, name):
        wait_for(lambda: self.focused() == [name], 5, f"the focus on {name}")

    def test_keys_alone_are_enough(self):
        self.publisher.fault("/player.7z", "slow", 64 * 1024)
        self.open()
        self.wait_active()
        self.assertEqual(self.focused(), [], "nobody has used the keyboard")
        ready = [name for name in STOPS if name != "pause"]
        for name in [*ready, ready[0]]:
            self.keys("Tab")
            self.wait_focused(name)
        self.keys("Return")
        self.wait_active(SETTINGS)
        self.keys("Escape")
        self.wait_closed(SETTINGS)
        self.keys("Tab", "Tab", "Tab", "space")
        self.wait_active(FOLDERS)
        self.keys("Escape")
        self.wait_closed(FOLDERS)
        self.keys("Tab")
        self.wait_focused("start")
        self.keys("Return")
        self.launcher.wait_log("start size")
        self.wait_focused("pause")
        self.picture("focus_on_pause")
        self.keys("Tab")
        self.wait_focused("url_home")  # past the disabled start button
        self.launcher.click(NOWHERE)
        wait_for(lambda: self.focused() == [], 5, "no sign of the focus after a click")
        self.keys("shift+Tab")
        self.wait_focused("close")  # the stop before what was clicked
        self.keys("space")
        wait_for(self.is_gone, 10, "the window to hide")

    def test_links_open_in_the_browser(self):
        browser = self.stage.scratch / "browser"
        shutil.rmtree(browser, ignore_errors=True)
        browser.mkdir()
        shutil.copy(BIN / "open_link.exe", browser)
        for scheme in ("http", "https"):
            self.stage.wine.call("reg", "add", rf"HKCR\{scheme}\shell\open\command", "/ve", "/f", "/d",
                                 f'"{windows_path(browser)}\\open_link.exe" "%1"')
        links = browser / "links.txt"
        expected = []
        self.open()
        self.wait_pages()
        addresses = english_addresses()
        wanted = {addresses[key]: place for key, place in SOCIAL.items()}
        wanted.update({f"http://game.example/en{path}": place for path, place in PLACES_OF_PAGES.items()})
        for address, place in wanted.items():
            self.launcher.click(place)
            expected.append(address)
            wait_for(lambda: links.exists() and len(links.read_text().splitlines()) >= len(expected), 20, address)
            self.assertEqual(links.read_text().splitlines(), expected)

    def test_pages_that_never_come_leave_quiet_panels(self):
        self.publisher.fault("/PCpic", "hang")
        self.publisher.fault("/PCpic/news", "cut", 0)
        self.open()
        self.launcher.wait_log("local config version")
        wait_for(lambda: all(f"/PCpic{page} " in self.publisher.requests() for page in ("", "/news")), 20,
                 "both pages to be asked for")
        for place in ((100, 220), (700, 500), (100, 560), (700, 660)):
            self.assertEqual(self.around(place, 3), FRAME * 36, place)
        self.assert_reacts(self.launcher.START)

    def path_field(self):
        x, y = self.launcher.on_screen((45, 877))
        return self.stage.display.pixels(x, y, 390, 20)

    def test_install_path_is_chosen_in_the_folder_dialog(self):
        self.open()
        before = self.path_field()
        self.launcher.click(self.launcher.BROWSE)
        self.wait_folders_stand_on("game")
        self.stage.display.screenshot(ROOT / "build/screenshots/folder_dialog.png")
        # Up to the drive's first folder: of a long path the field would show no change at its end.
        top = self.launcher.folder.parts[1]

        def stands_at_the_top():
            self.keys("Left")
            folders = self.stage.wine.agent.ask("folder")[0].split("\\")
            return "(Z:)" in folders[-3] and folders[-2] == top
        wait_for(stands_at_the_top, 30, f"the folder {top}")
        self.keys("Return")
        expected = f"Z:\\{top}\\Game\\"
        wait_for(lambda: self.registry(KEY, "pathDir") == expected, 20, "the new path in the registry")
        wait_for(lambda: self.path_field() != before, 20, "the new path in the window")

    def test_close_hides_and_a_second_start_brings_back(self):
        self.open()
        self.keys("Escape")  # must not end it
        self.launcher.click(self.launcher.CLOSE)
        wait_for(self.is_gone, 10, "the window to hide")
        second = self.stage.wine.start(windows_path(self.launcher.folder / "tkvyn.exe"), cwd=self.launcher.folder)
        wait_for(self.launcher.window, 20, "the window to come back")
        self.assertEqual(second.wait(20), self.OWN_EXIT)
        self.assertIsNone(self.launcher.process.poll())

    def settings(self, existgame=1, minbyclose=1):
        (self.launcher.folder / "config.data").write_text(
            f"autorun=1|existgame={existgame}|minbyclose={minbyclose}|configversion=1000")

    def test_close_ends_the_program_when_the_user_wants_so(self):
        self.settings(minbyclose=0)
        self.open()
        self.launcher.click(self.launcher.CLOSE)
        self.assertEqual(self.launcher.wait_end(), self.OWN_EXIT)

    def client(self, *arguments):
        return self.stage.wine.start(BIN.parent / "player/vynclient.exe", *arguments)

    def end_a_game(self):
        """The launcher hides, a game is played and ends."""
        self.launcher.click(self.launcher.CLOSE)
        wait_for(self.is_gone, 10, "the window to hide")
        self.client()
        game = wait_for(lambda: self.stage.wine.window("VYN Game"), 20, "the game")
        self.stage.wine.give_keyboard(game.name)
        self.keys("alt+F4")
        self.launcher.wait_log("game exist")

    def test_end_of_the_game_brings_the_launcher_back(self):
        self.open()
        self.end_a_game()
        wait_for(self.launcher.window, 10, "the window to come back")

    def test_end_of_the_game_leaves_the_launcher_hidden_when_the_user_wants_so(self):
        self.settings(existgame=0)
        self.open()
        self.end_a_game()
        self.assertTrue(all(self.is_gone() for _ in range(50)))

    def test_installed_game_package_gives_the_window_back(self):
        self.publisher.fault("/player.7z", "slow", 64 * 1024)
        self.open()
        self.launcher.click(self.launcher.START)
        self.launcher.wait_log("start size")
        self.assert_rests(self.launcher.START)
        # Where no blank asks for quotes, which the client does not expect.
        (self.stage.wine.prefix / "drive_c/some.apk").write_bytes(b"package")
        self.client(r"show=0|package=com.example|apk=C:\some.apk")
        self.launcher.wait_log("game installed")
        self.assert_reacts(self.launcher.START)
        self.assert_reacts(self.launcher.BROWSE)


if __name__ == "__main__":
    main()
