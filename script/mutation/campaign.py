"""Tries changes one after the other, on several workers, and tells how it goes."""

import collections
import queue
import threading
import time

from library import DoesNotCompile
from results import BROKEN, KILLED, SAME, SURVIVED, Result

TIMES_AS_LONG = 20  # a test that takes this many times its usual time is stuck
AT_LEAST = 15       # seconds: the machine may be busy


class Campaign:
    """`places` are all changes of the library, in the order of their numbers; `alone` are the numbers of those that have
    no switch in the library `switched`; `users` are, of each file, the sources that hold or include it."""

    def __init__(self, places, switched, alone, users, workshops, suite, reach, results):
        self._numbers = {place.key: number for number, place in enumerate(places)}
        self._switched = switched
        self._alone = alone
        self._users = users
        self._workshops = workshops
        self._suite = suite
        self._reach = reach
        self._results = results
        self._killers = collections.defaultdict(collections.Counter)  # of a function and of a file: the tests
        self._around = collections.defaultdict(set)                   # of a function: its changes with a switch
        self._near = collections.defaultdict(set)                     # of a source: the same
        for number, place in enumerate(places):
            if number not in alone:
                self._around[place.file, place.function].add(number)
                for source in users[place.file]:
                    self._near[source].add(number)

    def run(self, places, progress):
        """Tries what has no result yet. Broken off by the keyboard, it keeps what it has."""
        waiting = queue.SimpleQueue()
        for place in places:
            known = self._results.of(place)
            if known:
                self._learn(place, known)
                progress.add(place, known, is_new=False)
            else:
                waiting.put(place)
        stop = threading.Event()
        failures = []

        def work(workshop):
            while not stop.is_set() and not failures:
                try:
                    place = waiting.get_nowait()
                except queue.Empty:
                    return
                try:
                    result = self._try(workshop, place, stop)
                except Exception as failure:  # told by the main thread
                    failures.append(failure)
                    return
                if result:
                    self._learn(place, result)
                    self._results.add(place, result)
                    progress.add(place, result, is_new=True)

        workers = [threading.Thread(target=work, args=[workshop]) for workshop in self._workshops]
        for worker in workers:
            worker.start()
        try:
            for worker in workers:
                worker.join()
        except KeyboardInterrupt:
            stop.set()
            for worker in workers:
                worker.join()
            raise
        if failures:
            raise failures[0]

    def _try(self, workshop, place, stop):
        """None where it was broken off."""
        users = self._users[place.file]
        number = self._numbers[place.key]
        library, environment = self._switched, {"QUORVAN_CHANGE": str(number)}
        begun = time.monotonic()
        try:
            if number in self._alone:
                library, environment = workshop.library(place, users), {}
                if library is None:
                    return Result(SAME)
            for test in self._order(place):
                if stop.is_set():
                    return None
                patience = max(AT_LEAST, TIMES_AS_LONG * self._reach.seconds[test])
                run = self._suite.run(test, library, patience, environment)
                if not run.passed:
                    return Result(KILLED, test, time.monotonic() - begun, run.is_stuck)
            is_same = workshop.is_same_when_optimised(place, users)
        except DoesNotCompile:
            return Result(BROKEN)
        return Result(SAME if is_same else SURVIVED, seconds=time.monotonic() - begun)

    def _order(self, place):
        """The tests that can notice: first the one that noticed this change in an earlier library, then who noticed much
        in this function and this file, then the closest."""
        number = self._numbers[place.key]
        near = set().union(*(self._near[source] for source in self._users[place.file]))
        tests = self._reach.tests(None if number in self._alone else number, self._around[place.file, place.function],
                                  near)
        hint = self._results.hint(place)
        in_function = self._killers[place.file, place.function]
        in_file = self._killers[place.file]
        return sorted(tests, key=lambda test: (test != hint, -in_function[test], -in_file[test]))

    def _learn(self, place, result):
        if result.outcome == KILLED:
            self._killers[place.file, place.function][result.by] += 1
            self._killers[place.file][result.by] += 1


class Progress:
    """Prints survivors as they are found, and from time to time how far it is and how long it will take."""

    def __init__(self, total, accepted, every=30):
        self.counts = collections.Counter()
        self.survivors = []
        self.stuck = 0
        self._total = total
        self._accepted = accepted
        self._every = every
        self._new = 0
        self._begun = self._told = time.monotonic()
        self._lock = threading.Lock()

    def add(self, place, result, is_new):
        with self._lock:
            self.counts[result.outcome] += 1
            self.stuck += result.is_stuck
            self._new += is_new
            if result.outcome == SURVIVED:
                self.survivors.append(place)
                if is_new and place not in self._accepted:
                    print(f"survived: {place}", flush=True)
            if is_new and time.monotonic() - self._told > self._every:
                self._told = time.monotonic()
                print(f"{self.line()}; {shown_time(self._left())} left", flush=True)

    def line(self):
        return (f"{sum(self.counts.values())} of {self._total}: {self.counts[KILLED]} killed ({self.stuck} by a test that got stuck), "
                f"{self.counts[SURVIVED]} survived, {self.counts[SAME]} without difference, "
                f"{self.counts[BROKEN]} not compiling")

    def share(self):
        """How many of a hundred survive."""
        tried = self.counts[KILLED] + self.counts[SURVIVED]
        return 100 * self.counts[SURVIVED] / tried if tried else 0

    def _left(self):
        spent = time.monotonic() - self._begun
        return spent / self._new * (self._total - sum(self.counts.values())) if self._new else 0


def shown_time(seconds):
    return f"{round(seconds / 60)} min" if seconds >= 90 else f"{round(seconds)} s"
