"""The tables, and their sections in the documentation."""

import re

MET = {True: "yes", False: "NO", None: ""}


def number(milliseconds):
    return f"{milliseconds:,.0f}" if milliseconds >= 100 else f"{milliseconds:.3g}"


def timing_rows(workload, times):
    def time(subject):
        return min(subject.milliseconds) if workload.by_minimum else subject.median

    ours = time(times[0])
    goals = {goal.peer: goal for goal in workload.goals}
    rows = []
    for i, subject in enumerate(times):
        goal = goals.get(subject.name)
        ratio = time(subject) / ours
        bounded = ratio if goal and goal.of_peer else 1 / ratio
        rows.append([workload.key if i == 0 else "", workload.title if i == 0 else "", subject.name,
                     number(subject.median), number(min(subject.milliseconds)),
                     number(max(subject.milliseconds)), str(len(subject.milliseconds)),
                     "" if i == 0 else f"{ratio:.2f}", goal.text if goal else "",
                     MET[bounded <= goal.most] if goal else ""])
    return rows


def markdown(head, rows):
    lines = ["| " + " | ".join(head) + " |", "|" + "---|" * len(head)]
    lines += ["| " + " | ".join(row) + " |" for row in rows]
    return "\n".join(lines)


def timing_table(rows):
    return markdown(["", "Work", "Subject", "Median ms", "Min", "Max", "Rounds", "x kurv", "Goal",
                     "Met"], rows)


def memory_table(rows):
    return markdown(["", "Work", "Once it is", "Added", "In copies", "Goal", "Met"],
                    [[r["key"], r["title"], r["subject"], r["value"], r["ratio"], r["goal"],
                      MET[r["met"]]] for r in rows])


def quality_table(rows):
    """A row per subject, a column per shape and width: mean and largest error."""
    columns = list(dict.fromkeys((r["shape"], r["width"]) for r in rows))
    subjects = list(dict.fromkeys(r["subject"] for r in rows))
    cells = {(r["subject"], r["shape"], r["width"]):
             f"{r['mean']:.1f} / {r['most']}" + (" NO" if r["met"] is False else "") for r in rows}
    return markdown(["mean / largest error"] + [f"{shape}, {width} px" for shape, width in columns],
                    [[s] + [cells[(s, *column)] for column in columns] for s in subjects])


def growth_table(times, fit):
    counts = sorted({c for c, _, _ in times})
    points = sorted({p for _, p, _ in times})
    table = {(c, p): t for c, p, t in times}
    base, curve, point, error = fit
    text = markdown(["milliseconds"] + [f"{p:,} points" for p in points],
                    [[f"{c} curves" if c > 1 else "1 curve"] + [number(table[c, p]) for p in points] for c in counts])
    return text + (f"\n\nTime = {base:.2f} ms + {curve * 1000:.1f} µs a curve + {point * 1e6:.2f} ns a "
                   f"point of a curve; the furthest of these {len(times)} is {error:.0%} off.")


def replace_in_document(path, sections):
    """Each section is between <!-- NAME --> and <!-- end -->."""
    with open(path, encoding="utf-8") as file:
        text = file.read()
    for name, content in sections.items():
        pattern = re.compile(rf"(<!-- {name} -->\n).*?(<!-- end -->)", re.DOTALL)
        if not pattern.search(text):
            raise RuntimeError(f"{path} has no place for {name}")
        text = pattern.sub(lambda match: match[1] + content + "\n" + match[2], text)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
