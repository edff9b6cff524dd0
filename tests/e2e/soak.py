"""soak.py [CYCLES]: the launcher's everyday life, again and again (200 times by default).

Each cycle starts the program, takes the steps of STEPS, restarts it in the next language
and ends it from the menu; at the end no process, icon, mutex or file may be left. Then one
program takes the steps as often and must not hold more than at its beginning.
"""
import sys

from scene import BOX, CHECK, SETTINGS, main, wait_for
from tray_scene import TrayScene

CYCLES = int(sys.argv.pop(1)) if sys.argv[1:] and sys.argv[1].isdigit() else 200


def hide_and_raise_by_the_icon(scene):
    scene.hide()
    scene.click_icon()
    scene.wait_in_front()


def hide_and_raise_by_a_second_start(scene):
    scene.hide()
    scene.second_start()
    scene.wait_in_front()


def raise_by_the_menu(scene):
    scene.minimise()
    scene.choose(0)
    scene.wait_in_front()


def change_settings(scene):
    scene.open_settings()
    for option, record in (("closeExistOpt", "minbyclose=0"), ("closeMinOpt", "minbyclose=1"),
                           ("autoRunOffOpt", "autorun=0"), ("autoRunOnOpt", "autorun=1")):
        scene.press(SETTINGS, option)
        scene.wait_written(record)
    close_settings(scene)


def ask_for_an_update(scene):
    scene.open_settings()
    scene.press(SETTINGS, "checkUpdateBtn")
    scene.wait_open(CHECK)
    scene.keys("Escape")
    scene.wait_closed(CHECK)
    close_settings(scene)


def change_the_language_later(scene):
    scene.open_settings()
    scene.choose_language()
    scene.keys("Tab", "space")  # "Don't restart"
    scene.wait_closed(BOX)
    close_settings(scene)


def close_settings(scene):
    scene.press(SETTINGS, "closebtn")
    scene.wait_closed(SETTINGS)


# What a cycle does between start and end: functions of the scene that leave the launcher in
# front.
STEPS = [hide_and_raise_by_the_icon, hide_and_raise_by_a_second_start, raise_by_the_menu, change_settings,
         ask_for_an_update, change_the_language_later]


class Soak(TrayScene):
    def files(self):
        """Everything that the launcher may leave on the disk, beside it or in the folders of the user."""
        folders = [self.launcher.folder, *self.stage.wine.prefix.glob("drive_c/users/*/Temp"),
                   *self.stage.wine.prefix.glob("drive_c/users/*/AppData/Roaming/ktvyn")]
        return {str(path) for folder in folders for path in folder.rglob("*")}

    def take_steps(self):
        for step in STEPS:
            step(self)

    def cycle(self):
        self.start()
        # The log is emptied by each start: whoever found the name taken is a second start.
        self.assertNotIn("main exist", self.launcher.log())
        self.take_steps()
        self.restart_in_the_next_language()
        self.choose(1)
        wait_for(lambda: self.running() == 0, 20, "the end")

    def restart_in_the_next_language(self):
        self.open_settings()
        self.choose_language()
        self.keys("Return")
        self.assertEqual(self.launcher.wait_end(), 1)
        wait_for(lambda: self.running() == 1, 20, "the program to come up again")
        self.icon()
        self.wait_in_front()

    def test_many_lives_leave_nothing_behind(self):
        self.cycle()
        before = self.files()
        for _ in range(CYCLES):
            self.cycle()
        self.assert_nothing_left()
        self.assertEqual(self.files(), before)

    def test_one_long_life_does_not_grow(self):
        self.start()
        for _ in range(3):
            self.take_steps()
        before = self.settled_counts()
        for _ in range(CYCLES):
            self.take_steps()
        # A thread of the system's pool may come or go.
        self.assert_no_growth(before, self.settled_counts(), max(5, CYCLES // 10))
        self.assertEqual(self.running(), 1)
        self.exit()
        wait_for(lambda: self.running() == 0, 10, "the end")


if __name__ == "__main__":
    main()
