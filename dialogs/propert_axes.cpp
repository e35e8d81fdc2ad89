#include <KurvGraph/limits.h>

#include <QFormLayout>
#include <QGridLayout>
#include <QVBoxLayout>

#include "control/axis_limits.h"
#include "control/control_state.h"
#include "dialogs/field_rules.h"
#include "dialogs/limit_fields.h"
#include "dialogs/propert_pages.h"

namespace kurv {

namespace {

// The fields of one axis.
struct Axis {
  const char* frame;
  const char* caption;
  const char* limits_step;
  Limit min;
  Limit max;

  const char* exact_box;
  const char* exact_caption;
  Boolean GraphDocument::*is_exact;
  void (*set_exact)(ControlState&, Boolean);

  const char* format_box;
  const char* format_label;
  const char* format_caption;
  const char* format_description;
  const char* format_step;
  String (Control::*format)() const;
  void (Control::*set_format)(const String&);
};

constexpr Axis kX{
    .frame = "Frame3",
    .caption = "X axis",
    .limits_step = "Change X Limits",
    .min = {"txtXAxis_2", "&Minimum:", "Minimum of the x axis", &Control::xmin, &Control::set_xmin},
    .max = {"txtXAxis_1", "Maxim&um:", "Maximum of the x axis", &Control::xmax, &Control::set_xmax},
    .exact_box = "chkXZoom",
    .exact_caption = "&Exact range of the data",
    .is_exact = &GraphDocument::XLimitsExact,
    .set_exact = basKurvGraph01::set_XLimitsExact,
    .format_box = "cmbXFormat",
    .format_label = "Label12",
    .format_caption = "Number &format:",
    .format_description = "Number format of the x axis",
    .format_step = "Change X Number Format",
    .format = &Control::AxisLabelFormatX,
    .set_format = &Control::set_AxisLabelFormatX,
};

constexpr Axis kY{
    .frame = "Frame4",
    .caption = "Y axis",
    .limits_step = "Change Y Limits",
    .min = {"txtYAxis_2", "Mi&nimum:", "Minimum of the y axis", &Control::ymin, &Control::set_ymin},
    .max = {"txtYAxis_1", "Max&imum:", "Maximum of the y axis", &Control::ymax, &Control::set_ymax},
    .exact_box = "chkYZoom",
    .exact_caption = "Exact range &of the data",
    .is_exact = &GraphDocument::YLimitsExact,
    .set_exact = basKurvGraph01::set_YLimitsExact,
    .format_box = "cmbYFormat",
    .format_label = "Label13",
    .format_caption = "Num&ber format:",
    .format_description = "Number format of the y axis",
    .format_step = "Change Y Number Format",
    .format = &Control::AxisLabelFormatY,
    .set_format = &Control::set_AxisLabelFormatY,
};

QStringList formats() {
  return QStringLiteral("0 0.0 0.00 0.000 0.0000 0.00000 0.0E+0 0.00E+0 0.000E+0 0.0000E+0")
      .split(u' ');
}

QCheckBox* exact_box(PropertPage& page, const Axis& axis) {
  QCheckBox* const box = page.check_box(
      axis.exact_box, axis.exact_caption, axis.limits_step,
      [&axis](Control& control) { return control.state().document.*axis.is_exact; },
      [&axis](Control& control, Boolean exact) { axis.set_exact(control.state(), exact); });
  box->setToolTip(QStringLiteral("Otherwise the limits are widened to round numbers"));
  QObject::connect(box, &QCheckBox::toggled, &page, &PropertPage::refill);
  return box;
}

QGroupBox* axis_frame(PropertPage& page, LimitFields& limits, const Axis& axis) {
  QGroupBox* const frame = page.frame(axis.frame, axis.caption);
  auto* const form = new QFormLayout(frame);
  const auto [min, max] = limits.add_axis(axis.limits_step, axis.min, axis.max);
  form->addRow(QString::fromUtf8(axis.min.caption), min);
  form->addRow(QString::fromUtf8(axis.max.caption), max);
  form->addRow(exact_box(page, axis));
  QComboBox* const format = page.list_box(
      axis.format_box, axis.format_description, axis.format_step, formats(),
      [&axis](Control& control) { return QString::fromStdString((control.*axis.format)()); },
      store_and_draw(axis.set_format));
  form->addRow(page.label(axis.format_label, axis.format_caption, format), format);
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
    page.edit({"Round Limits"},
              [](Control& control) { basKurvGraph01::round_limits_once(control.state()); });
    page.refill();
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
