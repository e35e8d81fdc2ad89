#include "app/window/window_message.h"

#include <KurvGraph/screen_fit.h>

#include <QLabel>
#include <QPointer>
#include <QScreen>

namespace kurv::app {

namespace {

// Qt lays a long text out half as wide as a small screen, where it may become higher than that.
void widen_on_small_screen(const QMessageBox& box) {
  auto* const label = box.findChild<QLabel*>("qt_msgbox_label");
  const QSize screen = box.screen()->availableSize();
  const QRect column(0, 0, screen.width() / 2, QWIDGETSIZE_MAX);
  const QRect text = label->fontMetrics().boundingRect(column, Qt::TextWordWrap, label->text());
  if (text.height() > screen.height() / 2) label->setMinimumWidth(screen.width() * 2 / 3);
}

}  // namespace

// On the heap, because a window deletes its boxes when it is deleted.
void show_message(QWidget* window, QMessageBox::Icon icon, const QString& title,
                  const QString& text) {
  const QPointer<QMessageBox> box(new QMessageBox(icon, title, text, QMessageBox::Ok, window));
  box->setTextFormat(Qt::PlainText);
  widen_on_small_screen(*box);
  fit_text_to_screen(*box);
  fit_to_screen(*box);
  box->exec();
  delete box;
}

}  // namespace kurv::app
