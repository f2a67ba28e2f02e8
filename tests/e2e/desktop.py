"""A display of its own with the Player on it: what a test sees through the accessibility tree, and presses through X."""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time
import warnings

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

warnings.simplefilter("ignore")
POLL_SECONDS = 0.05


def unless_gone(look):
    """What a look at the tree finds; nothing when a part of it went meanwhile."""
    try:
        return look()
    except GLib.Error:
        return None


class Desktop:
    """Use as a context: a prefix in a temporary folder, a display, and the Player with its games installed.

    `scale` is the number of pixels of the display for one of the Player; `dpi` the font density of the desktop. A
    `resizable` display can be resized while the Player runs."""

    def __init__(self, build, prepare=lambda desktop: None, screen="1024x768", scale=1, dpi=96, resizable=False):
        self.build = pathlib.Path(build).resolve()
        self.screen = screen
        self.scale = scale
        self.dpi = dpi
        self.resizable = resizable
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="tabulon-e2e-"))
        self.games = self.folder / "var/games/tabulon"  # packages that lie here at the start are installed
        self.games.mkdir(parents=True)
        self.prepare = prepare  # what to do with the installed games before the Player starts
        self.player = None
        self.helpers = []

    def __enter__(self):
        self.make_prefix()
        self.start_display("Xvfb", "-screen", "0", self.screen + "x24")
        if self.resizable:
            self.start_display("Xephyr", "-screen", self.screen)
        os.environ["XDG_RUNTIME_DIR"] = str(self.folder)
        # The accessibility bus has its socket there too, out of the way of another test's.
        subprocess.run(["dbus-update-activation-environment", "XDG_RUNTIME_DIR"], check=True)
        os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        os.environ["QT_SCALE_FACTOR"] = str(self.scale)
        os.environ["QT_FONT_DPI"] = str(self.dpi)
        os.environ.pop("QT_QPA_PLATFORM", None)
        os.environ.pop("QT_ACCESSIBILITY", None)
        self.helpers.append(subprocess.Popen(["openbox"], stderr=subprocess.DEVNULL))
        Atspi.init()
        self.prepare(self)
        self.start()
        return self

    def __exit__(self, kind, value, trace):
        if kind:
            self.screenshot("failed")
        for process in [self.player, *reversed(self.helpers)]:
            if process:
                process.kill()
                process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def start_display(self, *command):
        read_end, write_end = os.pipe()
        self.helpers.append(subprocess.Popen([*command, "-displayfd", str(write_end), "-nolisten", "tcp"],
                                             pass_fds=[write_end], stderr=subprocess.DEVNULL))
        os.environ["DISPLAY"] = ":" + os.read(read_end, 16).decode().strip()

    def resize(self, size):
        subprocess.run(["xrandr", "-s", size], check=True, stderr=subprocess.DEVNULL)

    def make_prefix(self):
        (self.folder / "bin").mkdir()
        for program in ("tabulon-player", "tabulon-setup", "tabulon-help"):
            shutil.copy2(self.build / "bin" / program, self.folder / "bin")
        for package in (self.build / "var/games/tabulon").glob("*.gam"):
            shutil.copy2(package, self.games)
        self.share()
        self.set_up()

    def share(self):
        """The program's own files, with all packages that lie there among the games of the installation."""
        folder = self.folder / "share/tabulon"
        folder.mkdir(parents=True)
        for file in (self.build / "share/tabulon").iterdir():
            (folder / file.name).symlink_to(file)
        (folder / "games.txt").unlink()
        (folder / "games.txt").write_text("".join(f"{package.stem}\n" for package in self.games.glob("*.gam")))

    def set_up(self, *options):
        subprocess.run([self.folder / "bin/tabulon-setup", *options], check=True, stdout=subprocess.DEVNULL)

    def start(self):
        self.player = subprocess.Popen([self.folder / "bin/tabulon-player"], cwd=self.folder)

    def wait_for(self, what, condition, seconds=60):
        """The first true answer of the condition; fails when none comes in time, or the Player ends unasked."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            answer = unless_gone(condition)
            if answer:
                return answer
            if self.has_ended():
                raise AssertionError(f"the Player ended with {self.player.returncode} before {what}")
            time.sleep(POLL_SECONDS)
        raise AssertionError(f"no {what} within {seconds} seconds")

    def nodes(self, role=None, name=None, inside=None):
        """What shows on the screen, in the order of the tree. The rows of a list in a hidden window claim to show."""
        found = []
        for root in [inside] if inside else self.windows():
            self.collect(root, found)
        return [n for n in found if unless_gone(lambda: (role is None or n.get_role_name() == role) and
                                                (name is None or (n.get_name() or "").startswith(name)))]

    def windows(self):
        """The windows that show, from the last opened."""
        tops = [program.get_child_at_index(i) for program in self.applications()
                for i in range(program.get_child_count())]
        return [w for w in tops
                if w and unless_gone(lambda: w.get_state_set().contains(Atspi.StateType.SHOWING))]

    def applications(self):
        desktop = Atspi.get_desktop(0)
        desktop.set_cache_mask(Atspi.Cache.NONE)  # a program that starts later would not be seen
        children = [desktop.get_child_at_index(i) for i in range(desktop.get_child_count())]
        programs = [program for program in children if program]  # one may have ended while we looked
        for program in programs:
            program.set_cache_mask(Atspi.Cache.NONE)  # what it was told of is never up to date
        return programs

    def collect(self, node, found):
        try:
            if node is None:
                return
            states = node.get_state_set()
            if node.get_role_name() != "application" and states.contains(Atspi.StateType.SHOWING):
                found.append(node)
            for i in range(node.get_child_count()):
                self.collect(node.get_child_at_index(i), found)
        except GLib.Error:
            pass  # it went while we looked

    def dialog(self, name):
        """A dialog that can be used now."""
        for node in self.nodes("dialog", name):
            if unless_gone(lambda: Atspi.Component.get_extents(node, Atspi.CoordType.SCREEN).width > 0):
                return node
        return None

    def button(self, name, inside=None):
        """A button that shows in a place on the screen and can be pressed."""
        for node in self.nodes("push button", name, inside):
            if unless_gone(lambda: self.can_be_pressed(node)):
                return node
        return None

    def can_be_pressed(self, node):
        place = Atspi.Component.get_extents(node, Atspi.CoordType.SCREEN)
        return place.x >= 0 and place.width > 1 and self.enabled(node)

    def enabled(self, node):
        return node.get_state_set().contains(Atspi.StateType.ENABLED)

    def texts(self, inside):
        return [unless_gone(n.get_name) or "" for n in self.nodes("label", inside=inside)]

    def content(self, node):
        """The text inside a field."""
        return Atspi.Text.get_text(node, 0, Atspi.Text.get_character_count(node))

    def click(self, node):
        place = Atspi.Component.get_extents(node, Atspi.CoordType.SCREEN)
        x, y = (place.x + place.width // 2) * self.scale, (place.y + place.height // 2) * self.scale
        subprocess.run(["xdotool", "mousemove", "--sync", str(x), str(y), "click", "1"], check=True)

    def key(self, *keys):
        subprocess.run(["xdotool", "key", "--clearmodifiers", *keys], check=True)

    def type(self, text):
        subprocess.run(["xdotool", "type", "--clearmodifiers", text], check=True)

    def screenshot(self, name):
        folder = self.build / "screenshots"
        folder.mkdir(exist_ok=True)
        subprocess.run(["import", "-window", "root", str(folder / f"{pathlib.Path(sys.argv[0]).stem}-{name}.png")])

    def has_ended(self):
        return self.player.poll() is not None

    def wait_for_end(self, seconds=30):
        self.player.wait(seconds)
        return self.player.returncode
