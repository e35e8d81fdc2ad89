#include "app/window/notice_bar.h"

#include <KurvGraph/screen_fit.h>

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

namespace kurv::app {

namespace {

constexpr int kPadding = 4;

// Between the colour of windows and amber, so that the text keeps the contrast of the desktop.
QColor bar_colour(const QColor& window) {
  const QColor amber(0xF0, 0xB0, 0x20);
  const auto mixed = [](int ground, int tint) { return (ground * 7 + tint * 3) / 10; };
  return {mixed(window.red(), amber.red()), mixed(window.green(), amber.green()),
          mixed(window.blue(), amber.blue())};
}

QString summary(const QStringList& notes) {
  if (notes.size() == 1) return notes.front();
  return QString::number(notes.size()) + " notes about this table: " + notes.front();
}

}  // namespace

// A button that looks like a line of text.
class NoticeLine final : public QAbstractButton {
 public:
  NoticeLine() {
    setObjectName("cmdNotices");
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setToolTip("Show all notes about this table");
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  }

  QSize sizeHint() const override {
    const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize);
    return {fontMetrics().averageCharWidth() * 40,
            std::max(fontMetrics().height(), icon) + 2 * kPadding};
  }
  QSize minimumSizeHint() const override { return {1, sizeHint().height()}; }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
    QAbstractButton::keyPressEvent(event);
  }

  void paintEvent(QPaintEvent*) override {
    QStylePainter painter(this);
    const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize);
    const QRect inside = rect().adjusted(kPadding, 0, -kPadding, 0);
    const QRect place = QStyle::alignedRect(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter,
                                            QSize(icon, icon), inside);
    style()->standardIcon(QStyle::SP_MessageBoxInformation).paint(&painter, place);
    const QRect line = inside.adjusted(icon + 2 * kPadding, 0, 0, 0);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideRight, line.width()));
    if (!hasFocus()) return;
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    focus.rect = rect().adjusted(1, 1, -1, -1);
    focus.backgroundColor = palette().color(QPalette::Window);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
  }
};

NoticeBar::NoticeBar() : m_line(new NoticeLine) {
  setObjectName("barNotices");
  setAutoFillBackground(true);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  auto* const close = new QToolButton;
  close->setObjectName("cmdCloseNotices");
  // Not the style's icon, which can hardly be seen on a dark desktop.
  close->setText(QStringLiteral("\u00D7"));
  close->setAutoRaise(true);
  close->setFocusPolicy(Qt::TabFocus);
  close->setAccessibleName("Close the notes");
  close->setToolTip("Close the notes (Esc)");
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 2, 0);
  layout->setSpacing(0);
  layout->addWidget(m_line, 1);
  layout->addWidget(close);
  connect(m_line, &QAbstractButton::clicked, this, [this] { show_notes(); });
  connect(close, &QAbstractButton::clicked, this, [this] { m_close(); });
  set_colours();
  hide();
}

void NoticeBar::set_notes(const QStringList& notes) {
  m_notes = notes;
  if (notes.isEmpty()) return;
  m_line->setText(summary(notes));
  m_line->setAccessibleName(m_line->text());
  m_line->setAccessibleDescription("Shows all notes about this table");
  m_line->update();
}

void NoticeBar::set_colours() {
  QPalette colours = QApplication::palette(this);
  const QColor colour = bar_colour(colours.color(QPalette::Window));
  if (palette().color(QPalette::Window) == colour) return;
  colours.setColor(QPalette::Window, colour);
  setPalette(colours);
}

void NoticeBar::changeEvent(QEvent* event) {
  QFrame::changeEvent(event);
  if (event->type() == QEvent::ApplicationPaletteChange) set_colours();
}

void NoticeBar::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return m_close();
  QFrame::keyPressEvent(event);
}

void NoticeBar::show_notes() {
  const QPointer<NoticeBar> alive(this);
  const QPointer<QDialog> dialog(new QDialog(this));
  dialog->setWindowTitle("Notes about this table");
  auto* const text = new QPlainTextEdit(m_notes.join("\n\n"));
  text->setObjectName("txtNotes");
  text->setAccessibleName("Notes about this table");
  text->setReadOnly(true);
  text->setTabChangesFocus(true);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  buttons->button(QDialogButtonBox::Close)->setObjectName("cmdClose");
  buttons->button(QDialogButtonBox::Close)->setText("&Close");
  auto* const layout = new QVBoxLayout(dialog);
  layout->addWidget(text);
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
  if (m_change) {
    auto* const change =
        buttons->addButton(QStringLiteral("C&hange\u2026"), QDialogButtonBox::AcceptRole);
    change->setObjectName("cmdChange");
    change->setToolTip("Shows how the table has been read, and lets you correct it");
    connect(change, &QPushButton::clicked, dialog, &QDialog::accept);
  }
  dialog->resize(fontMetrics().averageCharWidth() * 80, fontMetrics().height() * 16);
  fit_to_screen(*dialog);
  const bool changes = dialog->exec() == QDialog::Accepted;
  delete dialog;
  if (!changes || !alive) return;
  // A copy, because the next notes replace what is called.
  const std::function<void()> change = m_change;
  change();
}

}  // namespace kurv::app
