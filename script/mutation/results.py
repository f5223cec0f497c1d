"""What came of each change, kept in the build folder, and the survivors that the project accepts."""

import dataclasses
import json
import pathlib

KILLED = "killed"
SURVIVED = "survived"
SAME = "no difference"
BROKEN = "does not compile"

COLUMNS = ["file", "function", "line", "change", "reason"]


@dataclasses.dataclass(frozen=True)
class Result:
    outcome: str
    by: str = ""           # the test that noticed
    seconds: float = 0
    is_stuck: bool = False # it noticed by taking far too long


class Results:
    """One line of JSON a result, written at once, so that a run that is broken off goes on where it was.

    They hold while the library stands as it is: when it has changed, they are kept as hints of which test notices.
    Survivors are tried again when the tests have changed."""

    def __init__(self, file, library, tests):
        self._file = pathlib.Path(file)
        self._library = library
        self._tests = tests
        self._results = {}
        self._hints = {}
        if self._file.exists():
            self._load()

    def of(self, place):
        return self._results.get(place.key)

    def hint(self, place):
        """The test that noticed this change in an earlier library; "" when that is not known."""
        return self._hints.get(place.key, "")

    def add(self, place, result):
        self._results[place.key] = result
        line = {"key": place.key, "library": self._library, "tests": self._tests, **dataclasses.asdict(result)}
        with self._file.open("a", encoding="utf-8") as out:
            out.write(json.dumps(line) + "\n")

    def _load(self):
        for line in self._file.read_text(encoding="utf-8").splitlines():
            try:
                stored = json.loads(line)
            except ValueError:
                continue  # broken off while it was written
            key = tuple(stored["key"])
            result = Result(stored["outcome"], stored["by"], stored["seconds"], stored.get("is_stuck", False))
            if result.by:
                self._hints[key] = result.by
            holds = stored["library"] == self._library and (result.outcome != SURVIVED or stored["tests"] == self._tests)
            if holds:
                self._results[key] = result
            else:
                self._results.pop(key, None)


class Accepted:
    """The survivors that nobody could see, each with the reason: a table of the project."""

    def __init__(self, file):
        self.reasons = {}
        for number, line in enumerate(pathlib.Path(file).read_text(encoding="utf-8").splitlines(), 1):
            if not line or line.startswith("#"):
                continue
            fields = line.split("\t")
            if len(fields) != len(COLUMNS) or not all(fields[:1] + fields[2:]):
                raise SystemExit(f"{file}:{number}: a line has {len(COLUMNS)} fields between tabs: {', '.join(COLUMNS)}")
            key = tuple(fields[:4])
            if key in self.reasons:
                raise SystemExit(f"{file}:{number}: this change stands here twice")
            self.reasons[key] = fields[4]

    def __contains__(self, place):
        return place.key in self.reasons

    def complaints(self, places, results):
        """What is wrong with the list, one line each: changes that are none any more, or that a test notices."""
        known = {place.key: place for place in places}
        for key in self.reasons:
            shown = " | ".join(key)
            if key not in known:
                yield f"an accepted survivor is no change of the library any more: {shown}"
                continue
            result = results.of(known[key]) if results else None
            if result and result.outcome == KILLED:
                yield f"an accepted survivor is noticed by {result.by}: {shown}"
            elif result and result.outcome in (SAME, BROKEN):
                yield f"an accepted survivor is none ({result.outcome}): {shown}"
