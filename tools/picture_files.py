"""Pictures as arrays of pixels, and as small PNG files.

    picture_files.py IN.png OUT.png     writes it with at most 256 colours
"""

import sys

import numpy
from PyQt6.QtGui import QImage

# What a picture and the window may differ by, of 255: any channel of any pixel, and their mean. The file has
# at most 256 colours, for which rare colours are rounded, and another version of the font library may
# round the edge of a letter otherwise. The caret does not blink here, and nothing is animated, so whatever
# differs more is a change; a letter differs by more than 100.
TOLERANCE = 24
MEAN_TOLERANCE = 0.5


def pixels(image):
    image = image.convertToFormat(QImage.Format.Format_RGB32)
    bits = image.constBits()
    bits.setsize(image.sizeInBytes())
    return numpy.frombuffer(bits, numpy.uint8).reshape(image.height(), image.width(), 4)[:, :, :3].copy()


def is_similar(taken, expected):
    if taken.shape != expected.shape or taken.size == 0:
        return False
    difference = numpy.abs(taken.astype(numpy.int16) - expected)
    return difference.max() <= TOLERANCE and difference.mean() <= MEAN_TOLERANCE


def save(taken, path):
    """As a PNG file of at most 256 colours, which is a third as large as one of all colours. The frequent
    ones stay as they are; the others, which are those of antialiased edges, are rounded. A picture that
    still has more of them is saved without a palette."""
    colours, index, count = numpy.unique(taken.reshape(-1, 3), axis=0, return_inverse=True, return_counts=True)
    is_rare = numpy.ones(len(colours), bool)
    is_rare[numpy.argsort(-count, kind="stable")[:128]] = False
    for step in (1, 4, 8, 16, 32):
        rounded = colours.astype(int)
        rounded[is_rare] = numpy.minimum(255, (rounded[is_rare] + step // 2) // step * step)
        palette, rounded_index = numpy.unique(rounded, axis=0, return_inverse=True)
        if len(palette) <= 256:
            break
    height, width = taken.shape[:2]
    if len(palette) <= 256:
        indices = rounded_index[index].astype(numpy.uint8)
        image = QImage(indices.tobytes(), width, height, width, QImage.Format.Format_Indexed8)
        image.setColorTable([0xFF000000 | red << 16 | green << 8 | blue for blue, green, red in palette.tolist()])
    else:
        image = QImage(palette[rounded_index[index]].astype(numpy.uint8).tobytes(), width, height, 3 * width, QImage.Format.Format_BGR888)
    image.setDotsPerMeterX(0)
    image.setDotsPerMeterY(0)
    if not image.save(str(path), "PNG", 0):
        raise RuntimeError(f"{path} could not be saved")


if __name__ == "__main__":
    save(pixels(QImage(sys.argv[1])), sys.argv[2])
