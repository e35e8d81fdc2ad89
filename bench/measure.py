"""Lets the subjects of a workload take turns, and records their times."""

import resource
import statistics
import subprocess
import time
from dataclasses import dataclass

LEAST_ROUNDS = 5
MOST_ROUNDS = 25
ROUNDS_WITHOUT_GOAL = 3  # of a subject that is there for comparison only
SLOW = 4.0  # seconds a round; of slower subjects there is one round


@dataclass
class Times:
    name: str
    milliseconds: list

    @property
    def median(self):
        return statistics.median(self.milliseconds)


class Server:
    """A subject that runs its work on request. Times are its processor time."""

    def __init__(self, subject):
        self.name = subject.name
        self.process = subprocess.Popen(subject.command, stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.is_ready = False

    def wait(self):
        if not self.is_ready and self.process.stdout.readline().strip() != "ready":
            raise RuntimeError(f"{self.name}: {self.process.stderr.read().strip()}")
        self.is_ready = True

    def milliseconds(self):
        print("run", file=self.process.stdin, flush=True)
        answer = self.process.stdout.readline()
        if not answer:
            raise RuntimeError(f"{self.name}: {self.process.stderr.read().strip()}")
        return float(answer)

    def end(self):
        """Returns what the subject prints about its result."""
        try:
            rest, _ = self.process.communicate(timeout=20)
            return rest.strip()
        finally:
            self.process.kill()


class Process:
    """A subject that is started for each run. Times are wall-clock times."""

    def __init__(self, subject):
        self.name = subject.name
        self.command = subject.command
        self.own_time = subject.own_time

    def wait(self):
        pass

    def milliseconds(self):
        start = time.monotonic()
        answer = subprocess.run(self.command, check=True, capture_output=True)
        taken = (time.monotonic() - start) * 1000
        return float(answer.stdout) if self.own_time else taken

    def end(self):
        return ""


class ProcessorTime(Process):
    """The same in processor time, which other programs disturb least."""

    def milliseconds(self):
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        answer = subprocess.run(self.command, check=True, capture_output=True)
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        taken = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
        return float(answer.stdout) if self.own_time else taken * 1000


def measure(workload, deadline):
    """Rounds until the workload's seconds are over, at least five; fewer only where the deadline comes
    first, or for a subject without a goal, or one so slow that a single round is enough."""
    kind = Server
    if workload.whole_process:
        kind = ProcessorTime if workload.by_minimum else Process
    subjects = [kind(s) for s in workload.subjects]
    try:
        for subject in subjects:
            subject.wait()
        times = {subject.name: [] for subject in subjects}
        in_goals = {goal.peer for goal in workload.goals} or set(times)
        rounds = warm_up(subjects, times, in_goals, workload.by_minimum)
        end = time.monotonic() + workload.seconds
        for turn in range(MOST_ROUNDS):
            now = time.monotonic()
            # One round at least, or there would be nothing to compare.
            if turn > 0 and (now > deadline or (turn >= LEAST_ROUNDS and now > end)):
                break
            # In alternating order, so that no subject always runs after the same other one.
            for subject in subjects if turn % 2 == 0 else reversed(subjects):
                if turn < rounds[subject.name]:
                    times[subject.name].append(subject.milliseconds())
    finally:
        results = {subject.end() for subject in subjects}
    if workload.same_result and len(results) != 1:
        raise RuntimeError(f"{workload.key}: the results differ")
    return [Times(name, values) for name, values in times.items() if values]


def warm_up(subjects, times, in_goals, by_minimum):
    """Returns the number of rounds of each subject. The first run is not counted, unless it is so slow
    that it is the only one."""
    rounds = {}
    for subject in subjects:
        is_measured = subject is subjects[0] or subject.name in in_goals
        rounds[subject.name] = MOST_ROUNDS if is_measured else ROUNDS_WITHOUT_GOAL
        taken = subject.milliseconds()
        # A minimum of one round would be none.
        if taken > SLOW * 1000 and not by_minimum:
            rounds[subject.name] = 0
            times[subject.name].append(taken)
    return rounds
