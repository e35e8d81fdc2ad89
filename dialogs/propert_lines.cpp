#include <KurvGraph/limits.h>

#include <QFormLayout>
#include <QHBoxLayout>

#include "control/control_state.h"
#include "dialogs/field_rules.h"
#include "dialogs/length_text.h"
#include "dialogs/propert_pages.h"

namespace kurv {

namespace {

QComboBox* width_box(PropertPage& page, const char* name, const char* description, const char* step,
                     Integer (Control::*get)() const, void (Control::*set)(Integer)) {
  static_assert(kMinEnteredLineWidth == 1 && kMaxEnteredLineWidth == 4);
  return page.list_box(
      name, description, step,
      {QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("4")},
      [get](Control& control) { return shown_number(control, (control.*get)()); },
      [set](Control& control, const String& chosen) {
        const std::optional<Integer> width = line_width(chosen, control.decimal_separator());
        if (width) {
          store_and_draw(set)(control, *width);
        } else {
          control.state().shell.beep();
        }
      });
}

// Both texts of the marker size's field name its range.
static_assert(kMinEnteredMarkerSize == 10 && kMaxEnteredMarkerSize == 200);

QString marker_refusal(std::string_view text, char decimal_separator) {
  if (!length_in_twips(text, decimal_separator)) return QStringLiteral("not a length");
  const bool is_accepted = marker_size(text, decimal_separator).has_value();
  return is_accepted ? QString() : QStringLiteral("must be 10 to 200");
}

QLineEdit* marker_box(PropertPage& page) {
  QLineEdit* const box =
      page.number_box("txtMarkerSize", "Marker size in twips, 10 to 200", "Change Marker Size",
                      &Control::MarkerSize, &Control::set_MarkerSize, marker_size);
  QObject::connect(box, &QLineEdit::returnPressed, &page,
                   [&page] { page.handle([](Control& control) { control.build_the_graph(); }); });
  box->setToolTip(QStringLiteral("Twips, or a number with mm, cm, in, pt or px"));
  return box;
}

}  // namespace

void build_lines_page(PropertPage& page) {
  auto* const form = new QFormLayout(&page);
  QComboBox* const curves =
      width_box(page, "cmbCurvesWidth", "Width of the curves in pixels", "Change Curve Width",
                &Control::CurvesWidth, &Control::set_CurvesWidth);
  form->addRow(page.label("Label15", "C&urve width in pixels:", curves), curves);
  QComboBox* const border =
      width_box(page, "cmbBorderWidth", "Width of the plot's border in pixels",
                "Change Border Width", &Control::BorderWidth, &Control::set_BorderWidth);
  form->addRow(page.label("Label16", "&Border width in pixels:", border), border);

  QCheckBox* const draw =
      page.check_box("chkDrawPoints", "&Draw a marker at each point", "Change Markers",
                     &Control::DrawMarkers, store_and_draw(&Control::set_DrawMarkers));
  form->addRow(draw);
  QLineEdit* const size = marker_box(page);
  QLabel* const label = page.label("lblMarkerSize", "Marker &size in twips, 10 to 200:", size);
  auto* const field = new QHBoxLayout;
  field->addWidget(size, 1);
  field->addWidget(page.length_note("lblMarkerLength", "must be 10 to 200", *size, marker_refusal));
  form->addRow(label, field);
  label->setEnabled(draw->isChecked());
  QObject::connect(draw, &QCheckBox::toggled, label, &QLabel::setEnabled);
  page.setFocusProxy(curves);
}

}  // namespace kurv
