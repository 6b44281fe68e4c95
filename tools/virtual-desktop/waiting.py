# SPDX-License-Identifier: MIT
"""Waiting on conditions, never on time alone."""
import time


class TookTooLong(AssertionError):
    pass


def until(condition, what, seconds=10.0):
    """The first true value of `condition()`; TookTooLong, naming `what`, when there is none in time."""
    end = time.monotonic() + seconds
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise TookTooLong(f"not within {seconds:g} s: {what}")
        time.sleep(0.02)
