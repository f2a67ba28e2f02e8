"""Loudness as ITU-R BS.1770 defines it (gated, K-weighted), and a limiter."""
from functools import lru_cache

import numpy as np

STEP_SECONDS = 0.1
BLOCK_STEPS = 4
ABSOLUTE_GATE = -70.0
RELATIVE_GATE = -10.0
SILENCE = -120.0


def _biquad(hertz, rate, gain, middle, quality, high_shelf):
    """The standard's two filters for any rate: a shelf that lifts the treble, a cut of the lowest bass."""
    k = np.tan(np.pi * middle / rate)
    a = np.array([1 + k / quality + k * k, 2 * (k * k - 1), 1 - k / quality + k * k])
    if high_shelf:
        top = 10 ** (gain / 20)
        band = top ** 0.4996667741545416
        b = np.array([top + band * k / quality + k * k, 2 * (k * k - top), top - band * k / quality + k * k])
    else:
        b = np.array([1.0, -2.0, 1.0]) * a[0]
    z = np.exp(-2j * np.pi * hertz / rate)
    return (b[0] + b[1] * z + b[2] * z * z) / (a[0] + a[1] * z + a[2] * z * z)


@lru_cache(maxsize=None)
def _weights(size, rate, above):
    hertz = np.fft.rfftfreq(size, 1 / rate)
    response = _biquad(hertz, rate, 3.999843853973347, 1681.974450955533, 0.7071752369554196, True)
    response = response * _biquad(hertz, rate, 0.0, 38.13547087602444, 0.5003270373238773, False)
    return np.abs(response) ** 2 * (hertz >= above) * 2 / size ** 2


def power(stereo, rate, above=0.0):
    """The weighted power of each tenth of a second, of what is above a frequency alone; the last may be cut short."""
    size = int(STEP_SECONDS * rate)
    count = max(-(-stereo.shape[1] // size), BLOCK_STEPS)
    padded = np.pad(stereo, ((0, 0), (0, count * size - stereo.shape[1])))
    spectrum = np.fft.rfft(padded.reshape(2, count, size))
    return np.einsum("sfh,sfh,h->f", spectrum.real, spectrum.real, _weights(size, rate, above)) + np.einsum(
        "sfh,sfh,h->f", spectrum.imag, spectrum.imag, _weights(size, rate, above))


def level(mean_power):
    return -0.691 + 10 * np.log10(max(mean_power, 10 ** (SILENCE / 10)))


def gated(steps):
    """The loudness of tenths of a second in LUFS: blocks of four, without the silent ones."""
    sums = np.concatenate([[0.0], np.cumsum(steps)])
    blocks = (sums[BLOCK_STEPS:] - sums[:-BLOCK_STEPS]) / BLOCK_STEPS
    blocks = blocks[blocks > 10 ** ((ABSOLUTE_GATE + 0.691) / 10)]
    if not len(blocks):
        return SILENCE
    return level(np.mean(blocks[blocks > np.mean(blocks) * 10 ** (RELATIVE_GATE / 10)]))


def integrated(stereo, rate, above=0.0):
    """In LUFS. A sound shorter than a block is one block."""
    return gated(power(stereo, rate, above))


def _lowest(values, width):
    """The lowest of each `width` values in a row."""
    span = 1
    while span < width:
        step = min(span, width - span)
        values = np.minimum(values[:-step], values[step:])
        span += step
    return values


def limited(stereo, rate, ceiling, circular):
    """Turns down what would be above the ceiling, 3 milliseconds ahead and without a step."""
    reach = int(0.003 * rate)
    peaks = np.max(np.abs(stereo), axis=0)
    if np.max(peaks) <= ceiling:
        return stereo
    mode = "wrap" if circular else "edge"
    wanted = np.pad(np.minimum(1.0, ceiling / np.maximum(peaks, 1e-9)), 2 * reach, mode=mode)
    window = np.hanning(2 * reach + 1)
    gain = np.convolve(_lowest(wanted, 2 * reach + 1), window / np.sum(window), mode="valid")
    return np.clip(stereo * gain, -ceiling, ceiling)
