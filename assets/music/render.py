"""render.py FOLDER SCORE FONT OGGENC COURSE EVENTS…: a genre's sounds as Ogg Vorbis; COURSE says who plays how loud when."""
import json
import pathlib
import subprocess
import sys
import wave

import numpy as np

from drums import different_bars
from loudness import integrated, level
from mix import course, lead_and_rest, mixed, sum_of
from sampler import RATE, Orchestra
from score import Genre
from theory import Wrong

QUALITY = "3"


def write_wave(path, stereo):
    with wave.open(str(path), "wb") as file:
        file.setnchannels(2)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(np.round(stereo.T * 32767).astype("<i2").tobytes())


def encode(path, stereo, oggenc, serial):
    plain = path.with_suffix(".wav")
    write_wave(plain, stereo)
    # A serial number of its own would be a new one at each run.
    subprocess.run([oggenc, "-Q", "-q", QUALITY, "--serial", str(serial), "-o", path, plain], check=True)
    plain.unlink()


def told(piece, stereo, tracks):
    """What can be asked about a piece later: its balance, its drums, its sections, its course."""
    leads, rest = (integrated(sum_of(some, tracks[0].sound.shape[1]), RATE) for some in lead_and_rest(tracks))
    drums = [note for track in tracks if track.player.is_drums for note in piece.notes[track.player.name]]
    return {
        "seconds": stereo.shape[1] / RATE, "lead over rest": round(leads - rest, 2),
        "loudness": round(integrated(stereo, RATE), 2), "above 200 Hz": round(integrated(stereo, RATE, 200), 2),
        "drum bars": different_bars(drums, piece.meter),
        "sections": [[name, piece.seconds(end)] for name, end in zip(piece.form or piece.sections, piece.ends)],
        "leads": [track.player.name for track in tracks if track.player.leads],
        "course": {name: [round(level(power), 1) for power in powers] for name, powers in course(tracks).items()},
    }


def main(folder, score, font, oggenc, report, *events):
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    genre, orchestra, facts = Genre(score), Orchestra(font), {}
    for number, event in enumerate(events, 1):
        piece = genre.pieces[event]
        stereo, tracks = mixed(piece, orchestra)
        encode(folder / f"{event}.ogg", stereo, oggenc, number)
        facts[event] = told(piece, stereo, tracks)
    pathlib.Path(report).write_text(json.dumps(facts, indent=1))


if __name__ == "__main__":
    try:
        main(*sys.argv[1:])
    except Wrong as wrong:
        sys.exit(f"score: {wrong}")
