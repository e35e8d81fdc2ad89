#include "dialogs/format_box.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QPainter>
#include <QStyledItemDelegate>

#include "render/number_format.h"

namespace kurv {

namespace {

constexpr int kLabelRole = Qt::UserRole;
constexpr int kGapChars = 3;

// A label with a great number of digits is cut off.
constexpr int kLabelChars = 18;

QString label_of(Double value, const String& format) {
  const QString text = QString::fromStdString(format_number(value, format));
  return text.size() <= kLabelChars ? text : text.left(kLabelChars) + QChar(0x2026);
}

// Draws the label of each format at the right.
class LabelledFormats final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    const bool is_selected = option.state.testFlag(QStyle::State_Selected);
    painter->save();
    painter->setFont(option.font);
    painter->setPen(option.palette.color(is_selected ? QPalette::HighlightedText : QPalette::Text));
    const int air = option.fontMetrics.averageCharWidth();
    painter->drawText(option.rect.adjusted(0, 0, -air, 0), Qt::AlignRight | Qt::AlignVCenter,
                      index.data(kLabelRole).toString());
    painter->restore();
  }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const int label = option.fontMetrics.horizontalAdvance(index.data(kLabelRole).toString());
    const int gap = kGapChars * option.fontMetrics.averageCharWidth();
    return QStyledItemDelegate::sizeHint(option, index) + QSize(label + gap, 0);
  }
};

}  // namespace

FormatBox::FormatBox(const QStringList& formats, QWidget* parent) : QComboBox(parent) {
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  // It would complete "0" to "0.0".
  setCompleter(nullptr);
  addItems(formats);
  setItemDelegate(new LabelledFormats(this));
}

void FormatBox::show_format(const String& format, Double first_label) {
  m_first_label = first_label;
  for (int i = 0; i < count(); ++i) {
    const QString label = label_of(first_label, itemText(i).toStdString());
    setItemData(i, label, kLabelRole);
    setItemData(i, itemText(i) + QStringLiteral(", first label ") + label, Qt::AccessibleTextRole);
  }
  const QString text = QString::fromStdString(format);
  // Where no item is chosen.
  setPlaceholderText(text);
  if (is_being_typed()) return;
  const int index = findText(text, Qt::MatchFixedString | Qt::MatchCaseSensitive);
  // A text that has just been typed keeps its cursor.
  if (currentText() == text && (currentIndex() == index || hasFocus())) return;
  setCurrentIndex(index);
  setEditText(text);
}

QString FormatBox::first_label() const {
  return label_of(m_first_label, format());
}

void FormatBox::showPopup() {
  view()->setMinimumWidth(view()->sizeHintForColumn(0));
  QComboBox::showPopup();
}

bool FormatBox::is_being_typed() const {
  return hasFocus() && lineEdit()->isModified();
}

}  // namespace kurv
