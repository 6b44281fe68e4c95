# SPDX-License-Identifier: MIT
"""rendered_sounds_test.py FOLDER: the sounds that the tool has written there are equally loud, and silent at both ends."""
import array
import math
import pathlib
import sys
import unittest
import wave

FOLDER = pathlib.Path(sys.argv.pop())
RATE = 48000
CLOSING_SILENCE, WINDOW = RATE // 200, RATE // 100  # samples: 5 ms, and the 10 ms over which power is taken
# ITU-R BS.1770 for 48 kHz: b0, b1, b2, a1 and a2 of the shelf and of the high pass.
K_WEIGHTING = ((1.53512485958697, -2.69169618940638, 1.19839281085285, -1.69065929318241, 0.73248077421585),
               (1.0, -2.0, 1.0, -1.99004745483398, 0.99007225036621))


def filtered(signal, b0, b1, b2, a1, a2):
    first = second = 0.0
    for x in signal:
        y = b0 * x + first
        first, second = b1 * x - a1 * y + second, b2 * x - a2 * y
        yield y


def loudness(signal):
    """LUFS of the part whose power is within 20 dB of the loudest: without tails and rests."""
    for coefficients in K_WEIGHTING:
        signal = filtered(signal, *coefficients)
    squares = [x * x for x in signal]
    powers = [sum(squares[at:at + WINDOW]) / WINDOW for at in range(0, len(squares), WINDOW)]
    loud = [power for power in powers if power > max(powers) / 100]
    return -0.691 + 10 * math.log10(sum(loud) / len(loud))


class RenderedSounds(unittest.TestCase):
    def test_they_are_equally_loud_and_silent_at_both_ends(self):
        files = sorted(FOLDER.glob("*.wav"))
        self.assertEqual(len(files), 14)
        for file in files:
            with self.subTest(file.stem), wave.open(str(file)) as sound:
                self.assertEqual(sound.getparams()[:3], (1, 2, RATE))
                signal = [x / 32768 for x in array.array("h", sound.readframes(sound.getnframes()))]
                self.assertFalse(signal[0] or any(signal[-CLOSING_SILENCE:]))
                self.assertLess(max(map(abs, signal)), 10 ** (-3 / 20))
                self.assertAlmostEqual(loudness(signal), -20, delta=1)


if __name__ == "__main__":
    unittest.main()
