#include "app/window/window_message.h"

#include <QPointer>

namespace kurv::app {

// On the heap, because a window deletes its boxes when it is deleted.
void show_message(QWidget* window, QMessageBox::Icon icon, const QString& title,
                  const QString& text) {
  const QPointer<QMessageBox> box(new QMessageBox(icon, title, text, QMessageBox::Ok, window));
  box->setTextFormat(Qt::PlainText);
  box->exec();
  delete box;
}

}  // namespace kurv::app
