/// @file
/// Where the windows of graphs open: beside the plot, or where the user left them.
#pragma once

#include <KurvGraph/export.h>

#include <QByteArray>
#include <QWidget>

namespace kurv {

/// Moves a window that is not shown yet to a place beside the plot, on its screen: beside the
/// window that contains the plot where there is space, else where it covers least of the plot.
/// Does nothing where the plot is not visible.
KURV_EXPORT void place_beside(QWidget& window, const QWidget& plot);

/// Where a window is, with its size, for restore_window_place().
KURV_EXPORT QByteArray window_place(const QWidget& window);
/// Puts a window that is not shown yet where window_place() was called for it or for one before it,
/// with that size. Its own size is kept where its font has another height now, because its contents
/// would not fit. Returns false, and does nothing, where this is not what window_place() has
/// returned.
KURV_EXPORT bool restore_window_place(QWidget& window, const QByteArray& place);

/// Where the windows for curves, properties and the table are, or were when they were closed, with
/// their sizes. A program that has settings can keep them there until it runs again.
KURV_EXPORT QByteArray window_places();
/// Windows that are opened from here on open in these places, as far as they are on a screen.
/// Anything that does not come from window_places() is ignored.
KURV_EXPORT void set_window_places(const QByteArray& places);

}  // namespace kurv
