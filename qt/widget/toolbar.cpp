#include "qt/widget/toolbar.h"

#include <QAction>
#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QToolButton>
#include <algorithm>

#include "qt/widget/line_icon.h"

namespace kurv {

namespace {

struct ToolbarEntry {
  const char* key;
  const char* tip;
  const char* image;  // null: a divider
};

constexpr ToolbarEntry kEntries[] = {
    {"refresh", "Refresh", "refresh"}, {"save", "Save", "save"},
    {"saveas", "Save As", "saveas"},   {"open", "Open", "open"},
    {"print", "Print", "print"},       {"copy", "Copy", "copy"},
    {"design", "", nullptr},           {"curves", "Curves and Functions", "curves"},
    {"setup", "Design", "setup"},      {"table", "Table", "table"},
    {"help", "Help", "help1"},
};

QString object_name(const QString& key) {
  return QStringLiteral("tbrGraph.") + key;
}

// A button that looks like a separator.
class Divider final : public QToolButton {
 public:
  using QToolButton::QToolButton;

  QSize sizeHint() const override {
    return {style()->pixelMetric(QStyle::PM_ToolBarSeparatorExtent, nullptr, this) + 2, 1};
  }
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent*) override {
    // The styles' own separators are hardly visible on dark desktops.
    QColor colour = palette().color(QPalette::ButtonText);
    colour.setAlphaF(0.3f);
    const QRect line(width() / 2, height() / 6, 1, height() - height() / 6 * 2);
    QPainter(this).fillRect(line, colour);
  }
};

}  // namespace

Toolbar::Toolbar(const std::function<void(const QString&)>& press, QWidget* parent)
    : QToolBar(parent), m_press(press) {
  setObjectName(QStringLiteral("tbrGraph"));
  setAccessibleName(QStringLiteral("Graph"));
  setMovable(false);
  setFloatable(false);
  for (const ToolbarEntry& entry : kEntries) {
    if (entry.image) {
      add_button(QLatin1String(entry.key), QLatin1String(entry.tip), QLatin1String(entry.image));
    } else {
      add_divider();
    }
  }
  // Opens the menu with the buttons that do not fit in a narrow toolbar.
  m_overflow_button = findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"));
  if (m_overflow_button) m_overflow_button->setAccessibleName(QStringLiteral("More"));
  set_tab_stops(true);
  ensurePolished();
  update_icons();
}

void Toolbar::add_button(const QString& key, const QString& tip, const QString& image) {
  QAction* const action = addAction(tip);
  action->setObjectName(object_name(key));
  action->setToolTip(tip);
  action->setData(image);
  QWidget* const button = widgetForAction(action);
  button->setObjectName(object_name(key));
  button->setAccessibleName(tip);
  connect(action, &QAction::triggered, this, [this, key] { m_press(key); });
}

// It can be pressed as any other button, but gets no focus, because its command does nothing.
void Toolbar::add_divider() {
  const QString key = QStringLiteral("design");
  auto* const button = new Divider(this);
  button->setObjectName(object_name(key));
  button->setAccessibleName(QStringLiteral("Divider"));
  button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
  connect(button, &QToolButton::clicked, this, [this, key] { m_press(key); });
  addWidget(button);
}

int Toolbar::preferred_height() const {
  return (sizeHint().height() + 3) / 4 * 4;
}

void Toolbar::set_tab_stops(bool on) {
  for (QAction* action : actions()) {
    const bool does_something = !action->data().isNull();
    widgetForAction(action)->setFocusPolicy(on && does_something ? Qt::TabFocus : Qt::NoFocus);
  }
  if (!m_overflow_button) return;
  m_overflow_button->setFocusPolicy(on ? Qt::TabFocus : Qt::NoFocus);
  setTabOrder(widgetForAction(actions().last()), m_overflow_button);
}

void Toolbar::update_icons() {
  const int of_style = style()->pixelMetric(QStyle::PM_ToolBarIconSize, nullptr, this);
  const int of_font = fontMetrics().height() * 5 / 4;
  const int side = std::max(of_style, of_font);
  setIconSize({side, side});
  for (QAction* action : actions()) {
    const QString image = action->data().toString();
    if (!image.isEmpty()) action->setIcon(line_icon(image, palette()));
  }
}

void Toolbar::changeEvent(QEvent* event) {
  QToolBar::changeEvent(event);
  switch (event->type()) {
    case QEvent::FontChange:
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
      update_icons();
      break;
    default:
      break;
  }
}

}  // namespace kurv
