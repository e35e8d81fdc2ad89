"""The subjects of each kind of workload take turns and end, and goals are met:  bench_test.py SOURCE"""

import sys
import time
import unittest
from pathlib import Path

sys.path.append(str(Path(sys.argv[1]).resolve() / "bench"))
from measure import LEAST_ROUNDS, Times, measure  # noqa: E402
from report import timing_rows  # noqa: E402
from workloads import Goal, Subject, Workload, at_most, faster  # noqa: E402

# Answers each request with a number of milliseconds, and prints a result at its end.
SERVER = """
import sys
print("ready", flush=True)
for line in sys.stdin:
    print(sys.argv[1], flush=True)
print(sys.argv[2])
"""


def server(name, milliseconds, result):
    return Subject(name, [sys.executable, "-c", SERVER, str(milliseconds), result])


def process(name, milliseconds):
    return Subject(name, [sys.executable, "-c", f"print({milliseconds})"], own_time=True)


class Measure(unittest.TestCase):
    def times(self, *subjects, **options):
        workload = Workload("T", "a test", list(subjects), seconds=0, **options)
        return {times.name: times for times in measure(workload, time.monotonic() + 60)}

    def test_servers_answer_with_their_times(self):
        times = self.times(server("one", 5, "same"), server("other", 7, "same"), same_result=True)
        self.assertEqual(times["one"].milliseconds, [5] * LEAST_ROUNDS)
        self.assertEqual(times["other"].median, 7)

    def test_results_that_differ_are_an_error(self):
        with self.assertRaisesRegex(RuntimeError, "T: the results differ"):
            self.times(server("one", 5, "a"), server("other", 7, "b"), same_result=True)

    def test_processes_say_what_they_took(self):
        times = self.times(process("one", 5), process("other", 7), whole_process=True)
        self.assertEqual(times["one"].milliseconds, [5] * LEAST_ROUNDS)
        self.assertEqual(times["other"].median, 7)

    def test_processes_are_timed_from_start_to_end(self):
        program = Subject("program", [sys.executable, "-c", "pass"])
        for by_minimum in (False, True):
            times = self.times(program, whole_process=True, by_minimum=by_minimum)["program"].milliseconds
            self.assertEqual(len(times), LEAST_ROUNDS)
            self.assertGreater(min(times), 0)

    def test_a_program_that_fails_is_an_error(self):
        with self.assertRaisesRegex(RuntimeError, "broken: no data"):
            self.times(Subject("broken", [sys.executable, "-c", "raise SystemExit('no data')"]))


class Goals(unittest.TestCase):
    def is_met(self, goal, ours, other):
        workload = Workload("T", "a test", [], [goal])
        rows = timing_rows(workload, [Times("kurv", [ours]), Times(goal.peer, [other])])
        return rows[1][-1]

    def test_kurv_is_faster_than_a_peer(self):
        self.assertEqual(self.is_met(faster("Qwt", 5), 10, 50), "yes")
        self.assertEqual(self.is_met(faster("Qwt", 5), 10, 49), "NO")

    def test_kurv_takes_a_multiple_of_a_peer_at_most(self):
        self.assertEqual(self.is_met(at_most("muParser", 1.5), 15, 10), "yes")
        self.assertEqual(self.is_met(at_most("muParser", 1.5), 16, 10), "NO")

    def test_the_peer_may_be_other_work_of_kurv(self):
        self.assertEqual(self.is_met(faster("kurv, a redraw", 30), 1, 30), "yes")
        self.assertEqual(self.is_met(faster("kurv, a redraw", 30), 1, 29), "NO")

    def test_a_goal_may_be_that_of_the_peer(self):
        goal = Goal("kurv, 4 px", 1.4, "at most 1.4 x 1 px", of_peer=True)
        self.assertEqual(self.is_met(goal, 10, 14), "yes")
        self.assertEqual(self.is_met(goal, 10, 15), "NO")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
