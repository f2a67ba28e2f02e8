"""A piece's notes as people play them: when each key goes down and up, and how hard."""
from collections import namedtuple

Stroke = namedtuple("Stroke", "at until key velocity")
UNEVEN_SECONDS = {"player": 0.005, "drums": 0.0025}
UNEVEN_VELOCITY = 4.0
GAP = 0.004


def strokes(piece, player):
    """In seconds, by time. Nobody is quite even; the seed is the piece's own."""
    uneven = UNEVEN_SECONDS["drums" if player.is_drums else "player"]
    played = []
    for note in sorted(piece.notes[player.name]):
        at = max(piece.seconds(note.beat) + piece.random.normal(0, uneven), 0.0)
        length = (piece.seconds(note.beat + note.beats) - piece.seconds(note.beat)) * player.length
        for i, key in enumerate(note.keys):
            velocity = int(round(min(max(127 * note.force + piece.random.normal(0, UNEVEN_VELOCITY), 12), 127)))
            down = at + i * player.strum
            played.append(Stroke(down, max(at + length, down + 0.03), key, velocity))
    return released(sorted(played))


def released(played):
    """A key is up before it is struck again."""
    following = {}
    for i in range(len(played) - 1, -1, -1):
        stroke = played[i]
        until = min(stroke.until, following.get(stroke.key, stroke.until + 1) - GAP)
        following[stroke.key] = stroke.at
        played[i] = stroke._replace(until=max(until, stroke.at + GAP / 2))
    return played
