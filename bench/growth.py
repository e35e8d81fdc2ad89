"""How the time of a redraw grows with points and curves."""

import subprocess

OURS = "build/bench/bench/bench_ours"


def measure():
    """[(curves, points, milliseconds)]"""
    answer = subprocess.run([OURS, "growth"], check=True, capture_output=True, text=True).stdout
    return [(int(c), int(p), float(t)) for c, p, t in map(str.split, answer.splitlines())]


def solve(matrix, values):
    """Gauss, for three unknowns."""
    rows = [list(row) + [value] for row, value in zip(matrix, values)]
    size = len(rows)
    for i in range(size):
        pivot = max(range(i, size), key=lambda k: abs(rows[k][i]))
        rows[i], rows[pivot] = rows[pivot], rows[i]
        for k in range(size):
            if k != i:
                factor = rows[k][i] / rows[i][i]
                rows[k] = [a - factor * b for a, b in zip(rows[k], rows[i])]
    return [rows[i][size] / rows[i][i] for i in range(size)]


def fit(times):
    """The time as base + curve x curves + point x curves x points, by least squares of the relative
    errors; and the largest relative error."""
    terms = [[1 / t, c / t, c * p / t] for c, p, t in times]
    normal = [[sum(a[i] * a[j] for a in terms) for j in range(3)] for i in range(3)]
    base, curve, point = solve(normal, [sum(a[i] for a in terms) for i in range(3)])
    errors = [abs(base + curve * c + point * c * p - t) / t for c, p, t in times]
    return base, curve, point, max(errors)


def write(times, path):
    """The figures from which docs/make-pictures draws the chart, rounded as in the table of the page."""
    counts = sorted({curves for curves, _, _ in times})
    table = {(curves, points): t for curves, points, t in times}
    with open(path, "w", encoding="ascii") as file:
        file.write("points," + ",".join("1 curve" if c == 1 else f"{c} curves" for c in counts) + "\n")
        for points in sorted({points for _, points, _ in times}):
            file.write(f"{points}," + ",".join(f"{table[c, points]:.3g}" for c in counts) + "\n")
