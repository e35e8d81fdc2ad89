/// @file
/// Windows that fit the available part of their screens, with their frames.
#pragma once

#include <KurvGraph/export.h>

#include <QDialog>
#include <QScrollArea>
#include <QSize>
#include <QWidget>

namespace kurv {

/// To be called before the window is shown: where it is too large for its screen when it is shown,
/// it becomes as large as fits, and is moved where it extends beyond the screen. The size of the
/// frame is known only when the window manager has put it around the window; the window is fitted
/// again then and for half a second. After that its size is the user's. One of fixed size keeps it.
KURV_EXPORT void fit_to_screen(QWidget& window);

/// Resizes the window to `wanted`, or as close to it as its screen allows. A visible window is
/// moved where it would extend beyond the screen. Leaves a maximised window and one in full screen
/// alone.
KURV_EXPORT void resize_on_screen(QWidget& window, QSize wanted);

/// A scroll area with this page in it, which it owns, for a window that may be larger than its
/// screen. It is as large as the page where the screen has the space, and has neither a frame nor a
/// background of its own. Buttons are better outside, where they stay in sight.
KURV_EXPORT QScrollArea* new_scroller(QWidget* page);

/// To be called before a message box or an input dialog is shown, once its text and its buttons are
/// set. A text that is too large for the screen is replaced by one that is wrapped, within words as
/// well, and scrolls. Other texts stay as they are.
KURV_EXPORT void fit_text_to_screen(QDialog& dialog);

/// For dialogs whose layout is the toolkit's: where the screen is too small for it, all of it
/// scrolls.
KURV_EXPORT void scroll_on_small_screen(QDialog& dialog);

}  // namespace kurv
