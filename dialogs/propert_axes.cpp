#include <KurvGraph/limits.h>

#include <QFormLayout>
#include <QGridLayout>
#include <QScopeGuard>
#include <QVBoxLayout>
#include <utility>

#include "control/axis_limits.h"
#include "control/control_state.h"
#include "control/redraw.h"
#include "dialogs/field_rules.h"
#include "dialogs/format_box.h"
#include "dialogs/limit_fields.h"
#include "dialogs/propert_pages.h"
#include "model/axis_range.h"

namespace kurv {

namespace {

// The fields of one axis.
struct Axis {
  const char* frame;
  const char* caption;
  const char* limits_step;
  Limit min;
  Limit max;
  Double GraphDocument::*lowest;
  Double GraphDocument::*highest;
  const char* limits_note;

  const char* exact_box;
  const char* exact_caption;
  Boolean GraphDocument::*is_exact;
  void (*set_exact)(ControlState&, Boolean);

  const char* format_box;
  const char* format_label;
  const char* format_caption;
  const char* format_description;
  const char* format_step;
  const char* format_note;
  String (Control::*format)() const;
  void (Control::*set_format)(const String&);
  Double (Control::*first_label)() const;
};

constexpr Axis kX{
    .frame = "Frame3",
    .caption = "X axis",
    .limits_step = "Change X Limits",
    .min = {"txtXAxis_2", "&Minimum:", "Minimum of the x axis", &Control::xmin, &Control::set_xmin},
    .max = {"txtXAxis_1", "Maxim&um:", "Maximum of the x axis", &Control::xmax, &Control::set_xmax},
    .lowest = &GraphDocument::xmin,
    .highest = &GraphDocument::xmax,
    .limits_note = "lblXLimits",
    .exact_box = "chkXZoom",
    .exact_caption = "&Exact range of the data",
    .is_exact = &GraphDocument::XLimitsExact,
    .set_exact = basKurvGraph01::set_XLimitsExact,
    .format_box = "cmbXFormat",
    .format_label = "Label12",
    .format_caption = "Number &format:",
    .format_description = "Number format of the x axis",
    .format_step = "Change X Number Format",
    .format_note = "lblXFormat",
    .format = &Control::AxisLabelFormatX,
    .set_format = &Control::set_AxisLabelFormatX,
    .first_label = &Control::xmin,
};

constexpr Axis kY{
    .frame = "Frame4",
    .caption = "Y axis",
    .limits_step = "Change Y Limits",
    .min = {"txtYAxis_2", "Mi&nimum:", "Minimum of the y axis", &Control::ymin, &Control::set_ymin},
    .max = {"txtYAxis_1", "Max&imum:", "Maximum of the y axis", &Control::ymax, &Control::set_ymax},
    .lowest = &GraphDocument::ymin,
    .highest = &GraphDocument::ymax,
    .limits_note = "lblYLimits",
    .exact_box = "chkYZoom",
    .exact_caption = "Exact range &of the data",
    .is_exact = &GraphDocument::YLimitsExact,
    .set_exact = basKurvGraph01::set_YLimitsExact,
    .format_box = "cmbYFormat",
    .format_label = "Label13",
    .format_caption = "Num&ber format:",
    .format_description = "Number format of the y axis",
    .format_step = "Change Y Number Format",
    .format_note = "lblYFormat",
    .format = &Control::AxisLabelFormatY,
    .set_format = &Control::set_AxisLabelFormatY,
    .first_label = &Control::ymin,
};

QStringList formats() {
  return QStringLiteral("0 0.0 0.00 0.000 0.0000 0.00000 0.0E+0 0.00E+0 0.000E+0 0.0000E+0")
      .split(u' ');
}

// Says why the format in the box is refused, or what it makes of the axis's first label.
void show_format_note(QLabel& note, FormatBox& box) {
  const QString refused = QString::fromStdString(format_refusal(box.format()));
  show_note(note, box,
            refused.isEmpty() ? QStringLiteral("First label: ") + box.first_label() : refused);
  if (refused.isEmpty()) {
    box.lineEdit()->setPalette(QPalette());
  } else {
    show_validity(*box.lineEdit(), false);
  }
}

void store_format(const Axis& axis, Control& control, FormatBox& box) {
  const String format = box.format();
  if (!format_refusal(format).empty()) return;
  box.lineEdit()->setModified(false);
  if ((control.*axis.format)() == format) return;
  (control.*axis.set_format)(format);
  control.build_the_graph();
}

// What is typed is stored and drawn as it is typed, as long as it is accepted.
FormatBox* format_box(PropertPage& page, const Axis& axis, QLabel* note) {
  auto* const box = new FormatBox(formats(), &page);
  box->setObjectName(QLatin1String(axis.format_box));
  box->setAccessibleName(QString::fromUtf8(axis.format_description));
  box->setToolTip(
      QStringLiteral("0 is a digit, # a digit where there is one.\n"
                     "Choose a format or type one, such as #,##0.0"));
  page.on_filling([=, &axis](Control& control) {
    box->show_format((control.*axis.format)(), (control.*axis.first_label)());
    show_format_note(*note, *box);
  });
  page.undo_by_keys(*box, *box->lineEdit(),
                    [box] { return format_refusal(box->format()).empty(); });
  const auto store = [=, &page, &axis](const StepLabel& step) {
    show_format_note(*note, *box);
    page.edit(step, [=, &axis](Control& control) { store_format(axis, control, *box); });
  };
  const auto choose = [=, &axis](int index) {
    if (index >= 0) store({axis.format_step});
  };
  QObject::connect(box, &QComboBox::currentIndexChanged, &page, choose);
  // The item may be the current one although another text has been typed since.
  QObject::connect(box, &QComboBox::activated, &page, choose);
  QObject::connect(box->lineEdit(), &QLineEdit::textEdited, &page,
                   [=, &axis] { store(typing(axis.format_box, axis.format_step)); });
  QObject::connect(box->lineEdit(), &QLineEdit::editingFinished, &page, [&page] {
    page.end_merging();
    page.refill();
  });
  return box;
}

// Limits of the other axis that do not follow the data are kept. Meanwhile that axis is exact,
// because the limits of such an axis can be computed from any data.
void set_exact(ControlState& state, const Axis& axis, Boolean exact) {
  GraphDocument& document = state.document;
  if (document.Autoscale) return axis.set_exact(state, exact);
  const Axis& other = &axis == &kX ? kY : kX;
  const Double lowest = document.*other.lowest;
  const Double highest = document.*other.highest;
  const Boolean is_other_exact = std::exchange(document.*other.is_exact, true);
  document.*axis.is_exact = exact;
  {
    const auto restore = qScopeGuard([&] {
      document.*other.lowest = lowest;
      document.*other.highest = highest;
      document.*other.is_exact = is_other_exact;
    });
    basKurvGraph01::compute_axis_range(document, *state.services.numeric);
  }
  build_the_graph(state);
}

QCheckBox* exact_box(PropertPage& page, const Axis& axis) {
  QCheckBox* const box = page.check_box(
      axis.exact_box, axis.exact_caption, axis.limits_step,
      [&axis](Control& control) { return control.state().document.*axis.is_exact; },
      [&axis](Control& control, Boolean exact) { set_exact(control.state(), axis, exact); });
  box->setToolTip(QStringLiteral("Otherwise the limits are widened to round numbers"));
  QObject::connect(box, &QCheckBox::toggled, &page, &PropertPage::refill);
  return box;
}

// Whether the axis is one that is computed as the exact range, but has other limits now.
bool has_lost_exact_range(const ControlState& state, const Axis& axis) {
  const GraphDocument& document = state.document;
  if (!(document.*axis.is_exact) || document.Autoscale) return false;
  GraphDocument exact = document;
  exact.round_limits.is_on = false;
  exact.XLimitsExact = true;
  exact.YLimitsExact = true;
  basKurvGraph01::compute_axis_range(exact, *state.services.numeric);
  return document.*axis.lowest != exact.*axis.lowest ||
         document.*axis.highest != exact.*axis.highest;
}

QGroupBox* axis_frame(PropertPage& page, LimitFields& limits, const Axis& axis) {
  QGroupBox* const frame = page.frame(axis.frame, axis.caption);
  auto* const form = new QFormLayout(frame);
  const LimitFields::Axis fields = limits.add_axis(
      axis.limits_step, axis.min, axis.max, axis.limits_note,
      [&axis](Control& control) { return has_lost_exact_range(control.state(), axis); });
  form->addRow(QString::fromUtf8(axis.min.caption), fields.min);
  form->addRow(QString::fromUtf8(axis.max.caption), fields.max);
  form->addRow(fields.note);
  form->addRow(exact_box(page, axis));
  QLabel* const note = page.note(axis.format_note, "Shows no number: use 0 and #");
  FormatBox* const format = format_box(page, axis, note);
  form->addRow(page.label(axis.format_label, axis.format_caption, format), format);
  form->addRow(note);
  return frame;
}

// Round limits that follow the data are fitted to the number of ticks.
auto store_ticks(PropertPage& page) {
  return [&page](Control& control, Integer ticks) {
    control.set_NumTicks(ticks);
    if (!control.round_limits() || !control.Autoscale()) return;
    control.update_limits();
    page.refill();
  };
}

QPushButton* round_limits_button(PropertPage& page) {
  QPushButton* const button = page.button("cmdRoundLimits", "Roun&d Limits");
  button->setToolTip(
      QStringLiteral("Fit both axes to the data, so that all their ticks are round numbers"));
  QObject::connect(button, &QPushButton::clicked, &page, [&page] {
    const auto round = [](Control& control) { basKurvGraph01::round_limits_once(control.state()); };
    if (page.edit({"Round Limits"}, round)) page.refill();
  });
  return button;
}

}  // namespace

void build_axes_page(PropertPage& page) {
  auto* const grid = new QGridLayout(&page);
  auto* const limits = new LimitFields(page);
  grid->addWidget(axis_frame(page, *limits, kX), 0, 0);
  grid->addWidget(axis_frame(page, *limits, kY), 0, 2);

  auto* const ticks = new QFormLayout;
  static_assert(kMinEnteredTicks == 5 && kMaxEnteredTicks == 100);
  QLineEdit* const count =
      page.number_box("txtAxisTicks", "Number of tick intervals, 5 to 100", "Change Tick Intervals",
                      &Control::NumTicks, store_ticks(page), tick_count);
  ticks->addRow(page.label("Label14", "Tic&k intervals, 5 to 100:", count), count);
  ticks->addRow(round_limits_button(page));
  grid->addLayout(ticks, 1, 0);

  auto* const lines = new QVBoxLayout;
  lines->addWidget(page.check_box("chkXGrids", "&Horizontal grid lines", "Change Horizontal Grid",
                                  &Control::X_grid, store_and_draw(&Control::set_X_grid)));
  lines->addWidget(page.check_box("chkYGrids", "&Vertical grid lines", "Change Vertical Grid",
                                  &Control::Y_grid, store_and_draw(&Control::set_Y_grid)));
  grid->addLayout(lines, 1, 2);
  grid->setColumnStretch(0, 1);
  grid->setColumnStretch(2, 1);
  // A gap between the two axes.
  grid->setColumnMinimumWidth(1, page.fontMetrics().averageCharWidth() * 2);
  grid->setRowStretch(2, 1);
  page.setFocusProxy(page.findChild<QLineEdit*>(QLatin1String(kX.min.name)));
}

}  // namespace kurv
