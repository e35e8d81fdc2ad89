"""The widget of a graph in the classes of PyQt6 or PySide6, which this module never imports unless
the program has done so."""

from __future__ import annotations

import ctypes
import sys
from typing import Any, Tuple

from . import _library as lib
from ._errors import NO_APPLICATION, NO_WIDGET, CannotCreate, new_error


def _create(parent_address: int) -> Tuple[int, int]:
    """The handle of a new graph and the address of its widget."""
    if not lib.HAS_WIDGET:
        raise new_error(NO_WIDGET, f"The library {lib.LIBRARY_PATH} was built without widgets")
    handle = ctypes.c_void_p()
    widget = ctypes.c_void_p()
    lib.call("kurv_create_widget", parent_address, ctypes.byref(handle), ctypes.byref(widget))
    assert handle.value is not None and widget.value is not None
    return handle.value, widget.value


class _Toolkit:
    def __init__(self, widgets: Any) -> None:
        self._widgets = widgets

    def create(self, parent: Any) -> Tuple[int, Any]:
        """A new graph: its handle and its widget."""
        if parent is not None and not isinstance(parent, self._widgets.QWidget):
            raise TypeError(f"the parent has to be a QWidget, not {type(parent).__name__}")
        application = self._widgets.QApplication.instance()
        if application is None:
            raise new_error(NO_APPLICATION, "Make a QApplication first")
        try:
            handle, widget = _create(0 if parent is None else self.address(parent))
        except CannotCreate as error:
            if error.number != NO_APPLICATION:
                raise
            package = self._widgets.__name__.partition(".")[0]
            raise new_error(NO_APPLICATION, f"{package} uses another copy of Qt than "
                            f"{lib.LIBRARY_PATH}; use the {package} of the distribution") from None
        return handle, self.wrap(widget)

    def address(self, widget: Any) -> int:
        raise NotImplementedError

    def wrap(self, address: int) -> Any:
        raise NotImplementedError

    def invalidate(self, widget: Any) -> None:
        """The widget has been deleted: its methods raise RuntimeError instead of ending the
        program."""
        raise NotImplementedError


class _PyQt(_Toolkit):
    def __init__(self) -> None:
        from PyQt6 import QtWidgets, sip

        super().__init__(QtWidgets)
        self._sip = sip

    def address(self, widget: Any) -> int:
        return self._sip.unwrapinstance(widget)

    def wrap(self, address: int) -> Any:
        return self._sip.wrapinstance(address, self._widgets.QWidget)

    def invalidate(self, widget: Any) -> None:
        self._sip.setdeleted(widget)


class _PySide(_Toolkit):
    def __init__(self) -> None:
        import shiboken6
        from PySide6 import QtWidgets

        super().__init__(QtWidgets)
        self._shiboken = shiboken6

    def address(self, widget: Any) -> int:
        return self._shiboken.getCppPointer(widget)[0]

    def wrap(self, address: int) -> Any:
        return self._shiboken.wrapInstance(address, self._widgets.QWidget)

    def invalidate(self, widget: Any) -> None:
        self._shiboken.invalidate(widget)


_KINDS = {"PyQt6": _PyQt, "PySide6": _PySide}


def toolkit(parent: Any) -> _Toolkit:
    """That of the parent's class, or the one that has been imported."""
    for base in type(parent).__mro__:
        name = base.__module__.partition(".")[0]
        if name in _KINDS:
            return _KINDS[name]()
    for name, kind in _KINDS.items():
        if f"{name}.QtWidgets" in sys.modules:
            return kind()
    raise new_error(NO_APPLICATION, "A widget needs PyQt6 or PySide6: import its QtWidgets first")
