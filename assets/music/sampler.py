"""FluidSynth, with the instruments of a sound font, into memory: no sound device, and each player on tracks of his own."""
import ctypes

import numpy as np

RATE = 44100
PLAYERS = 16
BLOCK = 64  # FluidSynth's own: what happens within one happens at its beginning
SETTINGS = {
    "synth.sample-rate": float(RATE), "synth.gain": 0.5, "synth.audio-channels": PLAYERS, "synth.audio-groups": PLAYERS,
    "synth.midi-channels": PLAYERS, "synth.reverb.active": 0, "synth.chorus.active": 0, "synth.polyphony": 512,
    "synth.dynamic-sample-loading": 1, "synth.cpu-cores": 1,
}


def library():
    fluid = ctypes.CDLL("libfluidsynth.so.3")
    handle, number = ctypes.c_void_p, ctypes.c_int
    for name, result, arguments in (
            ("new_fluid_settings", handle, []), ("new_fluid_synth", handle, [handle]),
            ("fluid_settings_setint", number, [handle, ctypes.c_char_p, number]),
            ("fluid_settings_setnum", number, [handle, ctypes.c_char_p, ctypes.c_double]),
            ("fluid_synth_sfload", number, [handle, ctypes.c_char_p, number]),
            ("fluid_synth_system_reset", number, [handle]),
            ("fluid_synth_program_select", number, [handle] + [number] * 4),
            ("fluid_synth_noteon", number, [handle] + [number] * 3),
            ("fluid_synth_noteoff", number, [handle] + [number] * 2),
            ("fluid_synth_nwrite_float", number, [handle, number] + [handle] * 4)):
        function = getattr(fluid, name)
        function.restype, function.argtypes = result, arguments
    return fluid


class Orchestra:
    """One synthesizer for all pieces of a run."""

    def __init__(self, font):
        self.fluid = library()
        settings = self.fluid.new_fluid_settings()
        for key, value in SETTINGS.items():
            put = self.fluid.fluid_settings_setnum if isinstance(value, float) else self.fluid.fluid_settings_setint
            self.demand(put(settings, key.encode(), value) == 0, key)
        self.synth = self.fluid.new_fluid_synth(settings)
        self.font = self.fluid.fluid_synth_sfload(self.synth, str(font).encode(), 1)
        self.demand(self.font >= 0, font)

    @staticmethod
    def demand(right, what):
        if not right:
            raise RuntimeError(f"FluidSynth: {what}")

    def play(self, parts, count):
        """Parts are an instrument, BANK:PROGRAM or PROGRAM, with its strokes: an array of sides and samples for each."""
        self.demand(len(parts) <= PLAYERS, "too many players")
        self.fluid.fluid_synth_system_reset(self.synth)
        for channel, (instrument, _) in enumerate(parts):
            bank, _, program = instrument.rpartition(":")
            chosen = self.fluid.fluid_synth_program_select(self.synth, channel, self.font, int(bank or 0), int(program))
            self.demand(chosen == 0, instrument)
        count = -(-count // BLOCK) * BLOCK
        sound = np.zeros((len(parts), 2, count), np.float32)
        at = 0
        for when, down, channel, key, velocity in self.events(parts):
            if when > at:
                self.write(sound, at, min(when, count))
                at = min(when, count)
            if down:
                self.fluid.fluid_synth_noteon(self.synth, channel, key, velocity)
            else:
                self.fluid.fluid_synth_noteoff(self.synth, channel, key)
        self.write(sound, at, count)
        return sound

    @staticmethod
    def events(parts):
        """(sample, down, channel, key, velocity) by time; up comes before down."""
        def sample(seconds):
            return int(round(seconds * RATE / BLOCK)) * BLOCK
        found = []
        for channel, (_, strokes) in enumerate(parts):
            for stroke in strokes:
                found.append((sample(stroke.at), 1, channel, stroke.key, stroke.velocity))
                found.append((max(sample(stroke.until), sample(stroke.at) + BLOCK), 0, channel, stroke.key, 0))
        return sorted(found)

    def write(self, sound, start, end):
        if end <= start:
            return
        spare = np.zeros(end - start, np.float32)
        sides = [(ctypes.c_void_p * PLAYERS)(*[
            (sound[i, side, start:] if i < len(sound) else spare).ctypes.data for i in range(PLAYERS)])
            for side in (0, 1)]
        self.fluid.fluid_synth_nwrite_float(self.synth, end - start, sides[0], sides[1], None, None)
