// Shows names and expressions from hosts and files in the rows of a list: as plain text, on one
// line, elided where they are too long, with the whole text in a tool tip.
#pragma once

#include <KurvGraph/values.h>

#include <QString>
#include <QStyledItemDelegate>

namespace kurv {

// White space and control characters become blanks, and a very long text is cut off.
QString on_one_line(const String& text);
// A tool tip that shows the text unchanged, not as markup.
QString name_tip(const String& text);

// The width of a row does not depend on its text: the view does not scroll sideways.
class SingleLineDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QString displayText(const QVariant& value, const QLocale& locale) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace kurv
