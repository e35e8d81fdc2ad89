#include "dialogs/propert_page.h"

#include <KurvGraph/indicator_style.h>
#include <KurvGraph/number_text.h>

#include <QColor>
#include <QEvent>
#include <QLocale>
#include <QPalette>
#include <cmath>
#include <utility>

#include "dialogs/box_outline.h"
#include "dialogs/field_rules.h"
#include "dialogs/frm_propert.h"
#include "dialogs/length_text.h"
#include "dialogs/undo_keys.h"
#include "model/palette.h"

namespace kurv {

namespace {

constexpr int kLightRed = 12;

QColor mixed(const QColor& a, const QColor& b, double part_of_a) {
  const auto mix = [part_of_a](float x, float y) {
    return static_cast<float>(part_of_a * x + (1 - part_of_a) * y);
  };
  return QColor::fromRgbF(mix(a.redF(), b.redF()), mix(a.greenF(), b.greenF()),
                          mix(a.blueF(), b.blueF()));
}

// A label that is legible while it is disabled. The desktop's own colour for that may be all but
// the colour of the window.
class LegibleLabel final : public QLabel {
 public:
  LegibleLabel(const QString& text, QWidget* parent) : QLabel(text, parent) { set_colour(); }

 protected:
  void changeEvent(QEvent* event) override {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) set_colour();
  }

 private:
  // The other colours still follow those of the desktop.
  void set_colour() {
    constexpr double kStrength = 0.7;
    const QColor wanted = mixed(palette().color(QPalette::Active, QPalette::WindowText),
                                palette().color(QPalette::Active, QPalette::Window), kStrength);
    if (palette().color(QPalette::Disabled, QPalette::WindowText) == wanted) return;
    QPalette colours;
    colours.setColor(QPalette::Disabled, QPalette::WindowText, wanted);
    setPalette(colours);
  }
};

// In the units of the desktop's language. Too large a length is shown as what it is stored as.
QString usual_length(std::string_view text, char decimal_separator) {
  const bool is_metric = QLocale().measurementSystem() == QLocale::MetricSystem;
  const Integer twips = margin_twips(text, decimal_separator);
  return QString::fromStdString(is_metric ? in_millimetres(twips, decimal_separator)
                                          : in_inches(twips, decimal_separator));
}

void set_object_name(QWidget& widget, const char* name) {
  widget.setObjectName(QLatin1String(name));
}

}  // namespace

QString shown_number(const Control& control, Double value) {
  String text;
  append_number(text, value, control.decimal_separator());
  return QString::fromStdString(text);
}

bool is_being_typed(const QLineEdit& box) {
  return box.hasFocus() && box.isModified();
}

void finish_text(QLineEdit& box, const QString& shown) {
  if (box.text() == shown) box.setModified(false);
}

void show_text(QLineEdit& box, const QString& text) {
  if (is_being_typed(box)) return;
  if (box.text() != text) box.setText(text);
  box.setModified(false);
}

// The base is white on dark desktops too, because the text is always black or light red.
void show_validity(QLineEdit& box, bool accepted) {
  QPalette colours = box.palette();
  colours.setColor(QPalette::Base, QColor::fromRgb(palette_rgb(kWhite)));
  colours.setColor(QPalette::Text, QColor::fromRgb(palette_rgb(accepted ? kBlack : kLightRed)));
  box.setPalette(colours);
}

std::string text_of(const QLineEdit& box) {
  return box.text().toStdString();
}

void show_note(QLabel& note, QWidget& field, const QString& text) {
  note.setText(text);
  field.setAccessibleDescription(text);
}

StepLabel typing(const char* name, const char* step) {
  return {.name = step, .key = name};
}

void PropertPage::fill(Control& control) {
  for (const Work& show : m_shows) show(control);
}

bool PropertPage::handle(const Work& work) {
  return m_window.handle(work);
}

bool PropertPage::edit(const StepLabel& label, const Work& work) {
  return m_window.edit(label, work);
}

void PropertPage::refill() {
  m_window.refill();
}

void PropertPage::undo_by_keys(QWidget& field, QLineEdit& line, std::function<bool()> is_stored) {
  new UndoKeys(m_window, field, line, std::move(is_stored));
}

void PropertPage::end_merging() {
  m_window.end_merging();
}

QLineEdit* PropertPage::text_box(const char* name, const char* description) {
  auto* const box = new QLineEdit(this);
  set_object_name(*box, name);
  box->setAccessibleName(QString::fromUtf8(description));
  connect(box, &QLineEdit::editingFinished, this, &PropertPage::end_merging);
  return box;
}

QLineEdit* PropertPage::text_box(const char* name, const char* description, Shown shown) {
  QLineEdit* const box = text_box(name, description);
  on_filling(
      [box, shown = std::move(shown)](Control& control) { show_text(*box, shown(control)); });
  return box;
}

QLineEdit* PropertPage::number_box(const char* name, const char* description, const char* step,
                                   Integer (Control::*get)() const,
                                   std::function<void(Control&, Integer)> set, Rule rule) {
  QLineEdit* const box = text_box(name, description, [get](Control& control) {
    return shown_number(control, (control.*get)());
  });
  on_filling([box](Control&) {
    if (!is_being_typed(*box)) show_validity(*box, true);
  });
  undo_by_keys(*box, *box,
               [=, this] { return rule(text_of(*box), m_window.decimal_separator()).has_value(); });
  connect(box, &QLineEdit::textChanged, this, [=, this, set = std::move(set)] {
    edit(typing(name, step), [&](Control& control) {
      const std::optional<Integer> number = rule(text_of(*box), control.decimal_separator());
      show_validity(*box, number.has_value());
      if (!number) return;
      set(control, *number);
      finish_text(*box, shown_number(control, (control.*get)()));
      control.build_the_graph();
    });
  });
  return box;
}

QCheckBox* PropertPage::check_box(const char* name, const char* caption, const char* step,
                                  std::function<Boolean(Control&)> is_on,
                                  std::function<void(Control&, Boolean)> turn) {
  auto* const box = new QCheckBox(QString::fromUtf8(caption), this);
  set_object_name(*box, name);
  // The other colours still follow those of the desktop.
  QPalette colours;
  outline_check_boxes(colours);
  box->setPalette(colours);
  scale_indicators(*box);
  on_filling(
      [box, is_on = std::move(is_on)](Control& control) { box->setChecked(bool(is_on(control))); });
  connect(box, &QCheckBox::toggled, this, [this, step, turn = std::move(turn)](bool on) {
    edit({step}, [&](Control& control) { turn(control, on); });
  });
  return box;
}

QComboBox* PropertPage::list_box(const char* name, const char* description, const char* step,
                                 const QStringList& items, Shown shown,
                                 std::function<void(Control&, const String&)> choose) {
  auto* const box = new QComboBox(this);
  set_object_name(*box, name);
  box->setAccessibleName(QString::fromUtf8(description));
  box->addItems(items);
  on_filling([box, shown = std::move(shown)](Control& control) {
    const QString text = shown(control);
    box->setCurrentIndex(box->findText(text));
    // Visible only while no item is chosen.
    box->setPlaceholderText(text);
  });
  connect(box, &QComboBox::currentTextChanged, this,
          [this, step, choose = std::move(choose)](const QString& chosen) {
            edit({step}, [&](Control& control) { choose(control, chosen.toStdString()); });
          });
  return box;
}

QPushButton* PropertPage::button(const char* name, const char* caption) {
  auto* const button = new QPushButton(QString::fromUtf8(caption), this);
  set_object_name(*button, name);
  button->setAutoDefault(false);
  return button;
}

QLabel* PropertPage::label(const char* name, const char* caption, QWidget* buddy) {
  auto* const label = new LegibleLabel(QString::fromUtf8(caption), this);
  set_object_name(*label, name);
  label->setBuddy(buddy);
  return label;
}

QLabel* PropertPage::note(const char* name, const char* widest) {
  QLabel* const note = label(name, "", nullptr);
  note->setTextFormat(Qt::PlainText);
  // So that nothing moves when the text changes.
  note->setMinimumSize(note->fontMetrics().horizontalAdvance(QString::fromUtf8(widest)),
                       note->fontMetrics().height());
  return note;
}

QLabel* PropertPage::length_note(
    const char* name, const char* widest, QLineEdit& box,
    std::function<QString(std::string_view text, char separator)> refusal) {
  QLabel* const beside = note(name, widest);
  connect(&box, &QLineEdit::textChanged, beside,
          [this, &box, beside, refusal = std::move(refusal)] {
            const char separator = m_window.decimal_separator();
            const QString refused = refusal(text_of(box), separator);
            show_note(*beside, box,
                      refused.isEmpty() ? usual_length(text_of(box), separator) : refused);
          });
  return beside;
}

QGroupBox* PropertPage::frame(const char* name, const char* caption) {
  auto* const frame = new QGroupBox(QString::fromUtf8(caption), this);
  set_object_name(*frame, name);
  return frame;
}

}  // namespace kurv
