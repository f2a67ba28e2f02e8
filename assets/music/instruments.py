"""The players of all bands. An instrument turns pitches and a duration into sound; drums need neither."""
import numpy as np

from synth import decay, filtered, frequency, noise, samples, seconds, sine, sweep, swell, tone


# How strong the partials of a wave are, by their number.
def soft(n):
    return n ** -2.2


def warm(n):
    return n ** -1.5


def bright(n):
    return n ** -1.0


def hollow(n):
    return np.where(n % 2 == 1, n ** -1.3, 0.12 * n ** -1.3)


def plucked(n):
    return np.abs(np.sin(np.pi * n * 0.22)) * n ** -1.1


def piano_dark(n):
    return n ** -1.7 * (1 - 0.6 * (n % 7 == 0))


def piano_bright(n):
    return n ** -0.9 * np.exp(-n / 14) * (n > 1)


def reed(n):
    return np.exp(-((n - 2.5) / 3.2) ** 2) + 0.3 * n ** -1.0


def brassy(n):
    return n ** -0.7 * np.exp(-n / 9)


def mellow_brass(n):
    return np.exp(-(n - 1) / 1.9)


def muted(n):
    return np.exp(-((n - 5) / 2.6) ** 2) + 0.35 * n ** -1.2


def violin(n):
    return n ** -1.0 * np.exp(-n / 24) * (1 + 0.5 * np.cos(n * 1.7))


def flutelike(n):
    return np.where(n == 1, 1.0, np.where(n == 2, 0.35, 0.5 * n ** -2.5))


def sawlike(n):
    return n ** -1.0


def low_cut(cutoff, peak):
    """A saw through a filter that lets the first `cutoff` partials pass and stresses the last of them."""
    def shape(n):
        return n ** -1.0 / (1 + (n / cutoff) ** 6) * (1 + peak * np.exp(-((n - cutoff) / (0.25 * cutoff)) ** 2))
    return shape


def each(pitches, play):
    """All notes of a chord at once, each played for itself."""
    sounds = [play(frequency(key), index) for index, key in enumerate(pitches)]
    mix = np.zeros(max(len(sound) for sound in sounds))
    for sound in sounds:
        mix[:len(sound)] += sound
    return mix / len(sounds) ** 0.6


def struck(shape, second, fall, second_fall, ring=0.35, click=0.0, spread=0.6):
    """Strings that are hit or plucked: a bright beginning over a dark remainder."""
    def instrument(pitches, duration):
        def play(hertz, index):
            count = samples(duration + ring)
            scale = (220 / hertz) ** 0.5
            sound = tone(shape, hertz, count, cents=-spread, phase=0.1 * index)
            sound = sound + tone(shape, hertz, count, cents=spread, phase=0.3)
            sound = sound * decay(count, fall * scale)
            sound += 1.4 * tone(second, hertz, count) * decay(count, second_fall * scale)
            held = samples(duration)
            sound[held:] *= np.exp(-seconds(count - held) / 0.09)
            if click:
                tap = min(count, samples(0.03))
                sound[:tap] += click * noise(tap, 300, 3500, 5) * decay(tap, 0.006)
            return sound
        return each(pitches, play)
    return instrument


piano = struck(piano_dark, piano_bright, 1.1, 0.22, click=0.15)
upright_bass = struck(soft, plucked, 0.55, 0.07, ring=0.15, click=0.35, spread=0.2)
electric_bass = struck(warm, plucked, 0.9, 0.18, ring=0.08, click=0.2, spread=0.2)
nylon = struck(soft, plucked, 0.6, 0.12, ring=0.5, click=0.1)
ukulele = struck(warm, plucked, 0.22, 0.06, ring=0.4, click=0.15)
harp = struck(soft, plucked, 0.8, 0.1, ring=1.4)
pizzicato = struck(soft, plucked, 0.13, 0.04, ring=0.2, click=0.12, spread=4)


def bars(ratios, falls, levels, tremolo=0.0, ring=1.5):
    """Bars of wood or metal: a few partials that fit no harmony."""
    def instrument(pitches, duration):
        def play(hertz, index):
            count = samples(ring)
            scale = (440 / hertz) ** 0.4
            sound = sum(level * sine(hertz * ratio, count) * decay(count, fall * scale)
                        for ratio, fall, level in zip(ratios, falls, levels) if hertz * ratio < 15000)
            if tremolo:
                sound = sound * (1 - tremolo * (0.5 - 0.5 * np.cos(2 * np.pi * 5.0 * seconds(count))))
            return sound
        return each(pitches, play)
    return instrument


vibraphone = bars((1, 3.98, 9.6), (0.9, 0.25, 0.05), (1, 0.22, 0.1), tremolo=0.45, ring=2.2)
marimba = bars((1, 3.95, 9.2), (0.28, 0.07, 0.02), (1, 0.3, 0.12), ring=0.9)
xylophone = bars((1, 3.0, 6.1, 9.9), (0.13, 0.07, 0.03, 0.02), (1, 0.45, 0.25, 0.1), ring=0.5)
glockenspiel = bars((1, 2.76, 5.4, 8.9), (0.7, 0.35, 0.15, 0.08), (1, 0.3, 0.18, 0.08), ring=1.8)
toy_piano = bars((1, 2.0, 3.01, 5.6), (0.3, 0.2, 0.1, 0.05), (1, 0.35, 0.3, 0.15), ring=0.9)
bell = bars((0.5, 1, 1.19, 1.56, 2.0, 2.66), (1.4, 1.0, 0.8, 0.6, 0.5, 0.3), (0.5, 1, 0.5, 0.4, 0.5, 0.25), ring=2.6)


def blown(shape, attack, release, vibrato=8.0, breath=0.0, sustain=0.85, edge=0.0):
    """Winds: a swell, vibrato in cents on long notes, some breath; `edge` is a brighter beginning."""
    def instrument(pitches, duration):
        def play(hertz, index):
            count = samples(duration + release * 0.6)
            sound = tone(shape, hertz, count, vibrato, phase=0.17 * index)
            if edge:
                sound += edge * tone(bright, hertz, count, vibrato) * decay(count, 0.12, 0.03)
            if breath:
                sound += breath * noise(count, hertz * 0.8, min(hertz * 4, 9000), 7)
            return sound * swell(count, attack, min(release, duration), sustain)
        return each(pitches, play)
    return instrument


trumpet = blown(brassy, 0.03, 0.07, 9, edge=0.15)
muted_trumpet = blown(muted, 0.03, 0.08, 14)
horn = blown(mellow_brass, 0.06, 0.14, 4, edge=0.05)
trombone = blown(brassy, 0.05, 0.1, 5)
tuba = blown(mellow_brass, 0.03, 0.08, 0, sustain=0.6)
flute = blown(flutelike, 0.05, 0.1, 16, breath=0.06)
recorder = blown(flutelike, 0.025, 0.05, 6, breath=0.04)
clarinet = blown(hollow, 0.03, 0.07, 5)
oboe = blown(reed, 0.03, 0.07, 12)
saxophone = blown(reed, 0.03, 0.08, 14, breath=0.05, edge=0.1)


def bowed(attack, release, players=5, width=9.0):
    """A group of strings, none quite like the others."""
    def instrument(pitches, duration):
        def play(hertz, index):
            count = samples(duration + release)
            sound = sum(tone(violin, hertz, count, 11, 4.8 + 0.23 * i, 0.1, (i / (players - 1) - 0.5) * width,
                             0.37 * i + 0.11 * index) for i in range(players))
            return sound * 1.9 / players ** 0.5 * swell(count, attack, release + min(0.1, duration / 4), 0.9)
        return each(pitches, play)
    return instrument


strings = bowed(0.12, 0.3)
quick_strings = bowed(0.03, 0.1)


def overdriven(drive, mute=0.0, cents=0.0):
    """An electric guitar: the whole chord is bent by the amplifier, and what is highest stays in the cabinet."""
    def instrument(pitches, duration):
        count = samples(duration + 0.05)
        mix = np.zeros(count)
        for index, key in enumerate(pitches):
            hertz = frequency(key)
            for side in (-3, 3):
                mix += tone(sawlike, hertz, count, cents, 5.6, 0.2, side, 0.31 * index)
        body = decay(count, mute if mute else 2.5, 0.004)
        sound = np.tanh(drive * mix / len(pitches) * body) * (body if mute else 1.0)
        sound = filtered(sound, 100, 4200, 6)
        end = min(count, samples(0.05))
        sound[-end:] *= np.linspace(1, 0, end)
        return sound
    return instrument


power_guitar = overdriven(5.0)
muted_guitar = overdriven(4.0, 0.09)
lead_guitar = overdriven(3.5, 0.0, 22.0)


def synthesised(cutoffs, peak, times, release=0.04, cents=(0,), fall=0.0):
    """Saws through a filter that closes: from one cutoff to the next at the times, in partials."""
    shapes = [low_cut(cutoff, peak) for cutoff in cutoffs]

    def instrument(pitches, duration):
        def play(hertz, index):
            count = samples(duration + release)
            time = seconds(count)
            sound = np.zeros(count)
            for detuned in cents:
                waves = [tone(shape, hertz, count, cents=detuned, phase=0.013 * detuned + 0.21 * index)
                         for shape in shapes]
                for number, wave in enumerate(waves):
                    weights = [0.0] * len(waves)
                    weights[number] = 1.0
                    sound += wave * np.interp(time, times, weights)
            shape = swell(count, 0.004, release, 1.0)
            return sound * shape * (np.exp(-time / fall) if fall else 1.0) / len(cents) ** 0.6
        return each(pitches, play)
    return instrument


acid = synthesised((16, 6, 2.5), 2.5, (0.0, 0.06, 0.2))
sub_bass = synthesised((4, 2, 1.5), 0.3, (0.0, 0.08, 0.2))
synth_pluck = synthesised((14, 5, 2), 0.6, (0.0, 0.07, 0.25), 0.2, (-6, 6), 0.22)
supersaw = synthesised((22, 16, 12), 0.2, (0.0, 0.3, 1.0), 0.12, (-17, -10, -4, 0, 5, 11, 18))
synth_pad = synthesised((6, 9, 7), 0.3, (0.0, 0.8, 2.0), 0.5, (-12, -4, 5, 12))


def hit(duration, make):
    """A drum: always the same sound, made once, as high as three full tones since it is so short."""
    count = samples(duration)
    made = []

    def instrument(_pitches, _duration):
        if not made:
            sound = make(count)
            made.append(sound * 3 / np.max(np.abs(sound)))
        return made[0]
    return instrument


def _skin(start, end, fall, ring, slap=0.3, low=400, high=5000):
    return lambda count: (sweep(start, end, fall, count) * decay(count, ring) +
                          slap * noise(count, low, high, 3) * decay(count, 0.015))


def _metal(count, low, fall, seed, partials=(1, 1.342, 1.771, 2.133, 2.667, 3.21)):
    ring = sum(np.sign(sine(410.0 * ratio, count)) for ratio in partials) / 6
    return (filtered(ring, low) * 0.7 + noise(count, low, 14000, seed) * 0.6) * decay(count, fall, 0.001)


def _noise_hit(low, high, fall, attack=0.002, seed=9):
    return lambda count: noise(count, low, high, seed) * decay(count, fall, attack)


def _clap(count):
    time = seconds(count)
    shape = sum(np.where(time >= late, np.exp(-np.maximum(time - late, 0) / fall), 0)
                for late, fall in ((0, 0.006), (0.011, 0.006), (0.022, 0.006), (0.032, 0.09)))
    return noise(count, 900, 5000, 4) * shape * decay(count, 0.3)


def _snare(count):
    return (noise(count, 1200, 9000, 2) * decay(count, 0.09) * 0.8 + sweep(260, 185, 0.02, count) * decay(count, 0.06))


def _timpani(hertz):
    return lambda count: sum(level * sine(hertz * ratio, count) * decay(count, fall, 0.004)
                             for ratio, fall, level in ((1, 0.9, 1), (1.5, 0.6, 0.6), (1.99, 0.4, 0.4),
                                                        (2.44, 0.3, 0.25))) + 0.3 * noise(count, 80, 900, 6) * decay(
        count, 0.03)


def _cowbell(count):
    return filtered(np.sign(sine(562, count)) + np.sign(sine(845, count)), 500, 5000) * decay(count, 0.09) * 0.6


def _brush(count):
    return noise(count, 1500, 9000, 8) * swell(count, 0.08, 0.12)


kick = hit(0.35, _skin(150, 48, 0.03, 0.14, 0.2))
deep_kick = hit(0.4, _skin(230, 47, 0.022, 0.17, 0.35))
snare = hit(0.35, _snare)
rim = hit(0.08, lambda count: (sine(1700, count) + sine(2550, count)) * 0.5 * decay(count, 0.012))
snap = hit(0.12, _noise_hit(1800, 6500, 0.018))
clap = hit(0.35, _clap)
hat = hit(0.09, lambda count: _metal(count, 7000, 0.022, 12))
open_hat = hit(0.4, lambda count: _metal(count, 6500, 0.13, 13))
ride = hit(1.0, lambda count: _metal(count, 4200, 0.28, 14, (1.1, 2.3, 3.7, 5.1, 6.4, 7.9)))
crash = hit(2.2, lambda count: _metal(count, 3000, 0.6, 15, (1.2, 1.9, 2.7, 3.9, 5.3, 7.1)))
brush = hit(0.3, _brush)
tom = hit(0.5, _skin(170, 105, 0.05, 0.18, 0.2))
low_tom = hit(0.6, _skin(120, 72, 0.06, 0.22, 0.2))
conga = hit(0.35, _skin(240, 205, 0.02, 0.11, 0.25))
low_conga = hit(0.4, _skin(180, 152, 0.02, 0.15, 0.2))
conga_slap = hit(0.12, _skin(330, 300, 0.01, 0.03, 0.9, 1200, 7000))
bongo = hit(0.2, _skin(430, 390, 0.01, 0.06, 0.4))
timbale = hit(0.3, _skin(330, 295, 0.015, 0.09, 0.4, 2000, 9000))
clave = hit(0.12, lambda count: sine(2480, count) * decay(count, 0.022, 0.0008))
woodblock = hit(0.1, lambda count: (sine(980, count) + 0.5 * sine(1530, count)) * decay(count, 0.02, 0.0008))
cowbell = hit(0.25, _cowbell)
shaker = hit(0.1, _noise_hit(4500, 13000, 0.03, 0.018))
tambourine = hit(0.25, lambda count: _metal(count, 7500, 0.07, 16, (9, 10.4, 12.1, 14.6)))
triangle = hit(1.2, lambda count: sum(sine(h, count) for h in (4120, 6890, 9310)) / 3 * decay(count, 0.35))
timpani = hit(1.6, _timpani(73.4))
timpani_high = hit(1.6, _timpani(110.0))
boing = hit(0.5, lambda count: sweep(700, 130, 0.12, count) * decay(count, 0.2))
riser = hit(0.5, lambda count: noise(count, 1500, 9000, 17) * (seconds(count) / 0.5) ** 2 * decay(count, 5.0))
