"""Runs tests side by side, each worker in a session of its own."""
import multiprocessing
import os
import queue
import time
import unittest
from dataclasses import dataclass, field
from pathlib import Path
from typing import Callable

from .ledger import Ledger, ledger
from .session import Session, die_with_parent

# What takes longest goes first, so that no worker is left alone with it at the end.
LONGEST = ("test_every_choice_of_the_filters", "test_every_section_by_pointer_and_keys", "test_every_kind_and_column",
           "test_main_menu", "test_scans_start_from_everywhere", "test_filters_and_order",
           "test_come_and_go_in_every_order_after_a_scan", "test_come_and_go_in_every_order_with_the_map",
           "test_come_and_go_in_every_order_before_a_scan", "test_restores_after_a_restart")


@dataclass
class Outcome:
    """What became of one test, or of a worker that got no further."""
    test: str
    seconds: float
    faults: list[str]
    skipped: str = ""
    ledger: Ledger = field(default_factory=Ledger)  # of this worker until now


def _tests(suite: unittest.TestSuite) -> list[unittest.TestCase]:
    found = []
    for each in suite:
        found += _tests(each) if isinstance(each, unittest.TestSuite) else [each]
    return found


def _load(names: list[str]) -> list[unittest.TestCase]:
    """The same list in every worker."""
    loader = unittest.defaultTestLoader
    folder = str(Path(__file__).resolve().parent.parent)
    tests = _tests(loader.loadTestsFromNames(names) if names else loader.discover(folder, "test_*.py"))
    rank = {name: place for place, name in enumerate(LONGEST)}
    return sorted(tests, key=lambda test: rank.get(test.id().rsplit(".", 1)[-1], len(LONGEST)))


def _outcome_of(test: unittest.TestCase) -> Outcome:
    result = unittest.TestResult()
    began = time.monotonic()
    test.run(result)
    faults = [text for _, text in result.errors + result.failures]
    if result.unexpectedSuccesses:
        faults.append("it was expected to fail")
    return Outcome(test.id(), time.monotonic() - began, faults, "; ".join(reason for _, reason in result.skipped))


def _work(names: list[str], next_test, outcomes) -> None:
    die_with_parent()
    try:
        with Session() as session:
            # They connect to the accessibility bus, which is there only now.
            from .case import ProgramCase
            ProgramCase.session = session
            tests = _load(names)
            while True:
                with next_test.get_lock():
                    index = next_test.value
                    next_test.value += 1
                if index >= len(tests):
                    break
                outcome = _outcome_of(tests[index])
                outcome.ledger = ledger
                outcomes.put(outcome)
    except Exception as error:  # pylint: disable=broad-except
        outcomes.put(Outcome("a session", 0, [repr(error)]))


def run(names: list[str], workers: int, tell: Callable[[Outcome], None]) -> None:
    """Runs the named tests, or all, and tells each outcome as it comes."""
    context = multiprocessing.get_context("fork")
    next_test = context.Value("i", 0)
    outcomes = context.Queue()
    children = [context.Process(target=_work, args=(names, next_test, outcomes)) for _ in range(workers)]
    for child in children:
        child.start()
    while True:
        running = any(child.is_alive() for child in children)
        try:
            tell(outcomes.get(timeout=0.5))
        except queue.Empty:
            if not running:
                break
    for child in children:
        child.join()
        if child.exitcode != 0:
            tell(Outcome("a session", 0, [f"a worker ended with {child.exitcode}"]))


def usual_workers() -> int:
    """Tests mostly wait, so there may be more of them than processors."""
    return (os.cpu_count() or 1) + 1
