#include "dialogs/limit_fields.h"

#include <KurvGraph/number_text.h>

#include <QApplication>
#include <QPalette>
#include <algorithm>
#include <optional>
#include <utility>

#include "dialogs/field_rules.h"

namespace kurv {

namespace {

// Also the longest of the notes.
constexpr const char* kKept = "Limits do not follow the data";
constexpr const char* kNotExact = "Not the exact range";

QString stored_text(const Control& control, const Limit& limit) {
  return shown_number(control, (control.*limit.get)());
}

// The text may have more digits than are shown, or another form, such as 1e3.
bool is_stored(const QLineEdit& box, const Limit& limit, const Control& control) {
  return box.text() == stored_text(control, limit) ||
         text_to_number(text_of(box), control.decimal_separator()) == (control.*limit.get)();
}

void store(const Limit& limit, Double value, QLineEdit& box, Control& control) {
  (control.*limit.set)(value);
  finish_text(box, stored_text(control, limit));
}

}  // namespace

LimitFields::LimitFields(PropertPage& page) : QObject(&page), m_page(page) {
  connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, const QWidget* now) {
    if (now && now->isVisible() && now->window() == m_page.window()) on_focus(*now);
  });
}

LimitFields::Axis LimitFields::add_axis(const char* step, const Limit& min, const Limit& max,
                                        const char* note,
                                        std::function<bool(Control&)> has_lost_exact_range) {
  const Field low = new_field(step, min);
  const Field high = new_field(step, max);
  const Axis axis{low.box, high.box, m_page.note(note, kKept), std::move(has_lost_exact_range)};
  m_page.on_filling([this, axis](Control& control) { update_note(axis, control); });
  store_when_changed(low, high, axis);
  store_when_changed(high, low, axis);
  return axis;
}

LimitFields::Field LimitFields::new_field(const char* step, const Limit& limit) {
  const Field field{m_page.text_box(limit.name, limit.description), &limit, step};
  field.box->setToolTip(
      QStringLiteral("Stored while the minimum is below the maximum; drawn by Enter or Apply"));
  connect(field.box, &QLineEdit::returnPressed, this, [this] {
    // With round limits, a redraw may choose another label format.
    if (m_page.handle([](Control& control) { control.build_the_graph(); })) m_page.refill();
  });
  m_page.on_filling([this, field](Control& control) {
    show_stored(field, control);
    mark(field, control);
  });
  m_page.undo_by_keys(*field.box, *field.box,
                      [this, box = field.box] { return m_refused.count(box) == 0; });
  m_boxes.push_back(field.box);
  return field;
}

// Does not redraw: moving an axis to another range takes many keystrokes, and each would draw the
// graph with a range that the user does not want.
void LimitFields::store_when_changed(const Field& changed, const Field& other, const Axis& axis) {
  connect(changed.box, &QLineEdit::textChanged, this, [this, changed, other, axis] {
    bool has_stored = false;
    const auto store_limits = [&](Control& control) {
      const auto limit_in = [&](const QLineEdit& box) {
        return axis_limit(text_of(box), text_of(*axis.min), text_of(*axis.max),
                          control.decimal_separator());
      };
      const std::optional<Double> value = limit_in(*changed.box);
      const std::optional<Double> other_value = limit_in(*other.box);
      const bool other_is_stored = is_stored(*other.box, *other.limit, control);
      // One limit without the other could store a minimum above the maximum.
      if (value && (other_is_stored || other_value)) {
        // Otherwise the limits would be computed anew when a curve is hidden.
        if (!is_stored(*changed.box, *changed.limit, control)) control.set_Autoscale(false);
        store(*changed.limit, *value, *changed.box, control);
        if (!other_is_stored) store(*other.limit, *other_value, *other.box, control);
        has_stored = true;
      }
      mark(changed, control);
      mark(other, control);
      update_note(axis, control);
    };
    // Shows what follows from the limits: boxes that are off now, and the first label.
    if (m_page.edit(typing(changed.limit->name, changed.step), store_limits) && has_stored)
      m_page.refill();
  });
}

void LimitFields::update_note(const Axis& axis, Control& control) const {
  QString text;
  if (m_refused.count(axis.min) > 0 || m_refused.count(axis.max) > 0) {
    text = QString::fromStdString(
        limits_refusal(text_of(*axis.min), text_of(*axis.max), control.decimal_separator()));
  } else if (!control.Autoscale()) {
    text = QLatin1String(axis.has_lost_exact_range(control) ? kNotExact : kKept);
  }
  axis.note->setText(text);
  axis.min->setAccessibleDescription(text);
  axis.max->setAccessibleDescription(text);
}

void LimitFields::show_stored(const Field& field, const Control& control) const {
  const bool is_refused = field.box->isModified() && !is_stored(*field.box, *field.limit, control);
  if (is_refused && contains(m_page.window()->focusWidget())) return;
  show_text(*field.box, stored_text(control, *field.limit));
}

void LimitFields::mark(const Field& field, const Control& control) {
  if (is_stored(*field.box, *field.limit, control)) {
    m_refused.erase(field.box);
    field.box->setPalette(QPalette());
  } else {
    m_refused.insert(field.box);
    show_validity(*field.box, false);
  }
}

void LimitFields::on_focus(const QWidget& widget) {
  if (!m_refused.empty() && !contains(&widget)) m_page.refill();
}

bool LimitFields::contains(const QWidget* widget) const {
  return std::find(m_boxes.begin(), m_boxes.end(), widget) != m_boxes.end();
}

}  // namespace kurv
