# SPDX-License-Identifier: MIT
"""What was heard: records the desktop's silent sound output and finds the alert sounds in the recording.

The output adds nothing of its own and is exactly silent between sounds, so a sound begins where the silence
ends, and is named by laying the rendered files over that place and taking the one whose wave agrees best.
What the speech service said is in its own log."""
import array
import dataclasses
import math
import os
import pathlib
import re
import subprocess
import tempfile
import wave

from waiting import until

RATE = 8000
AUDIBLE = 8         # of 32768; less counts as silence
GAP = RATE // 10    # so much silence separates two sounds
COMPARED = RATE * 3 // 10
SHIFT = RATE // 200
AGREES = 0.8        # of 1, which is the same wave


@dataclasses.dataclass
class Heard:
    name: str      # empty where no file agrees: speech, or two sounds that began together
    beyond: float  # seconds for which it outlasts that file: there was something else


class Recording:
    """Records while it is open."""

    def __init__(self):
        self._file = tempfile.NamedTemporaryFile(prefix="chimewell-recording-")
        self._recorder = subprocess.Popen(["parec", "--device=silent.monitor", "--raw", "--format=s16le",
                                           f"--rate={RATE}", "--channels=1", "--latency-msec=20"], stdout=self._file)
        until(lambda: os.path.getsize(self._file.name) > 0, "a recording of the sound output")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._recorder.terminate()
        self._recorder.wait()
        self._file.close()

    def samples(self):
        data = pathlib.Path(self._file.name).read_bytes()
        return array.array("h", data[:len(data) & ~1])

    def is_silent(self):
        return all(abs(sample) <= AUDIBLE for sample in self.samples()[-GAP:])

    def heard(self, folder):
        """Everything heard that is over, in order, named after the files in `folder`."""
        samples = self.samples()
        waves = {file.stem: rendered(file) for file in pathlib.Path(folder).glob("*.wav")}
        found = []
        for begin, end in stretches(samples):
            fits = {name: agreement(samples, begin, template) for name, template in waves.items()}
            name = max(fits, key=fits.get)
            if fits[name] < AGREES:
                name = ""
            found.append(Heard(name, max(0, end - begin - len(waves.get(name, ()))) / RATE))
        return found

    def until_heard(self, folder, names, seconds=15):
        until(lambda: [sound.name for sound in self.heard(folder)] == names, f"the sounds {names}", seconds)


def rendered(file):
    """The wave of a file from where it is audible."""
    with wave.open(str(file)) as content:
        samples = array.array("h", content.readframes(content.getnframes()))
        group = content.getframerate() // RATE
    means = [sum(samples[i:i + group]) / group for i in range(0, len(samples) - group + 1, group)]
    return means[next(i for i, sample in enumerate(means) if abs(sample) > AUDIBLE):]


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


def agreement(samples, begin, template):
    """The greatest normalised correlation of the two at their beginnings."""
    best = 0.0
    template = template[:COMPARED]
    energy = sum(x * x for x in template)
    for start in range(max(0, begin - SHIFT), begin + SHIFT + 1):
        part = samples[start:start + len(template)]
        if len(part) < len(template):
            break
        product = sum(x * y for x, y in zip(part, template))
        best = max(best, product / math.sqrt(energy * sum(x * x for x in part) or 1))
    return best


def speech_log():
    path = pathlib.Path(os.environ["XDG_RUNTIME_DIR"], "speech-dispatcher/log/speech-dispatcher.log")
    return path.read_text(encoding="utf-8", errors="replace") if path.exists() else ""


def spoken():
    """All phrases that were spoken to their end."""
    log = speech_log()
    asked = re.findall(r"Queueing message \|(.*?)\| with priority", log, re.S)
    return asked[:len(re.findall(r"playback thread reporting end", log))]
