"""Errors of the library as exceptions."""

from __future__ import annotations


class Error(Exception):
    """An error of the graph. `number` is the same in every language, `text` says what it is, and
    `detail` names the file or argument, or is a sentence that says why; it may be empty."""

    def __init__(self, number: int, text: str, detail: str = "") -> None:
        super().__init__(number, text, detail)
        self.number = number
        self.text = text
        self.detail = detail

    def __str__(self) -> str:
        return f"{self.text}: {self.detail}" if self.detail else self.text


class InvalidCall(Error, ValueError):
    """An argument that is not accepted."""


class Overflow(Error, OverflowError):
    """A number that does not fit."""


class OutOfMemory(Error, MemoryError):
    """There is not enough memory."""


class OutOfRange(Error, IndexError):
    """An array is shorter than a count says."""


class DivisionByZero(Error, ZeroDivisionError):
    """Such as a graph whose lower and upper limits are equal."""


class TypeMismatch(Error, TypeError):
    """A value that cannot be converted to the type that is needed."""


class ArgumentError(Error, TypeError):
    """Too few or too many arguments."""


class NoSuchMember(Error, AttributeError):
    """The graph has no member of this name."""


class FileError(Error, OSError):
    """A file that cannot be read or written; `detail` is its path."""


class FileMissing(FileError, FileNotFoundError):
    """A file or folder that is not there."""


class PermissionDenied(FileError, PermissionError):
    """A file that may not be read or written."""


class CannotCreate(Error, RuntimeError):
    """Something that is needed cannot be made."""


class WrongThread(Error, RuntimeError):
    """The graph belongs to another thread."""


class Message(UserWarning):
    """What a graph without a window would show in a message box, such as why data cannot be
    plotted."""


INVALID_HANDLE = -1
NO_APPLICATION = -3
NO_WIDGET = -4

_CLASSES = {
    INVALID_HANDLE: InvalidCall,
    -2: WrongThread,
    NO_APPLICATION: CannotCreate,
    NO_WIDGET: InvalidCall,
    5: InvalidCall,
    6: Overflow,
    7: OutOfMemory,
    9: OutOfRange,
    11: DivisionByZero,
    13: TypeMismatch,
    53: FileMissing,
    57: FileError,
    61: FileError,
    62: FileError,
    70: PermissionDenied,
    75: FileError,
    76: FileMissing,
    429: CannotCreate,
    438: NoSuchMember,
    449: ArgumentError,
    450: ArgumentError,
}


def new_error(number: int, text: str, detail: str = "") -> Error:
    """The exception for a number."""
    return _CLASSES.get(number, Error)(number, text, detail)


def mismatch(detail: str) -> Error:
    """The exception for a value of the wrong type."""
    return TypeMismatch(13, "Type mismatch", detail)
