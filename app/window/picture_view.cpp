#include "app/window/picture_view.h"

#include <KurvGraph/fault.h>

#include <QElapsedTimer>
#include <QPainter>
#include <algorithm>
#include <new>
#include <utility>

#include "app/base/fault_words.h"
#include "app/base/user_error.h"

namespace kurv::app {

namespace {

// Drawing takes at most a third of the time while changes go on.
constexpr qint64 kLeastDelay = 50;   // ms
constexpr qint64 kMostDelay = 1000;  // ms

}  // namespace

PictureView::PictureView(Draw draw, QWidget* parent) : QWidget(parent), m_draw(std::move(draw)) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  m_delay.setSingleShot(true);
  m_delay.setInterval(static_cast<int>(kLeastDelay));
  connect(&m_delay, &QTimer::timeout, this, [this] { this->draw(); });
}

QSize PictureView::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 60, fontMetrics().height() * 16};
}

QSize PictureView::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * 30, fontMetrics().height() * 8};
}

void PictureView::draw_later() {
  m_has_picture = true;
  m_delay.start();
}

void PictureView::show_text(const QString& text) {
  m_has_picture = false;
  m_delay.stop();
  replace_content({}, text);
}

void PictureView::replace_content(const QImage& picture, const QString& text) {
  m_picture = picture;
  m_picture.setDevicePixelRatio(devicePixelRatioF());
  m_text = text;
  setAccessibleDescription(text);
  update();
}

void PictureView::draw() {
  if (size().isEmpty()) return;
  QElapsedTimer timer;
  timer.start();
  try {
    replace_content(m_draw(), {});
  } catch (const UserError& error) {
    replace_content({}, QString::fromStdString(error.what()));
  } catch (const Fault& fault) {
    const std::string clause = fault_clause(Attempt::kDraw, fault.kind());
    replace_content({}, "This" + QString::fromStdString(clause));
  } catch (const std::bad_alloc&) {
    replace_content({}, "There is not enough memory for the picture.");
  }
  m_delay.setInterval(static_cast<int>(std::clamp(2 * timer.elapsed(), kLeastDelay, kMostDelay)));
}

void PictureView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  // Until the picture has been drawn in a new size, the last one keeps its own.
  if (!m_picture.isNull()) {
    QRect place(QPoint(), m_picture.deviceIndependentSize().toSize());
    place.moveCenter(rect().center());
    return painter.drawImage(place.topLeft(), m_picture);
  }
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  painter.setPen(palette().color(QPalette::WindowText));
  const QRect inside = rect().adjusted(8, 8, -8, -8);
  painter.drawText(inside, Qt::AlignCenter | Qt::TextWordWrap, m_text);
}

void PictureView::resizeEvent(QResizeEvent*) {
  if (m_has_picture) m_delay.start();
}

}  // namespace kurv::app
