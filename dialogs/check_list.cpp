#include "dialogs/check_list.h"

#include <KurvGraph/indicator_style.h>

#include <QIcon>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QStyleOptionViewItem>
#include <algorithm>

#include "dialogs/single_line_delegate.h"

namespace kurv {

namespace {

Qt::CheckState state_of(bool ticked) {
  return ticked ? Qt::Checked : Qt::Unchecked;
}

}  // namespace

CheckList::CheckList(QWidget* parent) : QListWidget(parent) {
  setItemDelegate(new SingleLineDelegate(this));
  scale_indicators(*this);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTextElideMode(Qt::ElideMiddle);
  setUniformItemSizes(true);
  const int height = fontMetrics().height();
  setIconSize({2 * height, height});
}

void CheckList::fill(const std::vector<Entry>& entries) {
  set_entries(entries);
  setCurrentRow(entries.empty() ? -1 : 0);
}

void CheckList::update_to(const std::vector<Entry>& entries) {
  if (entries == shown_entries()) return;
  const int row = std::max(currentRow(), 0);
  set_entries(entries);
  setCurrentRow(std::min(row, count() - 1));
}

std::vector<CheckList::Entry> CheckList::shown_entries() const {
  std::vector<Entry> entries = m_entries;
  for (int row = 0; row < count(); ++row) {
    entries[static_cast<std::size_t>(row)].ticked = item(row)->checkState() == Qt::Checked;
  }
  return entries;
}

void CheckList::set_entries(const std::vector<Entry>& entries) {
  clear();
  m_entries = entries;
  for (const Entry& entry : entries) {
    auto* const item = new QListWidgetItem(QString::fromStdString(entry.text), this);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(state_of(entry.ticked));
    item->setToolTip(name_tip(entry.text));
    if (entry.colour) item->setIcon(line_sample(*entry.colour));
  }
}

void CheckList::tick_all(bool ticked) {
  for (int row = 0; row < count(); ++row) item(row)->setCheckState(state_of(ticked));
}

String CheckList::selected_text() const {
  const auto row = static_cast<std::size_t>(currentRow());
  return currentRow() < 0 ? String() : m_entries[row].text;
}

// Queued, because what is done then may destroy the list.
void CheckList::mouseDoubleClickEvent(QMouseEvent* event) {
  const QPoint place = event->position().toPoint();
  const bool is_on_name = indexAt(place).isValid() && !is_on_box(place);
  QListWidget::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton && is_on_name && m_double_clicked)
    QMetaObject::invokeMethod(this, m_double_clicked, Qt::QueuedConnection);
}

bool CheckList::is_on_box(QPoint place) const {
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  option.rect = visualRect(indexAt(place));
  option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
  return style()
      ->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this)
      .contains(place);
}

// On white like the picture, so that a black line is visible on a dark desktop too.
QIcon CheckList::line_sample(const QColor& colour) const {
  const qreal ratio = devicePixelRatioF();
  QPixmap sample(iconSize() * ratio);
  sample.setDevicePixelRatio(ratio);
  sample.fill(Qt::white);
  const QRectF box(QPointF(0, 0), QSizeF(iconSize()));
  QPainter painter(&sample);
  painter.setPen(QColor(Qt::gray));
  painter.drawRect(box.adjusted(0.5, 0.5, -0.5, -0.5));
  const qreal thickness = std::max(2.0, box.height() / 7);
  painter.fillRect(
      QRectF(box.width() / 8, (box.height() - thickness) / 2, box.width() * 3 / 4, thickness),
      colour);
  painter.end();
  // The same pixmap where the row is selected: tinted, it could have another curve's colour.
  QIcon icon;
  for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected}) icon.addPixmap(sample, mode);
  return icon;
}

}  // namespace kurv
