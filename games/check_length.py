#!/usr/bin/env python3
"""Compares what the help of a game says of its length with games that are played.

    check_length.py PLAYTEST PACKAGE HELP
"""
import json
import pathlib
import re
import subprocess
import sys

SEATS = {"two": 2, "three": 3, "four": 4, "five": 5, "six": 6}


def played(playtest, package, seats):
    figures = subprocess.run([playtest, package, "--seats", str(seats), "--json"], check=True, capture_output=True)
    return round(json.loads(figures.stdout)["turns_per_game"]["median"])


def main():
    playtest, package, help_file = sys.argv[1:]
    said = re.findall(r"(\w+)(?: players take)? about (\d+)", pathlib.Path(help_file).read_text(encoding="utf-8"))
    faults = [f"{seats} players: {turns} turns in the help, {played(playtest, package, SEATS[seats])} when played"
              for seats, turns in said if played(playtest, package, SEATS[seats]) != int(turns)]
    print("\n".join(faults))
    sys.exit(1 if faults or len(said) < 2 else 0)


if __name__ == "__main__":
    main()
