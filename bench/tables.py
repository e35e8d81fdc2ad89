"""Tables of text for the rows about reading them, and the programs that read them."""

import math
import random

POINTS = 32767


def write_table(path, columns, points=POINTS):
    """Column 1 counts, the others are waves with noise, all with the digits that a program prints."""
    noise = random.Random(1)
    with open(path, "w", encoding="ascii") as file:
        file.write(",".join(["x"] + [f"y{k}" for k in range(1, columns)]) + "\n")
        for i in range(points):
            values = (math.sin(i / 900 + k) + noise.uniform(-0.1, 0.1) for k in range(1, columns))
            file.write(f"{i}," + ",".join(f"{value:.8f}" for value in values) + "\n")


def numpy_script(path, columns):
    """Prints the time of the reading alone, in milliseconds."""
    return ("import numpy, time; start = time.process_time(); "
            f"data = numpy.loadtxt({path!r}, delimiter=',', skiprows=1); "
            "print((time.process_time() - start) * 1000); "
            f"assert data.shape == ({POINTS}, {columns})")


def csv_script(path, columns):
    return ("import csv\n"
            f"with open({path!r}, newline='') as file:\n"
            "    rows = csv.reader(file); next(rows)\n"
            "    data = [[float(cell) for cell in row] for row in rows]\n"
            f"assert len(data) == {POINTS} and len(data[0]) == {columns}")


def gnuplot_script(path, curves, picture):
    return (f"set terminal pngcairo size 1000,700; set output '{picture}'; "
            "set datafile separator ','; set key autotitle columnhead; set title 'table'; "
            f"plot for [k=2:{curves + 1}] '{path}' using 1:k with lines")
