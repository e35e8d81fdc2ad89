#include "dialogs/table_finder.h"

#include <QAbstractButton>
#include <QGridLayout>
#include <QKeyEvent>
#include <QToolButton>

namespace kurv {

namespace {

QToolButton* new_find_button(QWidget* parent, const char* name, const QString& caption,
                             const QString& tip) {
  auto* const button = new QToolButton(parent);
  button->setObjectName(QLatin1String(name));
  button->setAccessibleName(caption);
  button->setToolTip(tip);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::StrongFocus);
  return button;
}

}  // namespace

TableFinder::TableFinder(QWidget* parent)
    : QWidget(parent), m_text(new QLineEdit(this)), m_note(new QLabel(this)) {
  setObjectName(QStringLiteral("fraFind"));
  m_text->setObjectName(QStringLiteral("txtFind"));
  m_text->setAccessibleName(tr("Find in the table"));
  m_text->setPlaceholderText(tr("value, text or #row"));
  m_note->setObjectName(QStringLiteral("lblFind"));
  m_note->setTextFormat(Qt::PlainText);
  m_note->setWordWrap(true);
  m_note->hide();
  auto* const caption = new QLabel(tr("Fin&d:"), this);
  caption->setBuddy(m_text);
  auto* const previous =
      new_find_button(this, "cmdFindPrevious", tr("Find previous"), tr("Find previous (Shift+F3)"));
  previous->setArrowType(Qt::UpArrow);
  auto* const next = new_find_button(this, "cmdFindNext", tr("Find next"), tr("Find next (F3)"));
  next->setArrowType(Qt::DownArrow);
  auto* const close =
      new_find_button(this, "cmdFindClose", tr("Close the search"), tr("Close the search (Esc)"));
  // In the colour of the text, so that it is legible on dark desktops.
  close->setText(QStringLiteral("\u2715"));

  connect(m_text, &QLineEdit::textEdited, this, &TableFinder::typed);
  connect(previous, &QToolButton::clicked, this, [this] { Q_EMIT wanted(false); });
  connect(next, &QToolButton::clicked, this, [this] { Q_EMIT wanted(true); });
  connect(close, &QToolButton::clicked, this, &TableFinder::close_line);

  auto* const layout = new QGridLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  int column = 0;
  for (QWidget* const widget :
       std::initializer_list<QWidget*>{caption, m_text, previous, next, close}) {
    layout->addWidget(widget, 0, column++);
  }
  layout->addWidget(m_note, 1, 0, 1, column);
  layout->setColumnStretch(1, 1);
  hide();
}

void TableFinder::open(const QString& text) {
  show();
  m_text->setFocus(Qt::ShortcutFocusReason);
  m_text->selectAll();
  // The cursor is at its end then.
  if (!text.isEmpty()) m_text->setText(text);
}

// The description is what a screen reader says of the field, which has the focus.
void TableFinder::set_note(const QString& note) {
  m_note->setText(note);
  m_note->setVisible(!note.isEmpty());
  m_text->setAccessibleDescription(note);
}

void TableFinder::close_line() {
  set_note({});
  hide();
  Q_EMIT closed();
}

void TableFinder::keyPressEvent(QKeyEvent* event) {
  const bool is_enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (event->key() == Qt::Key_Escape) {
    close_line();
  } else if (!is_enter) {
    QWidget::keyPressEvent(event);
  } else if (auto* const button = qobject_cast<QAbstractButton*>(focusWidget())) {
    button->click();
  } else {
    Q_EMIT wanted((event->modifiers() & Qt::ShiftModifier) == 0);
  }
}

}  // namespace kurv
