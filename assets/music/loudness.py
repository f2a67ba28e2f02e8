"""Loudness as ITU-R BS.1770 defines it (gated, K-weighted), and a limiter."""
import numpy as np

BLOCK_SECONDS = 0.4
STEP_SECONDS = 0.1
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


def weighted(stereo, rate):
    count = stereo.shape[1]
    size = 1 << int(count + rate // 2).bit_length()
    hertz = np.fft.rfftfreq(size, 1 / rate)
    response = _biquad(hertz, rate, 3.999843853973347, 1681.974450955533, 0.7071752369554196, True)
    response = response * _biquad(hertz, rate, 0.0, 38.13547087602444, 0.5003270373238773, False)
    return np.fft.irfft(np.fft.rfft(stereo, size) * response, size)[:, :count]


def integrated(stereo, rate):
    """In LUFS. A sound shorter than a block is one block."""
    power = np.concatenate([[0.0], np.cumsum(np.sum(weighted(stereo, rate) ** 2, axis=0))])
    count = stereo.shape[1]
    block = min(int(BLOCK_SECONDS * rate), count)
    starts = np.arange(0, count - block + 1, int(STEP_SECONDS * rate))
    blocks = (power[starts + block] - power[starts]) / block
    blocks = blocks[blocks > 10 ** ((ABSOLUTE_GATE + 0.691) / 10)]
    if not len(blocks):
        return SILENCE
    blocks = blocks[blocks > np.mean(blocks) * 10 ** (RELATIVE_GATE / 10)]
    return -0.691 + 10 * np.log10(np.mean(blocks))


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
