# SPDX-License-Identifier: MIT
"""What speech-dispatcher was asked to say and what it said, by its own log."""
import os
import pathlib
import re


def _log():
    path = pathlib.Path(os.environ["XDG_RUNTIME_DIR"], "speech-dispatcher/log/speech-dispatcher.log")
    return path.read_text(encoding="utf-8", errors="replace") if path.exists() else ""


def phrases():
    """All that were queued, in order."""
    return re.findall(r"Queueing message \|(.*?)\| with priority", _log(), re.S)


def spoken():
    """How many of them were spoken to their end."""
    return len(re.findall(r"playback thread reporting end", _log()))
