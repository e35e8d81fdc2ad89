#include "qt/widget/plot_accessible.h"

#include <QAccessibleWidget>
#include <QPointer>
#include <QWindow>
#include <algorithm>
#include <map>

#include "control/control_state.h"
#include "qt/widget/plot_view.h"

namespace kurv {

namespace {

// A host may pass fewer names than it should, which the redraw reports.
bool has_name_of_x(const GraphDocument& document) {
  return document.yVarName.lower() <= 1 && document.yVarName.upper() >= 1;
}

// A part of the plot, which has neither a QObject nor children.
class PartAccessible : public QAccessibleInterface {
 public:
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return m_view ? m_view->window()->windowHandle() : nullptr; }
  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(m_view);
  }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  void setText(QAccessible::Text, const QString&) override {}

 protected:
  explicit PartAccessible(PlotView& view) : m_view(&view) {}

  QPointer<PlotView> m_view;
};

// One hit target.
class TargetAccessible final : public PartAccessible, public QAccessibleActionInterface {
 public:
  TargetAccessible(PlotView& view, const HitTarget& target)
      : PartAccessible(view), m_target(target) {}

  bool isValid() const override { return m_view && is_shown(m_view->state(), m_target); }

  QString text(QAccessible::Text kind) const override;
  QRect rect() const override;
  QAccessible::Role role() const override {
    return std::holds_alternative<Item>(m_target) ? QAccessible::StaticText : QAccessible::Graphic;
  }
  QAccessible::State state() const override;

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type != QAccessible::ActionInterface) return nullptr;
    return static_cast<QAccessibleActionInterface*>(this);
  }
  QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
  void doAction(const QString& name) override;
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  HitTarget m_target;
};

QString TargetAccessible::text(QAccessible::Text kind) const {
  if (!isValid()) return {};
  if (kind == QAccessible::Description) return hint_of(m_target);
  if (kind != QAccessible::Name) return {};
  const GraphDocument& document = m_view->state().document;
  String shown;
  if (m_target == HitTarget(Item::kTitle)) shown = document.Title;
  if (m_target == HitTarget(Item::kSubTitle)) shown = document.SubTitle;
  if (m_target == HitTarget(Region::kXCaption) && has_name_of_x(document))
    shown = document.yVarName(1);
  if (shown.empty()) return name_of(m_target);
  return name_of(m_target) + QStringLiteral(": ") + QString::fromStdString(shown);
}

QRect TargetAccessible::rect() const {
  if (!isValid()) return {};
  const QRect bounds = m_view->bounds_of(m_target);
  return {m_view->mapToGlobal(bounds.topLeft()), bounds.size()};
}

QAccessible::State TargetAccessible::state() const {
  QAccessible::State state;
  if (!isValid()) {
    state.invalid = true;
    return state;
  }
  state.focusable = true;
  state.focused = m_view->hasFocus() && m_view->focused() == m_target;
  state.invisible = !m_view->isVisible();
  return state;
}

void TargetAccessible::doAction(const QString& name) {
  if (!isValid()) return;
  if (name == pressAction()) m_view->edit(m_target);
  if (name == setFocusAction()) m_view->focus_on(m_target);
}

// The point that the keyboard is at. Each point has an interface of its own, because a screen
// reader speaks what gets the focus, and not what becomes of it.
class PointAccessible final : public PartAccessible {
 public:
  PointAccessible(PlotView& view, const ReadOut& point) : PartAccessible(view), m_point(point) {}

  bool isValid() const override { return m_view && m_view->focused_point() == m_point; }

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? spoken_text(m_point) : QString();
  }
  QRect rect() const override {
    if (!isValid()) return {};
    return {m_view->mapToGlobal(m_view->ring().topLeft()), m_view->ring().size()};
  }
  QAccessible::Role role() const override { return QAccessible::ListItem; }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.invalid = !isValid();
    state.focusable = true;
    state.focused = isValid() && m_view->hasFocus();
    return state;
  }
  const ReadOut& point() const { return m_point; }

 private:
  ReadOut m_point;
};

class PlotAccessible final : public QAccessibleWidget {
 public:
  explicit PlotAccessible(PlotView& view) : QAccessibleWidget(&view, QAccessible::Chart) {}
  ~PlotAccessible() override {
    for (const auto& known : m_known) QAccessible::deleteAccessibleInterface(known.second);
    if (m_point) QAccessible::deleteAccessibleInterface(m_point);
  }

  int childCount() const override {
    return static_cast<int>(targets().size()) + (view().focused_point() ? 1 : 0);
  }
  QAccessibleInterface* child(int index) const override {
    const std::vector<HitTarget> there = targets();
    if (index == static_cast<int>(there.size())) return point();
    const bool is_one = index >= 0 && index < static_cast<int>(there.size());
    return is_one ? of(there[static_cast<std::size_t>(index)]) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    const std::vector<HitTarget> there = targets();
    const auto found = std::find_if(there.begin(), there.end(),
                                    [&](const HitTarget& target) { return of(target) == child; });
    if (child && child == point()) return static_cast<int>(there.size());
    return found == there.end() ? -1 : static_cast<int>(found - there.begin());
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    const std::optional<HitTarget> target = view().target_under(view().mapFromGlobal(QPoint(x, y)));
    return target ? of(*target) : nullptr;
  }
  QAccessibleInterface* focusChild() const override {
    if (!view().hasFocus()) return nullptr;
    if (QAccessibleInterface* const there = point()) return there;
    const std::optional<HitTarget> target = view().focused();
    return target ? of(*target) : QAccessible::queryAccessibleInterface(&view());
  }

  // A target keeps its interface, because screen readers remember it.
  QAccessibleInterface* of(const HitTarget& target) const {
    const auto known = m_known.find(target);
    if (known != m_known.end()) return QAccessible::accessibleInterface(known->second);
    auto* const made = new TargetAccessible(view(), target);
    m_known.emplace(target, QAccessible::registerAccessibleInterface(made));
    return made;
  }

 private:
  PlotView& view() const { return *static_cast<PlotView*>(widget()); }
  std::vector<HitTarget> targets() const { return targets_in_tab_order(view().state()); }

  // The last child, while the keyboard is on the curves.
  QAccessibleInterface* point() const {
    const std::optional<ReadOut> there = view().focused_point();
    if (!there) return nullptr;
    auto* const known = m_point ? QAccessible::accessibleInterface(m_point) : nullptr;
    if (known && static_cast<PointAccessible*>(known)->point() == *there) return known;
    if (m_point) QAccessible::deleteAccessibleInterface(m_point);
    auto* const made = new PointAccessible(view(), *there);
    m_point = QAccessible::registerAccessibleInterface(made);
    return made;
  }

  mutable std::map<HitTarget, QAccessible::Id> m_known;
  mutable QAccessible::Id m_point = 0;
};

QAccessibleInterface* interface_of(const QString&, QObject* object) {
  auto* const view = qobject_cast<PlotView*>(object);
  return view ? new PlotAccessible(*view) : nullptr;
}

}  // namespace

void make_plots_accessible() {
  // Qt ignores a factory that is installed already.
  QAccessible::installFactory(interface_of);
}

void notify_focus(PlotView& view) {
  if (!QAccessible::isActive()) return;
  auto* const plot = QAccessible::queryAccessibleInterface(&view);
  QAccessibleInterface* const focused = plot ? plot->focusChild() : nullptr;
  if (!focused) return;
  QAccessibleEvent event(focused, QAccessible::Focus);
  QAccessible::updateAccessibility(&event);
}

}  // namespace kurv
