# SPDX-License-Identifier: MIT
"""What was heard: records the desktop's silent sound output. What the speech service said is in its own log."""
import array
import os
import pathlib
import re
import subprocess
import tempfile

from waiting import until

RATE = 8000
AUDIBLE = 8       # of 32768; less counts as silence
GAP = RATE // 10  # so much silence separates two sounds


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

    def heard(self):
        """How many seconds each sound took that is over, in order. Sounds without a GAP between them are one."""
        data = pathlib.Path(self._file.name).read_bytes()
        samples = array.array("h", data[:len(data) & ~1])
        audible = [i for i, sample in enumerate(samples) if abs(sample) > AUDIBLE]
        begins = [i for before, i in zip([-GAP, *audible], audible) if i - before >= GAP]
        ends = [i for i, after in zip(audible, [*audible[1:], len(samples)]) if after - i >= GAP]
        return [(end - begin) / RATE for begin, end in zip(begins, ends)]

    def until_heard(self, count):
        until(lambda: len(self.heard()) >= count, f"{count} sounds", 20)


def spoken():
    """All phrases that were spoken to their end."""
    path = pathlib.Path(os.environ["XDG_RUNTIME_DIR"], "speech-dispatcher/log/speech-dispatcher.log")
    log = path.read_text(encoding="utf-8", errors="replace") if path.exists() else ""
    asked = re.findall(r"Queueing message \|(.*?)\| with priority", log, re.S)
    return asked[:len(re.findall(r"playback thread reporting end", log))]
