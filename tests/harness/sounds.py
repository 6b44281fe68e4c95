# SPDX-License-Identifier: MIT
"""What was heard: records a silent sound output and finds the alert sounds in the recording.

The output adds nothing of its own and is exactly silent between sounds, so a sound begins where the silence
ends, and is named by laying the rendered files over that place and taking the one whose wave agrees best.
"""
import array
import dataclasses
import math
import os
import pathlib
import subprocess
import sys
import tempfile
import wave

from waiting import until

RECORDED_RATE = 48000
RATE = 8000         # the waves are compared at this rate
AUDIBLE = 8         # of 32768; less counts as silence
GAP = RATE // 10    # so much silence separates two sounds
COMPARED = RATE * 3 // 10
SHIFT = RATE // 200
AGREES = 0.8        # of 1, which is the same wave


@dataclasses.dataclass
class Heard:
    name: str         # empty where no file agrees: speech, or two sounds that began together
    agreement: float  # with the best file, up to 1
    beyond: float     # seconds for which it outlasts that file: there was something else


class Recording:
    """Records the desktop's silent sound output while it is open."""

    def __init__(self):
        self._file = tempfile.NamedTemporaryFile(prefix="chimewell-recording-")
        self._recorder = subprocess.Popen(
            ["parec", "--device=silent.monitor", "--raw", "--format=s16le",
             f"--rate={RECORDED_RATE}", "--channels=1", "--latency-msec=20"], stdout=self._file)
        until(lambda: os.path.getsize(self._file.name) > 0, "a recording of the sound output")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._recorder.terminate()
        self._recorder.wait()
        self._file.close()

    def samples(self):
        """All so far, at RATE."""
        data = pathlib.Path(self._file.name).read_bytes()
        return slower(samples_of(data[:len(data) & ~1]), RECORDED_RATE)

    def is_silent(self):
        return all(abs(sample) <= AUDIBLE for sample in self.samples()[-GAP:])

    def heard(self, folder):
        """Everything heard that is over."""
        return identify(self.samples(), folder)


def samples_of(data):
    samples = array.array("h")
    samples.frombytes(data)
    if sys.byteorder == "big":
        samples.byteswap()
    return samples


def slower(samples, rate):
    """The same at RATE: the mean of each group of samples."""
    group = rate // RATE
    if group * RATE != rate:
        raise ValueError(f"{rate} is no multiple of {RATE}")
    return [sum(samples[i:i + group]) / group for i in range(0, len(samples) - group + 1, group)]


def stretches(samples):
    """(begin, end) of each stretch without a GAP of silence, but for one that reaches to the end."""
    begin = end = None
    for i, sample in enumerate(samples):
        if abs(sample) <= AUDIBLE:
            continue
        if begin is not None and i - end > GAP:
            yield begin, end
            begin = None
        if begin is None:
            begin = i
        end = i + 1
    if begin is not None and len(samples) - end > GAP:
        yield begin, end


def rendered(folder):
    """name -> the wave from where it is audible."""
    waves = {}
    for file in sorted(pathlib.Path(folder).glob("*.wav")):
        with wave.open(str(file)) as content:
            samples = slower(samples_of(content.readframes(content.getnframes())), content.getframerate())
        begin = next((i for i, sample in enumerate(samples) if abs(sample) > AUDIBLE), 0)
        waves[file.stem] = samples[begin:]
    return waves


def agreement(samples, begin, template):
    """The greatest normalised correlation of the two at their beginnings."""
    best = 0.0
    template = template[:COMPARED]
    energy = sum(x * x for x in template)
    for start in range(max(0, begin - SHIFT), begin + SHIFT + 1):
        part = samples[start:start + len(template)]
        if len(part) < len(template):
            break
        product = sum(map(float.__mul__, part, template))
        best = max(best, product / math.sqrt(energy * sum(map(float.__mul__, part, part)) or 1))
    return best


def identify(samples, folder):
    """Everything heard in `samples`, in order, named after the files in `folder`."""
    waves = rendered(folder)
    found = []
    for begin, end in stretches(samples):
        fits = {name: agreement(samples, begin, template) for name, template in waves.items()}
        name = max(fits, key=fits.get, default="")
        best = fits.get(name, 0.0)
        if best < AGREES:
            name = ""
        beyond = max(0, end - begin - len(waves.get(name, ())))
        found.append(Heard(name, best, beyond / RATE))
    return found
