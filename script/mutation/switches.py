"""All changes of a source in one text, each behind a switch: what is compiled once serves for all of them."""

import re

HEADER = """#pragma once
extern "C" int quorvanChange;
extern "C" unsigned char quorvanReached[];
inline bool quorvanChanged(int number) {
    quorvanReached[number] = 1;
    return quorvanChange == number;
}
"""

# The number of the change comes from the environment; where the process has been is written at its end.
SOURCE = """#include <cstdio>
#include <cstdlib>
#include <unistd.h>
namespace {
int chosen() {
    const char* number = std::getenv("QUORVAN_CHANGE");
    return number == nullptr ? -1 : std::atoi(number);
}
}
extern "C" {
int quorvanChange = chosen();
unsigned char quorvanReached[%d];
__attribute__((destructor)) static void tellReached() {
    const char* folder = std::getenv("QUORVAN_REACHED");
    if (folder == nullptr) return;
    char name[4096];
    std::snprintf(name, sizeof name, "%%s/%%d", folder, static_cast<int>(getpid()));
    if (std::FILE* out = std::fopen(name, "w")) {
        std::fwrite(quorvanReached, 1, sizeof quorvanReached, out);
        std::fclose(out);
    }
}
}
"""

# Where a constant is wanted, no switch compiles; and a switch may make a word narrower than what it goes into.
FLAGS = ["-Wno-c++11-narrowing"]
NEWLINE = "\n"
COMPLAINT = re.compile(r"^(?:\./)?([^:\s]+):(\d+):\d+: (?:fatal error|error|note): ", re.MULTILINE)


def stands_alone(text, place):
    """Whether a change cannot be behind a switch: an argument of a template, or lines with a comment, which cannot be
    repeated on one line."""
    stretch = text[place.start:place.end]
    return text[place.start - 1] == "<" or (NEWLINE in stretch and "//" in stretch and not place.is_statement)


def switched(text, numbered):
    """The text with these changes of it, pairs of a number and a place, behind their switches. Lines stay lines."""
    return Writer(text, numbered).stretch(0, len(text))


class Writer:
    def __init__(self, text, numbered):
        self._text = text
        # Outer ones first; of the same stretch a statement left out is the outermost.
        self._numbered = sorted(numbered, key=lambda one: (one[1].start, -one[1].end, not one[1].is_statement))

    def stretch(self, start, end, skipped=frozenset()):
        """What stands from start to end, with all changes inside but those skipped."""
        written = []
        at = start
        for number, place in self._numbered:
            inside = at <= place.start and place.end <= end and number not in skipped
            if inside:
                written += [self._text[at:place.start], self._switch(number, place, skipped)]
                at = place.end
        return "".join(written) + self._text[at:end]

    def _switch(self, number, place, skipped):
        skipped = skipped | {number}
        otherwise = self.stretch(place.start, place.end, skipped)
        if place.is_statement:
            return f"if (!quorvanChanged({number})) {{ {otherwise} }}"
        # The same stretch has other changes besides: they are not seen while this one is made.
        changed = "".join(part if isinstance(part, str) else self._inner(part, place, skipped) for part in place.parts)
        return f"(quorvanChanged({number}) ? ({changed.replace(NEWLINE, ' ')}) : ({otherwise}))"

    def _inner(self, part, place, skipped):
        around = {number for number, other in self._numbered
                  if other.start <= place.start and place.end <= other.end}
        return self.stretch(*part, skipped | around)


def lines_complained_of(errors):
    """The files and lines that a compiler's messages name."""
    return {(file, int(line)) for file, line in COMPLAINT.findall(errors)}
