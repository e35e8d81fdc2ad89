#include <KurvGraph/wheel_guard.h>

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>
#include <QScrollBar>

namespace kurv {

namespace {

// A filter of the fields' events. Those that it stops go on to the widget around the field.
class WheelGuard final : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* field, QEvent* event) override {
    if (event->type() != QEvent::Wheel || static_cast<QWidget*>(field)->hasFocus()) return false;
    event->ignore();
    return true;
  }
};

bool is_changed_by_wheel(const QWidget& widget) {
  const bool is_slider =
      qobject_cast<const QAbstractSlider*>(&widget) && !qobject_cast<const QScrollBar*>(&widget);
  return is_slider || qobject_cast<const QComboBox*>(&widget) ||
         qobject_cast<const QAbstractSpinBox*>(&widget);
}

}  // namespace

void guard_wheel(QWidget& window) {
  auto* const guard = new WheelGuard(&window);
  for (QWidget* field : window.findChildren<QWidget*>()) {
    if (!is_changed_by_wheel(*field)) continue;
    field->installEventFilter(guard);
    if (field->focusPolicy() == Qt::WheelFocus) field->setFocusPolicy(Qt::StrongFocus);
  }
}

}  // namespace kurv
