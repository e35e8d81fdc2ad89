#include "app/window/read_out_label.h"

#include <QEvent>
#include <QStringList>

namespace kurv::app {

namespace {

constexpr int kCharacters = 50;

}  // namespace

QString read_out_text(const ReadOut& read_out) {
  if (!read_out.place) return {};
  const QString values =
      QStringLiteral("x ") + read_out.x_text + QStringLiteral(", y ") + read_out.y_text;
  const QString name = read_out.nearest ? read_out.nearest->name.simplified() : QString();
  return name.isEmpty() ? values : name + QStringLiteral(": ") + values;
}

ReadOutLabel::ReadOutLabel() {
  setObjectName("lblReadOut");
  setAccessibleName("Under the pointer");
  setTextFormat(Qt::PlainText);
  setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}

void ReadOutLabel::show_read_out(const ReadOut& read_out) {
  m_text = read_out_text(read_out);
  elide();
}

QSize ReadOutLabel::sizeHint() const {
  return {fontMetrics().averageCharWidth() * kCharacters, fontMetrics().height()};
}

// A window may be narrower.
QSize ReadOutLabel::minimumSizeHint() const {
  return {1, fontMetrics().height()};
}

// The values are at the end, and a name is recognised by its beginning.
void ReadOutLabel::elide() {
  const QString shown = fontMetrics().elidedText(m_text, Qt::ElideMiddle, width());
  setText(shown);
  setToolTip(shown == m_text ? QString() : m_text.toHtmlEscaped());
}

void ReadOutLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  elide();
}

void ReadOutLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::FontChange) elide();
}

}  // namespace kurv::app
