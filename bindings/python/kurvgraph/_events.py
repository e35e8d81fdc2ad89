"""Events of a graph, passed to functions of Python."""

from __future__ import annotations

import os
import re
import sys
import weakref
from typing import Any, Callable, Dict, Optional

from . import _library as lib
from ._values import decoded

# Notices besides the events of the member table, with a line of documentation.
NOTICES = {
    "message": "Called with the text, the flags and the title of each message box that a graph in "
               "pixels would show. Without a function the text is a warning, kurvgraph.Message.",
    "redrawn": "Called after each complete redraw.",
    "destroyed": "Called when the widget of the graph has been deleted.",
}


def attribute_name(event: str) -> str:
    """on_mouse_up for MouseUp."""
    return "on_" + re.sub(r"(?<!^)(?=[A-Z])", "_", event).lower()


def stack_level() -> int:
    """For a warning of the caller: the line of the program that has called this package."""
    package = os.path.dirname(__file__)
    frame, level = sys._getframe(1), 1
    while frame.f_back is not None and os.path.dirname(frame.f_code.co_filename) == package:
        frame, level = frame.f_back, level + 1
    return level


class Listener:
    """What the library calls. It holds no reference to the graph, so that one which nobody needs
    any more ends."""

    def __init__(self, graph: Any) -> None:
        self._graph = weakref.ref(graph)
        self.functions: Dict[str, Callable[..., Any]] = {}
        self.in_call = 0
        self._raised: Optional[BaseException] = None
        self.function = lib.Listener(self._receive)

    def _receive(self, _handle: int, event: Any, _user: Any) -> None:
        record = event.contents
        name = lib.decode(record.name)
        arguments = [decoded(record.arguments[i]) for i in range(record.count)]
        graph = self._graph()
        if graph is None:
            return
        try:
            graph._handle_event(name, arguments)
        except BaseException as error:  # it must not pass through the library
            self._keep(error)

    def _keep(self, error: BaseException) -> None:
        """The first exception during a call of the graph is raised by that call; one that comes out
        of the event loop goes where such exceptions go."""
        if not self.in_call:
            sys.excepthook(type(error), error, error.__traceback__)
        elif self._raised is None:
            self._raised = error

    def raise_kept(self) -> None:
        raised, self._raised = self._raised, None
        if raised is not None:
            raise raised
