"""The errors of the pixels, and the pictures that show them."""

import os
import subprocess

QUALITY = "build/bench/bench/bench_quality"
OURS = "build/bench/bench/bench_ours"
PEERS = "build/peers/peer_"
SUBJECTS = [
    ("kurv", [OURS, "polyline"]),
    ("kurv, by segments", [OURS, "segments"]),
    ("QPainter, polyline", [PEERS + "qpainter", "polyline"]),
    ("QPainter, line at a time", [PEERS + "qpainter", "lines"]),
    ("AGG, outline", [PEERS + "agg", "outline"]),
    ("AGG, stroke", [PEERS + "agg", "stroke"]),
    ("Cairo, whole path", [PEERS + "cairo", "path"]),
]
SHAPES = ["dense smooth", "sparse", "dense noise"]
WIDTHS = ["1", "2", "4"]
MOST_MEAN, MOST = 3, 24


def draw(command, shape, width, path):
    subprocess.run([*command, "shape", shape, width, path], check=True, stderr=subprocess.DEVNULL)


def compare(shape, width, paths):
    """(mean, largest) error of each."""
    answer = subprocess.run([QUALITY, "compare", shape, width, *paths], check=True,
                            capture_output=True, text=True).stdout
    return [(float(line.split()[0]), int(line.split()[1])) for line in answer.splitlines()]


def rows(folder):
    result = []
    for shape in SHAPES:
        for width in WIDTHS:
            paths = [f"{folder}/compared{i}" for i in range(len(SUBJECTS))]
            for (_, command), path in zip(SUBJECTS, paths):
                draw(command, shape, width, path)
            for (name, _), (mean, most) in zip(SUBJECTS, compare(shape, width, paths)):
                is_ours = name == "kurv"
                result.append({
                    "shape": shape, "width": width, "subject": name, "mean": mean, "most": most,
                    "met": mean <= MOST_MEAN and most <= MOST if is_ours else None})
    return result


def pictures(folder, target):
    """The enlarged comparison at each width."""
    shapes = ["noise", "sine", "spikes", "flat", "steep"]
    shown = [("exact", [QUALITY, "exact"]), SUBJECTS[0], SUBJECTS[2], SUBJECTS[6]]
    os.makedirs(target, exist_ok=True)
    for width in WIDTHS:
        columns = []
        for i, (name, command) in enumerate(shown):
            subject_folder = f"{folder}/column{i}"
            os.makedirs(subject_folder, exist_ok=True)
            for shape in shapes:
                path = f"{subject_folder}/{shape}-{width}"
                if name == "exact":
                    subprocess.run([*command, shape, width, path], check=True)
                else:
                    draw(command, shape, width, path)
            columns.append(f"{name.split(',')[0]}={subject_folder}")
        subprocess.run([QUALITY, "sheet", f"{target}/lines-{width}px.png", width, ",".join(shapes),
                        *columns], check=True, stderr=subprocess.DEVNULL)
