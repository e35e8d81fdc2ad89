#include <QGridLayout>
#include <QPointer>
#include <QVBoxLayout>

#include "control/control_state.h"
#include "control/prompted_settings.h"
#include "dialogs/field_rules.h"
#include "dialogs/length_text.h"
#include "dialogs/propert_pages.h"
#include "model/axis_range.h"

namespace kurv {

namespace {

using MarginOf = Integer (Control::*)() const;

// Of each margin: a label, the field, a note and a gap.
constexpr int kMarginColumns = 4;

// Computes the limits before the redraw, which does not compute them.
void set_autoscale(Control& control, Boolean on) {
  control.set_Autoscale(on);
  ControlState& state = control.state();
  if (on) basKurvGraph01::compute_axis_range(state.document, *state.services.numeric);
  control.build_the_graph();
}

// The message about a refused margin takes the focus from the box, which then asks for the margin
// to be applied once more, when the text no longer counts as changed. The box may be destroyed
// while the message is open.
void apply_margin(Control& control, QLineEdit* box, Margin margin, MarginOf get) {
  const QPointer<QLineEdit> held(box);
  box->setModified(false);
  if (box->text() == shown_number(control, (control.*get)())) return;
  const Integer twips = margin_twips(text_of(*box), control.decimal_separator());
  const bool accepted = set_margin(control.state(), margin, twips);
  if (held) show_text(*held, shown_number(control, (control.*get)()));
  if (accepted) control.build_the_graph();
}

QLineEdit* margin_box(PropertPage& page, const char* name, const char* description, Margin margin,
                      MarginOf get) {
  QLineEdit* const box = page.text_box(name, description, [get](Control& control) {
    return shown_number(control, (control.*get)());
  });
  page.undo_by_keys(*box, *box, [box] { return !box->isModified(); });
  const auto apply = [&page, box, margin, get] {
    if (!box->isModified()) return;
    page.edit({step_name(margin)},
              [=](Control& control) { apply_margin(control, box, margin, get); });
  };
  // Queued, so that a message is not opened from the box's own event handler: the window may be
  // destroyed while it is open.
  QObject::connect(box, &QLineEdit::editingFinished, &page, apply, Qt::QueuedConnection);
  return box;
}

// A length that is no margin of this graph is refused by a message when it is entered.
QString margin_refusal(std::string_view text, char decimal_separator) {
  const bool is_length = length_in_twips(text, decimal_separator).has_value();
  return is_length ? QString() : QStringLiteral("not a length");
}

QGroupBox* margins(PropertPage& page) {
  QGroupBox* const frame = page.frame("Frame1", "Margins in twips, 1440 to the inch");
  auto* const grid = new QGridLayout(frame);
  int cell = 0;
  const auto add = [&](const char* label, const char* caption, const char* note, QLineEdit* box) {
    box->setToolTip(
        QStringLiteral("Twips, or a number with mm, cm, in, pt or px.\n"
                       "Applied when you press Enter or leave the field"));
    const int row = cell / 2;
    const int column = cell % 2 * kMarginColumns;
    grid->addWidget(page.label(label, caption, box), row, column);
    grid->addWidget(box, row, column + 1);
    grid->addWidget(page.length_note(note, "not a length", *box, margin_refusal), row, column + 2);
    ++cell;
  };
  add("Label2", "To&p:", "lblMarginTop",
      margin_box(page, "txtMarginTop", "Top margin in twips", Margin::kTop, &Control::Top_margine));
  add("Label3", "&Bottom:", "lblMarginBottom",
      margin_box(page, "txtMarginBottom", "Bottom margin in twips", Margin::kBottom,
                 &Control::Bottom_margine));
  add("Label4", "L&eft:", "lblMarginLeft",
      margin_box(page, "txtMarginLeft", "Left margin in twips", Margin::kLeft,
                 &Control::Left_margine));
  add("Label5", "R&ight:", "lblMarginRight",
      margin_box(page, "txtMarginRight", "Right margin in twips", Margin::kRight,
                 &Control::Right_margine));
  // A gap between the two columns.
  grid->setColumnMinimumWidth(kMarginColumns - 1, frame->fontMetrics().averageCharWidth() * 2);
  return frame;
}

}  // namespace

void build_general_page(PropertPage& page) {
  auto* const rows = new QVBoxLayout(&page);
  QCheckBox* const sort = page.check_box("chkSort", "&Sort the points by x", "Change Sorting",
                                         &Control::SortXY, store_and_draw(&Control::set_SortXY));
  rows->addWidget(sort);
  rows->addWidget(page.check_box("chkConnected", "Co&nnect the points with lines", "Change Lines",
                                 &Control::Connected, store_and_draw(&Control::set_Connected)));
  QCheckBox* const autoscale = page.check_box("chkAutoScale", "Limits &follow the data",
                                              "Change Limits", &Control::Autoscale, set_autoscale);
  QObject::connect(autoscale, &QCheckBox::toggled, &page, &PropertPage::refill);
  rows->addWidget(autoscale);
  rows->addWidget(margins(page));
  rows->addStretch();
  page.setFocusProxy(sort);
}

}  // namespace kurv
