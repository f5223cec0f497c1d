"""The places of the library that can be changed, found in clang's own tree of its sources."""

import collections
import dataclasses
import pathlib
import re

from clang.cindex import Config, CursorKind, Index, TokenKind

Config.set_library_file("/usr/lib/llvm-19/lib/libclang-19.so.1")

COMPARISONS = {"==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">"}
OPERATORS = {"+": "-", "-": "+", "*": "/", "/": "*", "&&": "||", "||": "&&", "+=": "-=", "-=": "+="}
TRUTH = {"true": "false", "false": "true"}
FUNCTIONS = {CursorKind.FUNCTION_DECL, CursorKind.CXX_METHOD, CursorKind.CONSTRUCTOR, CursorKind.DESTRUCTOR,
             CursorKind.FUNCTION_TEMPLATE}
INFIX = {CursorKind.BINARY_OPERATOR, CursorKind.COMPOUND_ASSIGNMENT_OPERATOR}
NUMBER = re.compile(r"\d+(?:\.\d+)?$")
TEXT = re.compile(r'"(.*)"(\w*)$')
NAME = re.compile(r"\w+$")


@dataclasses.dataclass(frozen=True)
class Place:
    """One change: of this file, what stands from start to end becomes the parts, which are texts, and stretches of the
    file as it is: pairs of offsets."""
    file: str
    start: int
    end: int
    parts: tuple
    function: str  # "" outside of any
    line: str      # the text of the line it starts on
    change: str    # "44 -> 45"; where a line has the same change twice, the second ends in " (2)"
    number: int    # of its line, to be printed and nothing else

    @property
    def key(self):
        """What it is known by while lines come and go around it."""
        return self.file, self.function, self.line, self.change

    @property
    def is_statement(self):
        """Whether a statement is left out."""
        return not self.parts

    def apply(self, text):
        changed = "".join(part if isinstance(part, str) else text[slice(*part)] for part in self.parts)
        return text[:self.start] + changed + text[self.end:]

    def __str__(self):
        where = f"{self.file}:{self.number}" + (f" ({self.function})" if self.function else "")
        return f"{where}\n    {self.line}\n    {self.change}"


class Finder:
    """Collects the changes of each file that the translation units show, each once."""

    def __init__(self, root, folder):
        self._root = pathlib.Path(root)
        self._folder = folder
        self._texts = {}
        self._read = set()
        self._functions = collections.defaultdict(list)  # of a file: (start, end, name)
        self._changes = collections.defaultdict(set)     # of a file: (start, end, parts, what it is called)
        self.headers = {}                                # of a source: the files of the folder that it includes

    def read(self, source, arguments):
        """Adds what the source and its headers in the folder hold."""
        unit = Index.create().parse(str(self._root / source), args=arguments)
        errors = [str(one) for one in unit.diagnostics if one.severity >= 3]
        if errors:
            raise SystemExit(f"script/mutate: {source} does not compile: {errors[0]}")
        included = {self._relative(one.include.name) for one in unit.get_includes()}
        self.headers[source] = sorted(file for file in included if file)
        self._walk(unit.cursor)
        for file in [source, *self.headers[source]]:
            if file not in self._read:
                self._read.add(file)
                self._literals(unit, file)

    def places(self):
        """All of them, in the order of files and lines."""
        found = []
        for file in sorted(self._changes):
            seen = collections.Counter()
            for change in sorted(self._changes[file], key=lambda one: (one[0], -one[1], one[3])):
                place = self._place(file, *change)
                seen[place.key] += 1
                if seen[place.key] > 1:
                    place = dataclasses.replace(place, change=f"{place.change} ({seen[place.key]})")
                found.append(place)
        return found

    # The tree: statements, conditions, operators, enumerators.

    def _walk(self, cursor, function=None):
        for child in cursor.get_children():
            file = self._relative(child.location.file.name) if child.location.file else None
            if file is None:
                continue
            inside = function
            if child.kind in FUNCTIONS:
                inside = child
                self._functions[file].append((*extent(child), qualified(child)))
            elif child.kind in (CursorKind.LAMBDA_EXPR, CursorKind.BLOCK_EXPR):
                inside = None
            self._look(file, child, inside)
            self._walk(child, inside)

    def _look(self, file, cursor, function):
        children = list(cursor.get_children())
        if cursor.kind == CursorKind.COMPOUND_STMT:
            for statement in children:
                self._leave_out(file, statement)
        elif cursor.kind == CursorKind.IF_STMT and children and children[0].kind.is_expression():
            self._negate(file, children[0])
        elif cursor.kind == CursorKind.CONDITIONAL_OPERATOR:
            self._negate(file, children[0])
        elif cursor.kind == CursorKind.RETURN_STMT and children and function and returns_truth(function):
            self._negate(file, children[0])
        elif cursor.kind in INFIX or is_flags(cursor):
            self._operator(file, cursor, children[0], children[-1])
        elif cursor.kind == CursorKind.UNARY_OPERATOR:
            self._sign(file, cursor)
        elif cursor.kind == CursorKind.DECL_REF_EXPR:
            self._enumerator(file, cursor)

    def _leave_out(self, file, statement):
        start, end = extent(statement)
        is_empty_return = statement.kind == CursorKind.RETURN_STMT and not list(statement.get_children())
        if (statement.kind.is_expression() or is_empty_return) and self._text(file)[end:end + 1] == ";":
            self._change(file, start, end + 1, (), f"{squeezed(self._text(file)[start:end + 1])} left out")

    def _negate(self, file, condition):
        start, end = extent(condition)
        text = self._text(file)[start:end]
        is_turned_otherwise = text in TRUTH or text.startswith("!") or operator_of(condition) in ("==", "!=")
        if not is_turned_otherwise:
            self._change(file, start, end, ("!static_cast<bool>(", (start, end), ")"),
                         f"{squeezed(text)} -> !({squeezed(text)})")

    def _operator(self, file, cursor, left, right):
        operator = operator_of(cursor)
        left, right = extent(left), extent(right)
        start, end = extent(cursor)
        between = self._text(file)[left[1]:right[0]]
        if operator not in between:
            return
        if operator == "|":
            self._change(file, start, end, (left,), f"| {squeezed(self._text(file)[slice(*right)])} left out")
        after = COMPARISONS.get(operator) or OPERATORS.get(operator)
        if after:
            before_it, after_it = between.split(operator, 1)
            self._change(file, start, end, (left, before_it + after + after_it, right), f"{operator} -> {after}")

    def _sign(self, file, cursor):
        start, end = extent(cursor)
        text = self._text(file)[start:end]
        if text[:1] in ("!", "-") and text[:2] != "--":
            after = "static_cast<bool>" if text[0] == "!" else ""
            self._change(file, start, end, (after + "(", (start + 1, end), ")"), f"{text[0]} left out")

    def _enumerator(self, file, cursor):
        named = cursor.referenced
        if named is None or named.kind != CursorKind.ENUM_CONSTANT_DECL:
            return
        all_names = [one.spelling for one in named.semantic_parent.get_children()
                     if one.kind == CursorKind.ENUM_CONSTANT_DECL]
        other = all_names[(all_names.index(named.spelling) + 1) % len(all_names)]
        start, end = extent(cursor)
        text = self._text(file)[start:end]
        name = NAME.search(text)
        if name and name.group() == named.spelling != other:
            self._change(file, start, end, (text[:name.start()] + other,), f"{named.spelling} -> {other}")

    # The words: numbers, truth values, texts.

    def _literals(self, unit, file):
        text = self._text(file)
        name = unit.get_file(str(self._root / file)).name
        for token in unit.get_tokens(extent=unit.get_extent(name, (0, len(text)))):
            start, end = extent(token)
            word = text[start:end]
            if token.kind == TokenKind.KEYWORD and word in TRUTH:
                self._word(file, start, end, TRUTH[word])
            elif token.kind == TokenKind.LITERAL and NUMBER.match(word):
                self._word(file, start, end, one_more(word))
            elif token.kind == TokenKind.LITERAL and (match := TEXT.match(word)):
                self._word(file, start, end, f'"x{match[1]}"{match[2]}')

    def _word(self, file, start, end, after):
        self._change(file, start, end, (after,), f"{self._text(file)[start:end]} -> {after}")

    # Files.

    def _relative(self, path):
        root = self._root.resolve()
        resolved = pathlib.Path(path).resolve()
        return str(resolved.relative_to(root)) if resolved.is_relative_to(root / self._folder) else None

    def _text(self, file):
        if file not in self._texts:
            # clang counts bytes, so a character is a byte here
            self._texts[file] = (self._root / file).read_text(encoding="latin-1")
        return self._texts[file]

    @staticmethod
    def _line_at(text, offset):
        return text[text.rfind("\n", 0, offset) + 1:(text + "\n").index("\n", offset)]

    def _change(self, file, start, end, parts, name):
        if not self._line_at(self._text(file), start).lstrip().startswith(("#", "static_assert")):
            self._changes[file].add((start, end, parts, name))

    def _place(self, file, start, end, parts, name):
        text = self._text(file)
        around = [one for one in self._functions[file] if one[0] <= start < one[1]]
        return Place(file, start, end, parts, max(around)[2] if around else "",
                     squeezed(self._line_at(text, start)), name, text.count("\n", 0, start) + 1)


def extent(thing):
    return thing.extent.start.offset, thing.extent.end.offset


def qualified(function):
    parent = function.semantic_parent
    is_member = parent is not None and parent.kind in (CursorKind.CLASS_DECL, CursorKind.STRUCT_DECL,
                                                       CursorKind.CLASS_TEMPLATE)
    name = re.sub(r"<.*>$", "", function.spelling)
    return f"{parent.spelling}::{name}" if is_member else name


def returns_truth(function):
    return function.result_type.spelling == "bool"


def operator_of(cursor):
    return cursor.spelling.removeprefix("operator")


def is_flags(cursor):
    return cursor.kind == CursorKind.CALL_EXPR and cursor.spelling == "operator|"


def squeezed(text):
    return " ".join(text.split())


def one_more(number):
    whole, _, fraction = number.partition(".")
    return f"{int(whole) + 1}" + (f".{fraction}" if fraction else "")
