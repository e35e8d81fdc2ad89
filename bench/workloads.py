"""What is compared with what, and the ratios that are goals."""

from dataclasses import dataclass, field

import tables

OURS = "build/bench/bench/bench_ours"
KURV = "build/bench/app/kurv"
PEERS = "build/peers/peer_"
LARGE = ["149", "32767"]


@dataclass
class Subject:
    name: str
    command: list
    own_time: bool = False  # of a process that prints the milliseconds of its work


@dataclass
class Goal:
    """kurv may take at most `most` times the median of the peer, or, with `of_peer`, the peer that of kurv."""

    peer: str
    most: float
    text: str
    of_peer: bool = False


@dataclass
class Workload:
    key: str
    title: str
    subjects: list  # ours first
    goals: list = field(default_factory=list)
    seconds: float = 8
    whole_process: bool = False  # timed from its start to its end, by the clock
    by_minimum: bool = False  # processor time, and the ratios of the minima, not of the medians
    same_result: bool = False  # what the subjects print at their end must agree


def ours(*words):
    return Subject("kurv", [OURS, *words])


def peer(name, program, *words):
    return Subject(name, [PEERS + program, *words])


def faster(name, times):
    return Goal(name, 1 / times, f"{times:g} x faster" if times > 1 else "ahead")


def at_most(name, times):
    return Goal(name, times, f"at most {times:g} x")


def lines(key, title, kind, curves, points, goals, seconds):
    words = [kind, str(curves), str(points), "1"]
    # A path that crosses itself thousands of times takes Cairo seconds a curve.
    cairo = [peer("Cairo, whole path", "cairo", "path", *words)]
    return Workload(key, title, [
        ours("redraw", *words),
        peer("QPainter, polyline", "qpainter", "polyline", *words),
        peer("QCustomPlot, adaptive", "qcustomplot", "adaptive", *words),
        peer("QCustomPlot, all points", "qcustomplot", "all", *words),
        peer("Qwt", "qwt", "lines", *words),
        peer("QPainter, line at a time", "qpainter", "lines", *words),
        peer("AGG, outline", "agg", "outline", *words),
        peer("looking at the data", "plain", "values", *words),
    ] + (cairo if kind == "waves" or int(curves) == 1 else []), goals, seconds)


def moving(key, title, method, kind, curves, points):
    words = [kind, str(curves), str(points), "1", "moving"]
    return Workload(key, title, [
        ours("redraw", *words), peer("QCustomPlot, " + method, "qcustomplot", method, *words)],
        [], 3)


def workloads(folder, example):
    graph, saved = folder + "/largest.gdf", folder + "/saved.gdf"
    largest = ["noise", *LARGE]
    table = [
        lines("A", "149 x 32,767, lines 1 px", *largest,
              [faster("QPainter, polyline", 35), faster("QCustomPlot, adaptive", 6)], 60),
        lines("A'", "the same, smooth curves", "waves", *LARGE, [], 20),
        Workload("B", "A with 2 px and 4 px", [
            ours("redraw", *largest, "1"),
            Subject("kurv, 2 px", [OURS, "redraw", *largest, "2"]),
            Subject("kurv, 4 px", [OURS, "redraw", *largest, "4"]),
        ], [Goal("kurv, 2 px", 1.4, "at most 1.4 x 1 px", of_peer=True),
            Goal("kurv, 4 px", 1.4, "at most 1.4 x 1 px", of_peer=True)]),
        Workload("V", "a step of the wheel, over A", [
            ours("redraw", *largest, "1"),
            Subject("kurv, zoom", [OURS, "zoom", *largest, "1"]),
        ], [Goal("kurv, zoom", 1.4, "at most 1.4 x a redraw", of_peer=True)]),
        Workload("M", "1 x 32,767, unsorted x", [
            ours("redraw", "scattered", "1", "32767", "1"),
            peer("QPainter, line at a time", "qpainter", "lines", "scattered", "1", "32767", "1"),
            peer("AGG, outline", "agg", "outline", "scattered", "1", "32767", "1"),
        ], [faster("QPainter, line at a time", 5)]),
        lines("C", "1 x 32,767", "noise", 1, 32767,
              [faster("QPainter, polyline", 8), faster("QCustomPlot, adaptive", 1)], 6),
        lines("C'", "the same, a smooth curve", "waves", 1, 32767, [], 4),
        moving("C''", "C, each time over another range of x", "adaptive", "noise", 1, 32767),
    ]
    for key, title, kind in [("D", "markers, 10 x 32,767", "noise"),
                             ("D'", "the same on smooth curves", "waves")]:
        words = ["markers", kind, "10", "32767", "1"]
        goals = [faster("Qwt, symbols", 5), faster("QPainter, shapes", 50)] if key == "D" else []
        table.append(Workload(key, title, [
            ours(*words), peer("Qwt, symbols", "qwt", *words),
            peer("QPainter, shapes", "qpainter", *words)], goals))
    small = ["waves", "3", "100", "1"]
    return table + [
        Workload("E", "3 x 100 with all around it", [
            ours("redraw", *small), peer("QCustomPlot, replot", "qcustomplot", "small", *small),
        ], [faster("QCustomPlot, replot", 1)], 4),
        moving("E'", "the same, each time over another range of x", "small", "waves", 3, 100),
        Workload("W", "point under the pointer, 149 x 32,767", [
            ours("nearest", *largest),
            Subject("kurv, unsorted x", [OURS, "nearest", "scattered", *LARGE]),
            Subject("kurv, a redraw", [OURS, "redraw", *largest, "1"]),
        ], [faster("kurv, a redraw", 30)], 4),
        Workload("F", "sort 150 x 32,767", [
            ours("sort", "shuffled"), peer("selection sort", "plain", "sort"),
            Subject("kurv, columns that are shared", [OURS, "sort", "shuffled", "shared"]),
        ], [faster("selection sort", 25)], same_result=True),
        Workload("F'", "the same, already sorted", [
            ours("sort", "waves"), peer("a look at each x", "plain", "scan"),
        ], [], 2),
        Workload("U", "undo of a cell, the largest graph", [
            ours("undo", *largest), Subject("kurv, a redraw", [OURS, "redraw", *largest, "1"]),
        ], [at_most("kurv, a redraw", 1.2)], 6),
        Workload("G", "load the largest graph", [
            ours("load", graph), peer("read, from_chars", "plain", "read", graph),
        ], [at_most("read, from_chars", 1.6)], 14),
        Workload("H", "save the largest graph", [
            ours("save", saved, *LARGE),
            peer("to_chars, write", "plain", "write", saved + ".plain", *LARGE),
        ], [at_most("to_chars, write", 1.4)], 14),
        Workload("I", "10^6 evaluations, four calls", [
            ours("evaluate"), peer("muParser, Eval", "muparser"),
        ], [at_most("muParser, Eval", 1.5)], 3),
        Workload("I'", "10^6 evaluations, inner loop", [
            ours("run_program"), peer("muParser, Eval", "muparser"),
        ], [faster("muParser, Eval", 1)], 3),
        Workload("K", "example data to PNG, process", [
            Subject("kurv", [KURV, "render", example, "-o", folder + "/kurv.png"]),
            Subject("gnuplot, pngcairo", ["gnuplot", "-e", gnuplot_script(example, folder)]),
        ], [faster("gnuplot, pngcairo", 1)], 6, whole_process=True),
    ]


def table_workloads(folder):
    """Reading tables. kurv and gnuplot draw what they have read; numpy and csv stop at the numbers."""
    result = []
    for key, columns, curves in [("L", 3, 2), ("L'", 150, 2)]:
        path = f"{folder}/table{columns}.csv"
        numpy, csv = tables.numpy_script(path, columns), tables.csv_script(path, columns)
        drawn = "" if curves == columns - 1 else f", {curves} curves"
        title = f"CSV of {columns} x 32,767 to PNG, process"
        result.append(Workload(key, title, [
            Subject("kurv", [KURV, "render", path, "-o", folder + "/kurv.png"]),
            Subject("gnuplot, pngcairo" + drawn, ["gnuplot", "-e", tables.gnuplot_script(
                path, curves, folder + "/gnuplot.png")]),
            python("numpy.loadtxt, no picture", numpy),
            python("the same without starting Python", numpy, own_time=True),
            python("csv.reader and float(), no picture", csv),
        ], [], 8 if columns == 3 else 20, whole_process=True, by_minimum=True))
    long = f"{folder}/long.csv"
    result.append(Workload("L''", "CSV of 3 x 1,000,000, thinned out, to PNG, process", [
        Subject("kurv", [KURV, "render", long, "-o", folder + "/kurv.png"]),
        Subject("kurv, every 31st row", [KURV, "render", long, "-o", folder + "/every.png", "--every", "31"]),
    ], [], 12, whole_process=True, by_minimum=True))
    return result


def python(name, script, own_time=False):
    return Subject(name, ["/usr/bin/python3", "-c", script], own_time)


def gnuplot_script(example, folder):
    return (f"set terminal pngcairo size 1000,700; set output '{folder}/gnuplot.png'; "
            "set datafile separator ','; set key autotitle columnhead; set title 'co2'; "
            f"plot for [k=2:3] '{example}' using 1:k with lines")
