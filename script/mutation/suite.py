"""The tests that can notice a change: what they are called, running one, which changes each of them runs through."""

import collections
import concurrent.futures
import dataclasses
import json
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import time

# Where tests lay their phones: in memory, where there is such a folder.
MEMORY = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None


@dataclasses.dataclass
class Run:
    passed: bool
    is_stuck: bool
    seconds: float


class Suite:
    """A program of tests, each to be run in a process of its own."""

    def __init__(self, program):
        self.program = pathlib.Path(program)
        self._environment = {**os.environ, "TZ": "UTC", "LC_ALL": "C.UTF-8"}

    def names(self):
        listed = subprocess.run([self.program, "--gtest_list_tests"], env=self._environment, check=True,
                                capture_output=True, text=True).stdout
        found = []
        for line in listed.splitlines():
            name = line.split("#")[0].rstrip()
            if name.endswith("."):
                group = name
            elif name.startswith("  ") and "DISABLED_" not in name:
                found.append(group + name.strip())
        return found

    def run(self, test, library, seconds, environment):
        """Runs one test with this build of the library, for so many seconds at most: one that takes longer fails."""
        with tempfile.TemporaryDirectory(prefix="mutate-", dir=MEMORY, ignore_cleanup_errors=True) as temporary:
            begun = time.monotonic()
            process = subprocess.Popen([self.program, f"--gtest_filter={test}"], stdin=subprocess.DEVNULL,
                                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True,
                                       env={**self._environment, "QUORVAN_LIBRARY": str(library), "TMPDIR": temporary,
                                            **environment})
            is_stuck = False
            try:
                status = process.wait(seconds)
            except subprocess.TimeoutExpired:
                is_stuck = True
                os.killpg(process.pid, signal.SIGKILL)
                status = process.wait()
            return Run(status == 0, is_stuck, time.monotonic() - begun)


class Reach:
    """Which changes each test runs through, by their numbers, and how long it takes."""

    def __init__(self, numbers, seconds):
        self._numbers = numbers  # of each test
        self.seconds = seconds
        self._share = collections.Counter(number for reached in numbers.values() for number in reached)

    def tests(self, number, around, near):
        """The tests that can notice a change: those that run through it; or, where it has no number, through any around
        it; or all where there is none around it either. First those that know most of what is near for the time they
        take: what few tests run through counts for more."""
        through = {number} if number is not None else set(around)
        found = [test for test, reached in self._numbers.items() if not through or through & reached]
        return sorted(found, key=lambda test: -self._closeness(test, near) / self.seconds[test])

    def _closeness(self, test, near):
        return sum(1 / self._share[one] for one in self._numbers[test] & near)

    def save(self, file):
        file.write_text(json.dumps({"numbers": {test: sorted(one) for test, one in self._numbers.items()},
                                    "seconds": self.seconds}))

    @classmethod
    def load(cls, file):
        stored = json.loads(file.read_text())
        return cls({test: set(one) for test, one in stored["numbers"].items()}, stored["seconds"])


def record(suite, library, folder, workers, tell):
    """Runs every test once with the library that has switches, none of them turned. Gives the reach of the tests that
    pass, and the names of those that do not."""
    def one(number_and_test):
        number, test = number_and_test
        own = pathlib.Path(folder) / str(number)
        own.mkdir(parents=True)
        run = suite.run(test, library, 600, {"QUORVAN_REACHED": str(own)})
        reached = set()
        for process in own.iterdir():
            reached.update(at for at, is_reached in enumerate(process.read_bytes()) if is_reached)
        return test, run, reached

    shutil.rmtree(folder, ignore_errors=True)
    names = suite.names()
    numbers, seconds, failing = {}, {}, []
    with concurrent.futures.ThreadPoolExecutor(workers) as pool:
        for done, (test, run, reached) in enumerate(pool.map(one, enumerate(names)), 1):
            tell(done, len(names))
            if run.passed:
                numbers[test], seconds[test] = reached, run.seconds
            else:
                failing.append(test)
    return Reach(numbers, seconds), failing
