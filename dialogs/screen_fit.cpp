#include <KurvGraph/screen_fit.h>

#include <QEvent>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QScreen>
#include <QTextDocument>
#include <QTextEdit>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <utility>

#include "dialogs/placement.h"

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

// A filter of the window's events that lives until the window manager has put a frame around the
// window and left it in its place, which it may change a little later than the frame. Until then
// the window keeps the size that the program last gave it: a window manager that is still opening
// the window can put an earlier size back.
class FrameWatch final : public QObject {
 public:
  explicit FrameWatch(QWidget& window) : QObject(&window), m_window(window) {
    window.installEventFilter(this);
  }

  bool eventFilter(QObject*, QEvent* event) override {
    // The program's own resize; one by the window manager may still answer an earlier request.
    if (event->type() == QEvent::Resize && !event->spontaneous()) m_wanted = m_window.size();
    const bool is_shown = event->type() == QEvent::Show;
    const bool may_bring_frame = is_shown || event->type() == QEvent::Move ||
                                 event->type() == QEvent::Resize ||
                                 event->type() == QEvent::WindowActivate;
    if (may_bring_frame && !known_frame(m_window).isNull()) {
      fit_soon();
    } else if (is_shown) {
      fit();
    }
    return false;
  }

 private:
  static constexpr int kSettlingTime = 500;  // ms

  void fit() { resize_on_screen(m_window, m_wanted.isValid() ? m_wanted : m_window.size()); }

  // Queued, because the window is still handling the event.
  void fit_soon() {
    if (!std::exchange(m_has_frame, true))
      QTimer::singleShot(kSettlingTime, this, &QObject::deleteLater);
    QMetaObject::invokeMethod(
        this, [this] { fit(); }, Qt::QueuedConnection);
  }

  QWidget& m_window;
  QSize m_wanted;
  bool m_has_frame = false;
};

class Scroller final : public QScrollArea {
 public:
  explicit Scroller(QWidget* page) {
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidget(page);
    setFocusProxy(page);
    // Without a background of their own they have that of the widget around.
    viewport()->setAutoFillBackground(false);
    page->setAutoFillBackground(false);
  }

  // The size of the whole page; QScrollArea would limit it and scroll instead.
  QSize sizeHint() const override { return widget()->sizeHint(); }
};

// For the content of a window.
QSize available_size(const QWidget& window) {
  return window.screen()->availableGeometry().marginsRemoved(expected_frame(window)).size();
}

// Null where the dialog has none.
QLabel* text_of(const QDialog& dialog) {
  const QList<QLabel*> labels = dialog.findChildren<QLabel*>();
  const auto has_text = [](const QLabel* label) { return !label->text().isEmpty(); };
  const auto found = std::find_if(labels.begin(), labels.end(), has_text);
  return found == labels.end() ? nullptr : *found;
}

// What the screen leaves for the text. A message box has an icon beside it; a prompt stays clear of
// the edges of the screen, because the frame may not be known yet.
QSize text_limit(const QDialog& dialog, bool is_message) {
  const QSize available = available_size(dialog);
  const QMargins margins = dialog.layout()->contentsMargins();
  const int clear = 4 * dialog.fontMetrics().averageCharWidth();
  const int width = is_message ? available.width() * 2 / 3
                               : available.width() - margins.left() - margins.right() - clear;
  const int others = dialog.layout()->totalMinimumSize().height();
  const int line = dialog.fontMetrics().height();
  return {width, std::max(available.height() - others - line, 2 * line)};
}

// A message box wraps its text between words, at half the screen or 500 pixels; in an input dialog
// a text has the lines that it comes with.
bool fits_within(const QLabel& label, QSize limit, bool wraps) {
  if (!wraps) return QRect(QPoint(), limit).contains(QRect(QPoint(), label.sizeHint()));
  const int half = std::min(label.screen()->availableSize().width() / 2, 500);
  const QRect column(0, 0, std::max(half, label.minimumWidth()), QWIDGETSIZE_MAX);
  const QRect text = label.fontMetrics().boundingRect(column, Qt::TextWordWrap, label.text());
  return text.width() <= std::max(column.width(), limit.width()) && text.height() <= limit.height();
}

// A text edit that is not shown yet does not wrap its document.
int wrapped_height(const QLabel& label, int width) {
  QTextDocument text;
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  text.setDefaultTextOption(option);
  text.setDefaultFont(label.font());
  text.setDocumentMargin(0);
  text.setPlainText(label.text());
  text.setTextWidth(width);
  return static_cast<int>(std::ceil(text.size().height()));
}

// As high as the text, up to the limit.
QTextEdit* new_text_view(const QLabel& label, QSize limit) {
  auto* const view = new QTextEdit;
  view->setFont(label.font());
  view->setPlainText(label.text());
  view->setReadOnly(true);
  view->setTabChangesFocus(true);
  view->setFrameShape(QFrame::NoFrame);
  view->viewport()->setAutoFillBackground(false);
  QPalette colours = label.palette();
  colours.setColor(QPalette::Text, colours.color(QPalette::WindowText));
  view->setPalette(colours);
  view->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  view->document()->setDocumentMargin(0);
  const int height = wrapped_height(label, limit.width());
  const bool scrolls = height > limit.height();
  view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  view->setVerticalScrollBarPolicy(scrolls ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
  view->setFocusPolicy(scrolls ? Qt::StrongFocus : Qt::NoFocus);
  view->setFixedSize(limit.width(), std::min(height, limit.height()));
  return view;
}

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

QScrollArea* new_scroller(QWidget* page) {
  return new Scroller(page);
}

void fit_text_to_screen(QDialog& dialog) {
  // An input dialog makes its layout when it is asked for its size.
  dialog.ensurePolished();
  dialog.sizeHint();
  QLabel* const label = text_of(dialog);
  if (!label || !dialog.layout()) return;
  const bool is_message = qobject_cast<QMessageBox*>(&dialog) != nullptr;
  const bool was_hidden = label->isHidden();
  label->hide();
  const QSize limit = text_limit(dialog, is_message);
  if (fits_within(*label, limit, is_message)) {
    label->setHidden(was_hidden);
    return;
  }
  QTextEdit* const view = new_text_view(*label, limit);
  delete dialog.layout()->replaceWidget(label, view);
  dialog.layout()->setAlignment(view, Qt::AlignLeft | Qt::AlignVCenter);
}

void scroll_on_small_screen(QDialog& dialog) {
  dialog.ensurePolished();
  const QSize needed = dialog.minimumSizeHint();
  if (needed.boundedTo(available_size(dialog)) == needed) return;
  auto* const page = new QWidget;
  page->setLayout(dialog.layout());
  auto* const around = new QVBoxLayout(&dialog);
  around->setContentsMargins(0, 0, 0, 0);
  around->addWidget(new_scroller(page));
}

}  // namespace kurv
