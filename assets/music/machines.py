"""Machines of a techno club: filtered saws and a deep drum, which no recorded instrument is."""
import numpy as np

from synth import RATE, decay, frequency, noise, samples, seconds, sweep, swell, tone


def low_cut(cutoff, peak):
    """A saw through a filter that lets the first `cutoff` partials pass and stresses the last of them."""
    def shape(n):
        return n ** -1.0 / (1 + (n / cutoff) ** 6) * (1 + peak * np.exp(-((n - cutoff) / (0.25 * cutoff)) ** 2))
    return shape


def synthesised(cutoffs, peak, times, release=0.04, cents=(0,), fall=0.0):
    """Saws through a filter that closes: from one cutoff to the next at the times, in partials."""
    shapes = [low_cut(cutoff, peak) for cutoff in cutoffs]

    def voice(shape, hertz, count, detuned, weights):
        return tone(shape, hertz, count, cents=detuned, phase=0.013 * detuned) * weights

    def machine(key, duration):
        count = samples(duration + release)
        time = seconds(count)
        sound = np.zeros(count)
        for number, shape in enumerate(shapes):
            weights = np.interp(time, times, [float(number == i) for i in range(len(shapes))])
            for detuned in cents:
                sound += voice(shape, frequency(key), count, detuned, weights)
        fading = np.exp(-time / fall) if fall else 1.0
        return sound * swell(count, 0.004, release, 1.0) * fading / len(cents) ** 0.6
    return machine


def deep_kick(_key, _duration):
    count = samples(0.4)
    return (sweep(230, 47, 0.022, count) * decay(count, 0.17) + 0.35 * noise(count, 400, 5000, 3) * decay(count, 0.015)) * 2


def riser(_key, duration):
    count = samples(duration)
    return noise(count, 1500, 9000, 17) * (np.arange(count) / count) ** 2 * decay(count, 60.0)


MACHINES = {
    "acid": synthesised((16, 6, 2.5), 2.5, (0.0, 0.06, 0.2)),
    "sub": synthesised((4, 2, 1.5), 0.3, (0.0, 0.08, 0.2)),
    "pluck": synthesised((14, 5, 2), 0.6, (0.0, 0.07, 0.25), 0.2, (-6, 6), 0.22),
    "supersaw": synthesised((22, 16, 12), 0.2, (0.0, 0.3, 1.0), 0.12, (-17, -10, -4, 0, 5, 11, 18)),
    "pad": synthesised((6, 9, 7), 0.3, (0.0, 0.8, 2.0), 0.5, (-12, -4, 5, 12)),
    "deepkick": deep_kick,
    "riser": riser,
}


def play(name, strokes, size):
    """All strokes of one machine, on both sides alike."""
    sounds, mono = {}, np.zeros(size)
    for stroke in strokes:
        key = (stroke.key, round(stroke.until - stroke.at, 2))
        if key not in sounds:
            sounds[key] = MACHINES[name](*key)
        start = int(round(stroke.at * RATE))
        end = min(start + len(sounds[key]), size)
        mono[start:end] += sounds[key][:end - start] * (stroke.velocity / 127) ** 1.5
    return np.array([mono, mono], np.float32)
