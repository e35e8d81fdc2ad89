// Message boxes of the main window.
#pragma once

#include <QMessageBox>
#include <QString>
#include <QWidget>

namespace kurv::app {

// Shows a plain text, because names in it come from files, until it is answered or the window is
// deleted, which may happen while the box is open.
void show_message(QWidget* window, QMessageBox::Icon icon, const QString& title,
                  const QString& text);

}  // namespace kurv::app
