#include <KurvGraph/screen_fit.h>

#include <QEvent>
#include <QScreen>
#include <QWindow>
#include <algorithm>

namespace kurv {

namespace {

// None while it is unknown.
QMargins known_frame(const QWidget& window) {
  const QWindow* const handle = window.windowHandle();
  return handle && window.isVisible() ? handle->frameMargins() : QMargins();
}

// While it is unknown, the frame of the window that this one belongs to.
QMargins expected_frame(const QWidget& window) {
  const QMargins frame = known_frame(window);
  const QWidget* const parent = window.parentWidget();
  return frame.isNull() && parent ? known_frame(*parent->window()) : frame;
}

// Into the rectangle, from the left and top where it is too small.
QPoint moved_into(const QRect& area, const QRect& window) {
  const int right = area.x() + area.width() - window.width();
  const int bottom = area.y() + area.height() - window.height();
  return {std::max(area.x(), std::min(window.x(), right)),
          std::max(area.y(), std::min(window.y(), bottom))};
}

// A filter of the window's events that lives until the frame is known.
class FrameWatch final : public QObject {
 public:
  explicit FrameWatch(QWidget& window) : QObject(&window), m_window(window) {
    window.installEventFilter(this);
  }

  bool eventFilter(QObject*, QEvent* event) override {
    const bool is_shown = event->type() == QEvent::Show;
    const bool may_bring_frame = is_shown || event->type() == QEvent::Move ||
                                 event->type() == QEvent::Resize ||
                                 event->type() == QEvent::WindowActivate;
    if (may_bring_frame && !known_frame(m_window).isNull()) {
      fit_for_the_last_time();
    } else if (is_shown) {
      fit();
    }
    return false;
  }

 private:
  void fit() { resize_on_screen(m_window, m_window.size()); }

  // Queued, because the window is still handling the event.
  void fit_for_the_last_time() {
    m_window.removeEventFilter(this);
    QMetaObject::invokeMethod(
        this,
        [this] {
          fit();
          deleteLater();
        },
        Qt::QueuedConnection);
  }

  QWidget& m_window;
};

}  // namespace

void fit_to_screen(QWidget& window) {
  new FrameWatch(window);
}

void resize_on_screen(QWidget& window, QSize wanted) {
  if (window.isMaximized() || window.isFullScreen()) return;
  const QRect area = window.screen()->availableGeometry().marginsRemoved(expected_frame(window));
  window.resize(wanted.boundedTo(area.size()));
  // A window without a frame yet has no place yet; the window manager chooses one.
  const QMargins frame = known_frame(window);
  if (frame.isNull()) return;
  const QPoint place = moved_into(area, window.geometry());
  if (place != window.geometry().topLeft()) window.move(place - QPoint(frame.left(), frame.top()));
}

}  // namespace kurv
