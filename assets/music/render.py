"""render.py FOLDER GENRE OGGENC EVENTS…: the sounds of a genre as Ogg Vorbis, one for each event."""
import importlib
import pathlib
import subprocess
import sys
import wave

import numpy as np

from synth import RATE

QUALITY = "3"


def write_wave(path, stereo):
    with wave.open(str(path), "wb") as file:
        file.setnchannels(2)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(np.round(stereo.T * 32767).astype("<i2").tobytes())


def main(folder, genre, oggenc, *events):
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    score = importlib.import_module(genre)
    for number, event in enumerate(events, 1):
        plain = folder / f".{event}.wav"
        write_wave(plain, getattr(score, event)().rendered())
        # A serial number of its own would be a new one at each run.
        subprocess.run([oggenc, "-Q", "-q", QUALITY, "--serial", str(number), "-o", folder / f"{event}.ogg", plain],
                       check=True)
        plain.unlink()


if __name__ == "__main__":
    main(*sys.argv[1:])
