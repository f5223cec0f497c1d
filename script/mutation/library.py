"""Builds the library from changed copies of its sources, as the build folder says it is built."""

import concurrent.futures
import json
import pathlib
import shlex
import shutil
import subprocess

import switches


class DoesNotCompile(Exception):
    pass


class Commands:
    """How the build folder compiles each source of the library."""

    def __init__(self, root, build, folder="Quorvan"):
        self.root = pathlib.Path(root)
        self.build = pathlib.Path(build)
        self._arguments = {}
        self.other_objects = []  # of the kernel, which stays as it is
        self.compiler = None
        for entry in json.loads((self.build / "compile_commands.json").read_text()):
            words = shlex.split(entry["command"])
            output = words[words.index("-o") + 1]
            if not output.startswith("CMakeFiles/Quorvan.dir/"):
                continue
            source = str(pathlib.Path(entry["file"]).relative_to(self.root))
            if source.startswith(folder + "/"):
                self.compiler = next(word for word in words if "clang" in word)
                self._arguments[source] = words[words.index(self.compiler) + 1:words.index("-o")]
            else:
                self.other_objects.append(self.build / output)

    @property
    def sources(self):
        return sorted(self._arguments)

    def flags(self, source):
        return self._arguments[source]


class Copy:
    """A copy of the library's sources. What is compiled from it does not tell where it lies."""

    def __init__(self, commands, folder):
        self.commands = commands
        self.folder = pathlib.Path(folder)
        shutil.rmtree(self.folder, ignore_errors=True)
        shutil.copytree(commands.root / "Quorvan", self.folder / "Quorvan")

    def compile(self, source, made, *options):
        run = subprocess.run([self.commands.compiler, "-I.", *self.commands.flags(source), "-O0", *options, "-w",
                              "-o", made, "-c", source], cwd=self.folder, capture_output=True)
        if run.returncode != 0:
            raise DoesNotCompile(run.stderr.decode(errors="replace"))
        return made

    def compile_all(self, workers, *options):
        """The object of each source."""
        def one(source):
            return source, self.compile(source, self.object(source), *options)
        with concurrent.futures.ThreadPoolExecutor(workers) as pool:
            return dict(pool.map(one, self.commands.sources))

    def object(self, source):
        return self.object_in(self.folder, source)

    @staticmethod
    def object_in(folder, source):
        return folder / (source.replace("/", "-") + ".o")

    def link(self, objects):
        made = self.folder / "Quorvan.dylib"
        subprocess.run([self.commands.compiler, "-shared", "-fPIC", "-fuse-ld=lld", "-o", made, *objects,
                        *self.commands.other_objects], check=True)
        return made

    def read(self, file):
        return (self.folder / file).read_text(encoding="latin-1")

    def write(self, file, text):
        (self.folder / file).write_text(text, encoding="latin-1")


class Workshop:
    """Where one worker builds the library with one change at a time."""

    def __init__(self, commands, folder, plain):
        self._copy = Copy(commands, folder)
        self._plain = plain  # the objects without any change
        self.folder = self._copy.folder

    def library(self, place, users):
        """The library with this change; None where it makes no difference to the machine's code. The users are the
        sources that hold the place or include it."""
        objects = dict(self._plain)
        with Changed(self._copy, place):
            for source in users:
                objects[source] = self._copy.compile(source, self._copy.object(source))
        if all(objects[source].read_bytes() == self._plain[source].read_bytes() for source in users):
            return None
        return self._copy.link(objects.values())

    def is_same_when_optimised(self, place, users):
        """Whether an optimiser sees no difference."""
        def compiled():
            made = self._copy.folder / "optimised.o"
            return [self._copy.compile(source, made, "-O2").read_bytes() for source in users]
        before = compiled()
        with Changed(self._copy, place):
            return compiled() == before


class Changed:
    """While it lasts, the copy has the place changed."""

    def __init__(self, copy, place):
        self._copy = copy
        self._place = place
        self._text = copy.read(place.file)

    def __enter__(self):
        self._copy.write(self._place.file, self._place.apply(self._text))

    def __exit__(self, *_):
        self._copy.write(self._place.file, self._text)


def build_switched(commands, folder, places, workers):
    """The library with all changes behind switches, and the numbers of those that must be compiled by themselves,
    since they stand where the language wants a constant."""
    copy = Copy(commands, folder)
    texts = {file: copy.read(file) for file in {place.file for place in places}}
    alone = {number for number, place in enumerate(places) if switches.stands_alone(texts[place.file], place)}
    copy.write("switches.h", switches.HEADER)
    copy.write("switches.cpp", switches.SOURCE % len(places))
    options = ["-include", "switches.h", *switches.FLAGS]
    waiting = commands.sources
    while waiting:
        for file, text in texts.items():
            numbered = [(number, place) for number, place in enumerate(places)
                        if place.file == file and number not in alone]
            copy.write(file, switches.switched(text, numbered))
        complaints = complaints_of(copy, waiting, workers, options)
        lines = set().union(*complaints.values())
        more = {number for number, place in enumerate(places) if (place.file, place.number) in lines} - alone
        if complaints and not more:
            raise SystemExit(f"script/mutate: these do not compile with switches: {sorted(complaints)}")
        alone |= more
        waiting = sorted(complaints)
    objects = copy.compile_all(workers, *options)
    switch = copy.folder / "switches.o"
    subprocess.run([commands.compiler, "-fPIC", "-O1", "-o", switch, "-c", copy.folder / "switches.cpp"], check=True)
    return copy.link([*objects.values(), switch]), alone


def complaints_of(copy, sources, workers, options):
    """Of each of the sources that does not compile, the lines that the compiler names."""
    def one(source):
        try:
            copy.compile(source, "/dev/null", "-fsyntax-only", "-ferror-limit=0", *options)
        except DoesNotCompile as failure:
            return source, switches.lines_complained_of(str(failure))
        return source, None
    with concurrent.futures.ThreadPoolExecutor(workers) as pool:
        return {source: lines for source, lines in pool.map(one, sources) if lines is not None}
