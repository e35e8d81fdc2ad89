"""A two-dimensional graph: curves, functions, legend and titles.

    import kurvgraph

    with kurvgraph.KurvGraph(size=(720, 480)) as graph:
        graph.plot([1, 2, 3, 4], {"y": [1, 4, 9, 16]}, title="Squares")
        graph.save("squares.png")

A graph belongs to the thread that has made it.
"""

from ._errors import (ArgumentError, CannotCreate, DivisionByZero, Error, FileError, FileMissing,
                      InvalidCall, Message, NoSuchMember, OutOfMemory, OutOfRange, Overflow,
                      PermissionDenied, TypeMismatch, WrongThread)
from ._graph import KurvGraph, render
from ._library import LIBRARY_PATH, library_version

__version__ = "1.0.0"

__all__ = [
    "ArgumentError", "CannotCreate", "DivisionByZero", "Error", "FileError", "FileMissing",
    "InvalidCall", "KurvGraph", "LIBRARY_PATH", "Message", "NoSuchMember", "OutOfMemory",
    "OutOfRange", "Overflow", "PermissionDenied", "TypeMismatch", "WrongThread", "library_version",
    "render",
]
