"""The one way to wait: for something to become true."""
import time
from typing import Callable, TypeVar

PATIENCE = 20.0  # seconds; far more than anything takes, so that a busy machine fails no test
PAUSE = 0.05

Answer = TypeVar("Answer")


def eventually(question: Callable[[], Answer], within: float = PATIENCE, pause: float = PAUSE) -> Answer:
    """Asks until the answer is true in Python's sense, or the time is over; the last answer."""
    end = time.monotonic() + within
    while not (answer := question()) and time.monotonic() < end:
        time.sleep(pause)
    return answer


def stays(question: Callable[[], bool], for_seconds: float) -> bool:
    """Whether the answer is true all the time."""
    return not eventually(lambda: not question(), for_seconds)
