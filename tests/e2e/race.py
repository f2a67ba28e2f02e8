"""From the chooser to a won race with real keys and clicks."""
import sys

import table
from desktop import Desktop


def main(build):
    with Desktop(build) as desktop:
        table.choose(desktop, "The Lantern Race")
        table.close_tip(desktop)
        table.enter_players(desktop, ["Ann", "Robo"], computers=["Robo"])
        desktop.screenshot("begun")
        message = table.play_until_won(desktop)
        assert "won!" in message, message
        desktop.wait_for("the roll button to be disabled", lambda: table.open_message(desktop) is None
                         and not desktop.button("Roll dice"))
        desktop.click(desktop.wait_for("the quit button", lambda: desktop.button("Quit")))
        assert desktop.wait_for_end() == 0
    print("race: won, and left without a question")


if __name__ == "__main__":
    main(sys.argv[1])
