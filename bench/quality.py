"""The errors of the pixels, and what the pictures need that show them."""

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
# In the order of docs/make-pictures.
SHOWN_SHAPES = ["noise", "sine", "spikes", "flat", "steep"]
SHOWN_PEERS = {"qpainter": SUBJECTS[2][1], "cairo": SUBJECTS[6][1]}


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


def write_peers(folder, target):
    """What docs/make-pictures needs for the enlarged comparisons: the coverages by the peers, those of
    all shapes in one PGM file. It draws its own anew, and the exact ones."""
    for name, subject in SHOWN_PEERS.items():
        for width in WIDTHS:
            coverages = []
            for shape in SHOWN_SHAPES:
                draw(subject, shape, width, folder + "/shown")
                with open(folder + "/shown", "rb") as file:
                    coverages.append(file.read())
            with open(f"{target}/{name}-{width}px.pgm", "wb") as file:
                file.write(b"P5 72 %d 255\n" % (48 * len(SHOWN_SHAPES)) + b"".join(coverages))
