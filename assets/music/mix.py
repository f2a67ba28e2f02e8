"""The players' tracks as one sound: levels, places, the room, a loop's way round, the final loudness."""
import numpy as np

import machines
from loudness import integrated, limited, power
from performance import strokes
from sampler import RATE
from synth import in_room

LOUDNESS = -18.0
LEAD_OVER_REST = 1.0
CEILING = 0.75  # 2.5 dB below full scale: what encoding adds stays below -1
RING_SECONDS = 4.0
FADE_SECONDS = 0.35


class Track:
    """What one player plays, as left and right."""

    def __init__(self, player, sound):
        self.player, self.sound = player, sound

    def scale(self, gain):
        self.sound *= np.float32(gain)


def recorded(piece, orchestra):
    """A track for each player, in time, with what rings behind the end."""
    count = int(round(piece.seconds(piece.beats) * RATE))
    size = count + int((RING_SECONDS if piece.loops else piece.tail) * RATE)
    players = [piece.genre.players[name] for name in piece.notes]
    played = {player: strokes(piece, player) for player in players}
    sampled = [player for player in players if not player.instrument.isalpha()]
    sound = orchestra.play([(player.instrument, played[player]) for player in sampled], size)
    tracks = [Track(player, sound[i, :, :size]) for i, player in enumerate(sampled)]
    for player in players:
        if player not in sampled:
            tracks.append(Track(player, machines.play(player.instrument, played[player], size)))
    return tracks, count


def decibels(value):
    return 10 ** (value / 20)


def placed(track):
    angle = (track.player.pan + 1) * np.pi / 4
    track.sound *= np.array([[np.cos(angle)], [np.sin(angle)]], np.float32) * np.float32(2 ** 0.5)


def pumped(tracks, piece):
    """All but the drums gives way to the beat, and comes back before the next one."""
    if not piece.genre.duck:
        return
    beat = 60 / piece.bpm * RATE
    for track in tracks:
        if not track.player.is_drums:
            phase = (np.arange(track.sound.shape[1]) % beat) / beat
            track.sound *= (1 - piece.genre.duck * np.exp(-phase * 5.0) * np.clip(phase * 60, 0, 1)).astype(np.float32)


def sum_of(tracks, size):
    return sum((track.sound for track in tracks), np.zeros((2, size), np.float32))


def balance(tracks):
    """Each track as loud as its player's level says, and all that lead a little above the rest together."""
    for track in tracks:
        track.scale(decibels(track.player.level - 23 - integrated(track.sound, RATE)))
    leads, rest = lead_and_rest(tracks)
    if leads and rest:
        size = tracks[0].sound.shape[1]
        over = integrated(sum_of(leads, size), RATE) - integrated(sum_of(rest, size), RATE)
        for track in leads:
            track.scale(decibels(LEAD_OVER_REST - over))


def lead_and_rest(tracks):
    return [t for t in tracks if t.player.leads], [t for t in tracks if not t.player.leads]


def closed(sound, piece, count):
    """A loop takes what rings at its end to its beginning; what is no loop ends in silence."""
    if piece.loops:
        sound[:, :sound.shape[1] - count] += sound[:, count:]
        return sound[:, :count]
    fade = min(int(FADE_SECONDS * RATE), sound.shape[1])
    sound[:, -fade:] *= np.cos(np.linspace(0, np.pi / 2, fade)) ** 2
    return sound


def in_hall(tracks, piece):
    """All players in the genre's room, as near or far as each stands."""
    length, brightness, amount = piece.genre.room
    size = tracks[0].sound.shape[1]
    sent = np.zeros((2, size))
    for track in tracks:
        sent += track.sound * track.player.room
    return sum_of(tracks, size) + in_room(sent, length, brightness) * amount


def mastered(stereo, loops):
    """As loud as all others, and within the ceiling."""
    stereo = stereo - np.mean(stereo, axis=1, keepdims=True)
    for _ in range(3):
        stereo = limited(stereo * decibels(LOUDNESS - integrated(stereo, RATE)), RATE, CEILING, loops)
    return stereo


def mixed(piece, orchestra):
    """Left and right, and what the balance came to."""
    tracks, count = recorded(piece, orchestra)
    for track in tracks:
        placed(track)
    pumped(tracks, piece)
    balance(tracks)
    stereo = mastered(closed(in_hall(tracks, piece), piece, count), piece.loops)
    return stereo, tracks


def course(tracks):
    """The loudness of each track second by second, in powers."""
    found = {}
    for track in tracks:
        steps = power(track.sound, RATE)
        found[track.player.name] = steps[:len(steps) // 10 * 10].reshape(-1, 10).mean(axis=1)
    return found
