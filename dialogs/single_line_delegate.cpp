#include "dialogs/single_line_delegate.h"

#include "dialogs/box_outline.h"

namespace kurv {

namespace {

// Longer names are cut off, because their layout would be slow.
constexpr qsizetype kMaxLineLength = 1000;

QString without_breaks(const QString& text) {
  QString line = text.left(kMaxLineLength);
  for (QChar& character : line) {
    if (character.isSpace() || character.category() == QChar::Other_Control) character = u' ';
  }
  return line;
}

}  // namespace

QString on_one_line(const String& text) {
  return without_breaks(QString::fromStdString(text));
}

QString name_tip(const String& text) {
  const QString shown = QString::fromStdString(text).left(kMaxLineLength);
  return QStringLiteral("<p style='white-space:pre-wrap'>") + shown.toHtmlEscaped() +
         QStringLiteral("</p>");
}

QString SingleLineDelegate::displayText(const QVariant& value, const QLocale&) const {
  return without_breaks(value.toString());
}

QSize SingleLineDelegate::sizeHint(const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const {
  const int air = option.fontMetrics.height() / 4;
  return {1, QStyledItemDelegate::sizeHint(option, index).height() + air};
}

void SingleLineDelegate::initStyleOption(QStyleOptionViewItem* option,
                                         const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  outline_check_boxes(option->palette);
}

}  // namespace kurv
