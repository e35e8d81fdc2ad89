// Names and expressions from hosts and files in the rows of a list: as they are, never as markup,
// on one line, elided where they are too long, with the whole of them in a tool tip.
#pragma once

#include <KurvGraph/values.h>

#include <QString>
#include <QStyledItemDelegate>

namespace kurv {

// Line breaks and the like as blanks, and an end somewhere.
QString on_one_line(const String& text);
// As a tool tip that shows it to the letter.
QString name_tip(const String& text);

// Rows as wide as the view, whatever stands in them.
class OneLine final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QString displayText(const QVariant& value, const QLocale& locale) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace kurv
