"""Sounds from numbers: tones, noise, filters, a room. All is float arrays of RATE samples a second, one channel."""
from functools import lru_cache

import numpy as np

from sampler import RATE

TABLE = 2048
HIGHEST = 15000.0


def frequency(midi):
    return 440.0 * 2.0 ** ((midi - 69) / 12.0)


def seconds(count):
    """The time of each of so many samples."""
    return np.arange(count) / RATE


def samples(duration):
    return max(int(round(duration * RATE)), 1)


@lru_cache(maxsize=None)
def table(shape, partials):
    """One turn of a wave of so many partials, the strength of each given by shape(number)."""
    spectrum = np.zeros(TABLE // 2 + 1, complex)
    numbers = np.arange(1, partials + 1)
    # Phases that rise with the square of the number keep the wave's peak low.
    spectrum[1:partials + 1] = shape(numbers) * np.exp(1j * np.pi * numbers ** 2 / partials)
    wave = np.fft.irfft(spectrum) * TABLE / 2
    return np.append(wave, wave[0])


def tone(shape, hertz, count, vibrato=0.0, rate=5.2, delay=0.25, cents=0.0, phase=0.0):
    """A wave of a shape at a pitch; vibrato in cents, growing after a delay in seconds."""
    partials = int(np.clip(HIGHEST / hertz, 1, TABLE // 2 - 1))
    hertz = hertz * 2.0 ** (cents / 1200)
    if vibrato:
        time = seconds(count)
        bend = vibrato * np.clip((time - delay) / 0.3, 0, 1) * np.sin(2 * np.pi * rate * time + phase)
        turns = np.cumsum(hertz * 2.0 ** (bend / 1200)) / RATE
    else:
        turns = np.arange(count) * (hertz / RATE)
    place = ((turns + phase) % 1.0) * TABLE
    index = place.astype(np.int32)
    wave = table(shape, partials)
    return wave[index] + (wave[index + 1] - wave[index]) * (place - index)


def sweep(start, end, fall, count):
    """A sine whose pitch falls from start to end in about `fall` seconds."""
    time = seconds(count)
    return np.sin(2 * np.pi * (end * time + (start - end) * fall * (1 - np.exp(-time / fall))))


def filtered(sound, low=0.0, high=HIGHEST, steep=4):
    """What is between two frequencies, with soft edges; the sound becomes no longer."""
    size = 1 << int(len(sound) + 2048).bit_length()
    spectrum = np.fft.rfft(sound, size)
    hertz = np.fft.rfftfreq(size, 1 / RATE)
    gain = 1 / (1 + (hertz / high) ** steep)
    if low:
        gain *= 1 - 1 / (1 + (hertz / low) ** steep)
    return np.fft.irfft(spectrum * gain, size)[:len(sound)]


def noise(count, low, high, seed=0):
    """Even noise between two frequencies, about as strong as a full tone."""
    sound = filtered(np.random.default_rng(seed).standard_normal(count), low, high)
    return sound / (np.std(sound) * 2 + 1e-9)


def decay(count, fall, attack=0.002):
    """Struck or plucked: to a third in each `fall` seconds; the last of it is faded."""
    time = seconds(count)
    shape = np.exp(-time / fall) * np.clip(time / attack, 0, 1)
    fade = min(count, 400)
    shape[-fade:] *= np.linspace(1, 0, fade)
    return shape


def swell(count, attack, release, sustain=1.0, fall=0.15):
    """Blown or bowed: up, down to the sustain, and away in the last `release` seconds."""
    time = seconds(count)
    end = count / RATE
    rise = np.clip(time / attack, 0, 1)
    held = sustain + (1 - sustain) * np.exp(-np.maximum(time - attack, 0) / fall)
    away = np.clip((end - time) / release, 0, 1)
    return np.sin(rise * np.pi / 2) * held * away * away


@lru_cache(maxsize=None)
def room(length, brightness):
    """What a room answers to one clap, left and right."""
    count = samples(length)
    time = seconds(count)
    sides = []
    for seed in (11, 23):
        answer = np.random.default_rng(seed).standard_normal(count) * np.exp(-6.9 * time / length)
        answer[:samples(0.012)] *= 0.2
        answer = filtered(answer, 180, brightness)
        sides.append(answer / np.sqrt(np.sum(answer ** 2)))
    return np.array(sides)


def in_room(stereo, length, brightness):
    """The room's answer to a stereo sound, as long as the sound."""
    count = stereo.shape[1]
    size = 1 << int(count + samples(length)).bit_length()
    answer = np.fft.rfft(room(length, brightness), size)
    return np.fft.irfft(np.fft.rfft(stereo, size) * answer, size)[:, :count]
