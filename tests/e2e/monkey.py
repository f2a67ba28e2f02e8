"""An impatient hand: presses and clicks at random through whole games, and nothing crashes, hangs or fails.

    monkey.py BUILD [--runs N] [--presses N] [--seed N]

A run plays one of the games with presses of its own seed; when the Player is left, it is started again."""
import argparse
import os
import pathlib
import random
import subprocess
import sys
import time

import table
from desktop import Desktop, unless_gone

GAMES = ("The Lantern Race", "The Wonder Museum", "Comet Traders")
FAILURE_CAPTION = "Error"
ANSWER_SECONDS = 60  # a program that shows no window for so long hangs

# How often each press comes: those that play on, those that lead astray, those that leave.
PLAYING = ["alt+r", "alt+s", "alt+p", "Return", "space", "a", "b", "c", "d"]
STRAYING = ["Escape", "Tab", "shift+Tab", "Left", "Right", "Up", "Down", "Home", "alt+h", "alt+l", "alt+w", "alt+o",
            "alt+n", "alt+a", "alt+c", "x", "Delete", "BackSpace", "alt+F4"]
LEAVING = ["alt+q", "alt+y"]


def press(rng):
    """The arguments of one press, or of the same a few times in a row."""
    times = rng.choice([1, 1, 1, 2, 2, 3, 5])
    gap = str(rng.choice([1, 15, 40, 90]))
    kind = rng.random()
    if kind < 0.3:
        x, y = place(rng)
        return ["mousemove", str(x), str(y), "click", "--repeat", str(times), "--delay", gap, "1"]
    if kind < 0.34:
        return ["keydown", "space", "sleep", "0.7", "keyup", "space"]
    keys = PLAYING if kind < 0.85 else STRAYING if kind < 0.98 else LEAVING
    return ["key", "--delay", gap, *[rng.choice(keys)] * times]


def place(rng):
    """Often where the buttons stand, or the middle, where dialogs open."""
    spot = rng.random()
    if spot < 0.4:
        return rng.randrange(280, 600), rng.randrange(40, 100)
    if spot < 0.8:
        return rng.randrange(300, 720), rng.randrange(250, 560)
    return rng.randrange(1024), rng.randrange(768)


def begin(desktop, rng):
    table.choose(desktop, rng.choice(GAMES))
    table.close_tip(desktop)
    enter_players(desktop, rng)


def start_again(desktop, rng):
    """A press that the window manager delivers late may leave the new one too."""
    while True:
        desktop.start()
        try:
            return begin(desktop, rng)
        except AssertionError:
            if not desktop.has_ended() or desktop.player.returncode != 0:
                raise


def enter_players(desktop, rng):
    """Two people and, often, a computer."""
    names = ["Ann", "Ben", "Robo"][:rng.choice([2, 3])]
    table.enter_players(desktop, names, computers=["Robo"] if len(names) == 3 else [])


def shows(title):
    return subprocess.run(["xdotool", "search", "--onlyvisible", "--name", title], stdout=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL).returncode == 0


def be_patient(desktop, rng):
    """A game whose players were never entered cannot be played on."""
    if not shows("^Players$"):
        return
    dialog = desktop.wait_for("the players dialog", lambda: desktop.dialog("Players"))
    desktop.click(desktop.nodes("text", inside=dialog)[0])
    desktop.key("ctrl+a", "BackSpace")
    enter_players(desktop, rng)


def check(desktop):
    """Answers, and has reported no failure; False when the Player was left in order."""
    if not desktop.has_ended() and not shows("Tab Player"):
        subprocess.run([desktop.folder / "bin/tabulon-player"], timeout=ANSWER_SECONDS)  # out of the task bar
    desktop.wait_for("a window", lambda: desktop.has_ended() or desktop.windows(), ANSWER_SECONDS)
    if desktop.has_ended():
        assert desktop.player.returncode == 0, f"the Player ended with {desktop.player.returncode}"
        return False
    for window in desktop.windows():
        name = unless_gone(window.get_name) or ""
        assert FAILURE_CAPTION not in name, f"a failure is reported: {desktop.texts(window)}"
    reports = [file.name for file in desktop.games.iterdir() if file.name.lower() == "errors.txt"]
    assert not reports, "a failure was reported"
    return True


def run(build, seed, presses):
    rng = random.Random(seed)
    made = starts = 0
    with Desktop(build) as desktop:
        begin(desktop, rng)
        while made < presses:
            be_patient(desktop, rng)
            subprocess.run(["xdotool", *press(rng)], check=True)
            time.sleep(rng.choice([0, 0, 0.05, 0.1, 0.3, 0.8]))
            made += 1
            if desktop.has_ended() or made % 20 == 0:
                if not check(desktop):
                    start_again(desktop, rng)
                    starts += 1
        check(desktop)
    print(f"monkey: seed {seed}: {made} presses, {starts} times started again", flush=True)


def main():
    os.environ["SDL_AUDIODRIVER"] = "dummy"  # messages wait for sounds that play
    os.environ.setdefault("ASAN_OPTIONS", "detect_leaks=0")  # the desktop's libraries let things lie at their end
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--runs", type=int, default=1)
    parser.add_argument("--presses", type=int, default=300)
    parser.add_argument("--seed", type=int, default=1)
    options = parser.parse_args()
    if options.runs == 1:
        run(options.build, options.seed, options.presses)
        return
    failed = [seed for seed in range(options.seed, options.seed + options.runs) if not run_apart(options, seed)]
    sys.exit(f"monkey: failed with the seeds {failed}" if failed else 0)


def run_apart(options, seed):
    """A session of its own for each run: what one leaves behind is not in the way of the next."""
    return subprocess.run(["dbus-run-session", "--", sys.executable, "-B", __file__, options.build, "--presses",
                           str(options.presses), "--seed", str(seed)]).returncode == 0


if __name__ == "__main__":
    main()
