"""A damaged game: the error dialog tells of it, and its log reaches the makers by mail."""
import pathlib
import shutil
import subprocess
import sys

import table
from desktop import Desktop

RACE = "{4329823B-C888-406D-B263-DFDC9898627C}"


class MailServer:
    """A mail server on the loopback; what it received stands in files of its folder."""

    def __init__(self, folder):
        self.folder = folder
        folder.mkdir()
        script = pathlib.Path(__file__).parent.parent / "info/smtp_server.py"
        self.process = subprocess.Popen([sys.executable, "-B", script, folder], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, text=True)
        self.port = int(self.process.stdout.readline())

    def received(self, name):
        return (self.folder / name).read_text(encoding="utf-8")

    def end(self):
        self.process.stdin.close()
        self.process.wait()


def main(build):
    servers = []

    def prepare(desktop):
        servers.append(MailServer(desktop.folder / "mail"))
        desktop.set_up("--mail-server", f"127.0.0.1:{servers[0].port}", "--support-address", "help@corvane.example")
        damage(desktop, pathlib.Path(build).resolve())

    with Desktop(build, prepare) as desktop:
        table.choose(desktop, "The Lantern Race")
        dialog = desktop.wait_for("the error dialog", lambda: desktop.dialog("Unexpected Error"))
        desktop.screenshot("error")
        assert any("spaces" in text.lower() for text in desktop.texts(dialog)), desktop.texts(dialog)
        log = desktop.games / "ERRORS.TXT"
        assert log.exists()
        send(desktop)
        assert not log.exists(), "the log was sent and must go"
        check_mail(servers[0], desktop.games / f"{RACE}.gam")
        servers[0].end()
    print("failure: told, mailed with the game, and the log is gone")


def damage(desktop, build):
    """The race with spaces that nobody can read."""
    folder = desktop.folder / "damaged"
    shutil.copytree(build / "games/lantern-race", folder)
    (folder / "spaces.xml").write_text("<xml", encoding="utf-8")
    package = desktop.games / f"{RACE}.gam"
    package.unlink()
    subprocess.run([build / "bin/tabulon-gamepack", "pack", folder, package], check=True, stdout=subprocess.DEVNULL)


def send(desktop):
    desktop.key("alt+f")
    desktop.type("Zoe Example")
    desktop.key("alt+a")
    desktop.type("zoe@home.example")
    desktop.key("alt+s")
    desktop.wait_for("the question for the steps", lambda: desktop.dialog("Help Us Find This Error..."))
    desktop.type("I chose the race.")
    desktop.screenshot("steps")
    desktop.key("alt+o")
    desktop.wait_for("the thanks", lambda: any("has been emailed" in text for text in desktop.texts(None)))
    desktop.screenshot("sent")
    desktop.key("Return")
    desktop.wait_for("the dialog to close", lambda: not desktop.dialog("Unexpected Error"))


def check_mail(server, package):
    assert server.received("sender") == "zoe@home.example"
    assert server.received("recipients") == "help@corvane.example"
    body = server.received("body")
    assert body.startswith("Zoe Example received the following error:") and "I chose the race." in body, body
    assert (server.folder / "attachment").read_bytes() == package.read_bytes()


if __name__ == "__main__":
    main(sys.argv[1])
