#!/usr/bin/python3
"""What script/mutate does to small texts, and what it makes of its two files."""

import pathlib
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))

import places
import results
import suite
import switches


def found(text):
    """The places of a library that has this one source."""
    with tempfile.TemporaryDirectory() as root:
        (pathlib.Path(root) / "Lib").mkdir()
        (pathlib.Path(root) / "Lib/one.cpp").write_text(text)
        finder = places.Finder(root, "Lib")
        finder.read("Lib/one.cpp", ["-std=c++20", "-fblocks"])
        return finder.places()


def changes(text):
    return [place.change for place in found(text)]


def changed(text):
    """The text with each change in turn."""
    return [place.apply(text) for place in found(text)]


class Places(unittest.TestCase):
    def test_a_number_becomes_one_more(self):
        self.assertEqual(changed("int a = 44;"), ["int a = 45;"])
        self.assertEqual(changed("double a = 20.6;"), ["double a = 21.6;"])

    def test_a_truth_value_is_turned(self):
        self.assertEqual(changed("bool a = true;"), ["bool a = false;"])

    def test_a_text_gets_a_letter(self):
        self.assertEqual(changed('const char* a = "Note";'), ['const char* a = "xNote";'])

    def test_texts_of_directives_and_assertions_stay(self):
        self.assertEqual(changes('static_assert(sizeof(int) == 4, "no");\n#pragma message "no"\n'), [])

    def test_an_operator_becomes_its_counterpart(self):
        self.assertEqual(changes("int f(int a, int b) { return a + b; }"), ["+ -> -"])
        self.assertEqual(changes("bool g(int a, int b) { return a == b; }"), ["== -> !="])
        self.assertEqual(changed("void h(int& a, int b) { a -= b; }")[1], "void h(int& a, int b) { a += b; }")

    def test_a_comparison_takes_or_leaves_its_border_and_is_negated(self):
        self.assertEqual(changes("bool f(int a, int b) { return a < b; }"), ["< -> <=", "a < b -> !(a < b)"])

    def test_a_statement_is_left_out_but_no_declaration(self):
        text = "void g(int); void f() { int a = g2(); g(a); }".replace("g2()", "int()")
        self.assertEqual(changed(text), ["void g(int); void f() { int a = int();  }"])

    def test_an_empty_return_is_left_out(self):
        self.assertEqual(changes("void f(bool a) { if (a) { return; } }"), ["a -> !(a)", "return; left out"])

    def test_a_condition_is_negated_but_not_twice(self):
        self.assertEqual(changes("int f(bool a) { return !a ? f(a) : f(a); }"), ["! left out"])
        self.assertEqual(changes("int f(bool a) { return a ? f(a) : f(a); }"), ["a -> !(a)"])

    def test_the_answer_of_a_question_is_negated_but_not_that_of_a_block_inside(self):
        text = "bool f(bool (^)()); bool g(bool a) { return f(^{ return a; }); }"
        self.assertEqual(changes(text), ["f(^{ return a; }) -> !(f(^{ return a; }))"])

    def test_a_flag_is_left_out(self):
        text = "enum class E { A = 1, B = 2 }; E operator|(E, E); E f() { return E::A | E::B; }"
        self.assertIn("| E::B left out", changes(text))

    def test_a_constant_becomes_the_next_of_its_enumeration(self):
        text = "enum class E { A, B, C }; E f() { return E::C; }"
        self.assertEqual(changed(text), ["enum class E { A, B, C }; E f() { return E::A; }"])

    def test_a_template_is_looked_into_and_its_text_arguments_too(self):
        text = 'template <class T> void f(T t) { t.template send<"back:">(2); }'
        self.assertEqual(changes(text)[1:], ['"back:" -> "xback:"', "2 -> 3"])

    def test_a_place_knows_its_function_and_not_its_line_number(self):
        text = "struct S { int f(); };\nint S::f() { return 1; }\n"
        self.assertEqual([place.key for place in found(text)], [place.key for place in found("\n\n" + text)])
        self.assertEqual(found(text)[0].function, "S::f")

    def test_the_same_change_twice_in_a_line_is_told_apart(self):
        self.assertEqual(changes("int a[] = {1, 1};"), ["1 -> 2", "1 -> 2 (2)"])


class Switches(unittest.TestCase):
    def switched(self, text):
        return switches.switched(text, list(enumerate(found(text))))

    def test_a_word_has_a_switch(self):
        self.assertEqual(self.switched("int a = 44;"), "int a = (quorvanChanged(0) ? (45) : (44));")

    def test_a_statement_that_is_left_out_keeps_the_changes_inside(self):
        self.assertEqual(self.switched("void g(int); void f() { g(1); }"),
                         "void g(int); void f() { if (!quorvanChanged(0)) { g((quorvanChanged(1) ? (2) : (1))); } }")

    def test_an_operator_keeps_the_changes_of_its_sides(self):
        self.assertEqual(self.switched("int f(int a) { return a + 1; }"),
                         "int f(int a) { return (quorvanChanged(0) ? (a - (quorvanChanged(1) ? (2) : (1))) : "
                         "(a + (quorvanChanged(1) ? (2) : (1)))); }")

    def test_two_changes_of_the_same_words_exclude_each_other(self):
        self.assertEqual(self.switched("bool f(int a, int b) { return a < b; }"),
                         "bool f(int a, int b) { return (quorvanChanged(0) ? (a <= b) : "
                         "((quorvanChanged(1) ? (!static_cast<bool>(a < b)) : (a < b)))); }")

    def test_lines_stay_lines(self):
        text = "int f(int a,\n      int b) {\n    return a +\n           b;\n}\n"
        self.assertEqual(self.switched(text).count("\n"), text.count("\n"))

    def test_an_argument_of_a_template_stands_alone(self):
        text = 'template <class T> void f(T t) { t.template send<"back:">(); }'
        alone = [place.change for place in found(text) if switches.stands_alone(text, place)]
        self.assertEqual(alone, ['"back:" -> "xback:"'])

    def test_the_lines_of_complaints_are_read(self):
        told = "Lib/one.cpp:7:3: error: no\n    7 | x\n./Lib/two.h:9:1: note: here\n"
        self.assertEqual(switches.lines_complained_of(told), {("Lib/one.cpp", 7), ("Lib/two.h", 9)})


class Reach(unittest.TestCase):
    reach = suite.Reach({"Slow.All": {0, 1, 2}, "Quick.Near": {0, 1}, "Quick.Far": {0, 3}},
                        {"Slow.All": 9, "Quick.Near": 1, "Quick.Far": 1})

    def test_asks_the_tests_that_run_through_a_change_the_quick_and_close_ones_first(self):
        self.assertEqual(self.reach.tests(0, set(), {1, 2}), ["Quick.Near", "Slow.All", "Quick.Far"])
        self.assertEqual(self.reach.tests(3, set(), {1, 2}), ["Quick.Far"])

    def test_asks_those_around_a_change_without_a_switch_or_all(self):
        self.assertEqual(self.reach.tests(None, {2}, {2}), ["Slow.All"])
        self.assertEqual(len(self.reach.tests(None, set(), {2})), 3)


class ResultsFile(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.file = pathlib.Path(self.folder.name) / "results.jsonl"
        self.killed, self.survivor = found("int a = 1; int b = 2;")

    def write(self):
        kept = results.Results(self.file, "library", "tests")
        kept.add(self.killed, results.Result(results.KILLED, "Some.Test"))
        kept.add(self.survivor, results.Result(results.SURVIVED))

    def test_is_read_again_while_nothing_changed(self):
        self.write()
        again = results.Results(self.file, "library", "tests")
        self.assertEqual(again.of(self.killed).outcome, results.KILLED)
        self.assertEqual(again.of(self.survivor).outcome, results.SURVIVED)

    def test_other_tests_may_notice_a_survivor(self):
        self.write()
        again = results.Results(self.file, "library", "other tests")
        self.assertEqual(again.of(self.killed).outcome, results.KILLED)
        self.assertIsNone(again.of(self.survivor))

    def test_of_another_library_only_the_hint_is_left(self):
        self.write()
        again = results.Results(self.file, "other library", "tests")
        self.assertIsNone(again.of(self.killed))
        self.assertEqual(again.hint(self.killed), "Some.Test")

    def test_a_line_that_was_broken_off_is_passed_over(self):
        self.write()
        with self.file.open("a") as out:
            out.write('{"key": ["a')
        self.assertIsNotNone(results.Results(self.file, "library", "tests").of(self.killed))


class AcceptedList(unittest.TestCase):
    def accepted(self, content):
        with tempfile.NamedTemporaryFile("w", suffix=".tsv") as file:
            file.write(content)
            file.flush()
            return results.Accepted(file.name)

    def setUp(self):
        [self.place] = found("int a = 1;")
        self.line = "\t".join(self.place.key) + "\tnobody reads it\n"

    def test_knows_its_survivors(self):
        self.assertIn(self.place, self.accepted("# a comment\n" + self.line))

    def test_a_line_without_a_reason_is_refused(self):
        with self.assertRaisesRegex(SystemExit, ":1: a line has 5 fields"):
            self.accepted("\t".join(self.place.key) + "\t\n")

    def test_a_change_stands_once(self):
        with self.assertRaisesRegex(SystemExit, ":2: .*twice"):
            self.accepted(self.line + self.line)

    def test_tells_what_is_no_change_any_more(self):
        [complaint] = self.accepted(self.line).complaints([], None)
        self.assertIn("no change of the library any more", complaint)

    def test_tells_what_is_noticed_by_now(self):
        class Known:
            def of(self, place):
                return results.Result(results.KILLED, "Some.Test")
        [complaint] = self.accepted(self.line).complaints([self.place], Known())
        self.assertIn("noticed by Some.Test", complaint)


if __name__ == "__main__":
    unittest.main()
