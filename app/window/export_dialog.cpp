#include "app/window/export_dialog.h"

#include <KurvGraph/screen_fit.h>
#include <KurvGraph/wheel_guard.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <new>

#include "app/window/check_box_style.h"
#include "app/window/named_widget.h"
#include "app/window/picture_view.h"

namespace kurv::app {

namespace {

// More than a picture may have, so that the note can say why.
constexpr double kLongestSide = 99999;

struct FormatName {
  PictureFormat format;
  const char* name;
};

// In the order of the file dialog.
constexpr FormatName kFormatNames[] = {{PictureFormat::kPng, "PNG picture"},
                                       {PictureFormat::kSvg, "SVG drawing"},
                                       {PictureFormat::kPdf, "PDF document"},
                                       {PictureFormat::kBmp, "Bitmap"}};

QDoubleSpinBox* new_length(const char* name, const QString& spoken) {
  auto* const box = named(name, new QDoubleSpinBox);
  box->setAccessibleName(spoken);
  box->setDecimals(0);
  box->setRange(1, kLongestSide);
  box->setKeyboardTracking(true);
  box->setFocusPolicy(Qt::StrongFocus);
  return box;
}

QComboBox* new_list(const char* name, const QString& spoken) {
  auto* const list = named(name, new QComboBox);
  list->setAccessibleName(spoken);
  return list;
}

double scale_to_fit(const QSizeF& whole, const QSizeF& view) {
  return std::min(whole.scaled(view, Qt::KeepAspectRatio).width() / whole.width(), 1.0);
}

QSize scaled_pixels(QSize whole, double scale) {
  return (QSizeF(whole) * scale).toSize().expandedTo(QSize(1, 1));
}

double rounded(double length, LengthUnit unit) {
  const double steps = unit == LengthUnit::kPixels ? 1 : 10;
  return std::max(1.0, std::round(length * steps) / steps);
}

}  // namespace

ExportDialog::ExportDialog(KurvGraph& graph, const ExportChoice& choice, QWidget* parent)
    : QDialog(parent),
      m_graph(&graph),
      m_format(new_list("cboFormat", "Format")),
      m_as_in_window(named("chkAsInWindow", new QCheckBox("&As in the window"))),
      m_width(new_length("spnWidth", "Width")),
      m_height(new_length("spnHeight", "Height")),
      m_unit(new_list("cboUnit", "Unit of width and height")),
      m_proportions(named("chkProportions", new QCheckBox("&Keep proportions"))),
      m_resolution_label(new QLabel("&Resolution")),
      m_resolution(named("spnResolution", new QSpinBox)),
      m_note(named("lblNote", new QLabel)),
      m_preview(named("imgExport", new PictureView([this] { return drawn_preview(); }))) {
  setObjectName("ExportDialog");
  setWindowTitle("Export Picture");
  for (const FormatName& row : kFormatNames) m_format->addItem(row.name);
  m_unit->addItems({"Pixels", "Millimetres"});
  m_preview->setAccessibleName("The picture that is exported");
  m_resolution->setAccessibleName("Resolution in dots per inch");
  m_resolution->setRange(kLeastResolution, kMostResolution);
  m_resolution->setSuffix(" dpi");
  m_resolution->setFocusPolicy(Qt::StrongFocus);
  m_proportions->setChecked(true);
  for (QCheckBox* box : {m_as_in_window, m_proportions}) make_boxes_visible(*box);

  auto* const page = new QWidget;
  auto* const columns = new QHBoxLayout(page);
  columns->setContentsMargins(0, 0, 0, 0);
  columns->addWidget(make_fields());
  columns->addWidget(m_preview, 1);
  auto* const buttons = new QDialogButtonBox;
  m_export = named("cmdExport", buttons->addButton("&Export\u2026", QDialogButtonBox::AcceptRole));
  buttons->addButton("&Cancel", QDialogButtonBox::RejectRole);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(new_scroller(page), 1);
  layout->addWidget(buttons);
  m_export->setDefault(true);

  const auto* const row =
      std::find_if(std::begin(kFormatNames), std::end(kFormatNames),
                   [&](const FormatName& name) { return name.format == choice.format; });
  m_format->setCurrentIndex(static_cast<int>(row - kFormatNames));
  m_as_in_window->setChecked(!choice.size);
  show_size(choice.size.value_or(window_size()));
  connect_fields();
  update_fields();
  const QSize comfortable(fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 24);
  resize(comfortable);
  fit_to_screen(*this);
  guard_wheel(*this);
}

QWidget* ExportDialog::make_fields() {
  auto* const fields = new QWidget;
  auto* const form = new QFormLayout(fields);
  form->setContentsMargins(0, 0, 0, 0);
  form->setRowWrapPolicy(QFormLayout::DontWrapRows);
  form->addRow("&Format", m_format);
  form->addRow(m_as_in_window);
  form->addRow("&Width", m_width);
  form->addRow("&Height", m_height);
  form->addRow("&Unit", m_unit);
  form->addRow(m_proportions);
  form->addRow(m_resolution_label, m_resolution);
  m_resolution_label->setBuddy(m_resolution);
  m_note->setTextFormat(Qt::PlainText);
  m_note->setWordWrap(true);
  m_note->setMinimumHeight(m_note->fontMetrics().height() * 3);
  m_note->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  form->addRow(m_note);
  return fields;
}

void ExportDialog::connect_fields() {
  connect(m_format, &QComboBox::currentIndexChanged, this, [this] { update_fields(); });
  connect(m_as_in_window, &QCheckBox::toggled, this, [this](bool on) { follow_window(on); });
  connect(m_width, &QDoubleSpinBox::valueChanged, this,
          [this](double width) { keep_proportions(width, *m_height, 1 / m_ratio); });
  connect(m_height, &QDoubleSpinBox::valueChanged, this,
          [this](double height) { keep_proportions(height, *m_width, m_ratio); });
  connect(m_proportions, &QCheckBox::toggled, this,
          [this] { m_ratio = m_width->value() / m_height->value(); });
  connect(m_unit, &QComboBox::currentIndexChanged, this, [this] { set_unit(unit()); });
  connect(m_resolution, &QSpinBox::valueChanged, this, [this] { update_fields(); });
}

// -- Sizes ----------------------------------------------------------------------------------------

ExportChoice ExportDialog::choice() const {
  ExportChoice choice;
  choice.format = kFormatNames[m_format->currentIndex()].format;
  if (!m_as_in_window->isChecked()) choice.size = shown_size();
  return choice;
}

LengthUnit ExportDialog::unit() const {
  return m_unit->currentIndex() == 0 ? LengthUnit::kPixels : LengthUnit::kMillimetres;
}

ExportSize ExportDialog::shown_size() const {
  return {QSizeF(m_width->value(), m_height->value()), m_shown_unit,
          static_cast<double>(m_resolution->value())};
}

// A document of lines and text counts the pixels that the window has on a screen of 96 dots per
// inch.
ExportSize ExportDialog::window_size() const {
  if (!m_graph) return shown_size();
  const QImage picture = m_graph->image();
  if (is_vector(kFormatNames[m_format->currentIndex()].format)) {
    return {m_graph->plot_rect().size(), LengthUnit::kPixels, kDocumentDotsPerInch};
  }
  return {picture.size(), LengthUnit::kPixels,
          std::round(picture.dotsPerMeterX() * kMillimetresPerInch / 1000)};
}

void ExportDialog::show_size(const ExportSize& size) {
  const QScopedValueRollback<bool> changing(m_is_changing, true);
  m_shown_unit = size.unit;
  m_unit->setCurrentIndex(size.unit == LengthUnit::kPixels ? 0 : 1);
  for (QDoubleSpinBox* box : {m_width, m_height}) {
    box->setDecimals(size.unit == LengthUnit::kPixels ? 0 : 1);
  }
  m_width->setValue(size.size.width());
  m_height->setValue(size.size.height());
  m_resolution->setValue(static_cast<int>(size.dots_per_inch));
  m_ratio = size.size.width() / size.size.height();
}

// The picture stays as large as it is.
void ExportDialog::set_unit(LengthUnit unit) {
  if (m_is_changing || unit == m_shown_unit) return;
  ExportSize size = shown_size();
  const double resolution = dots_per_inch({choice().format, size});
  const auto in_unit = [&](double length) {
    return rounded(converted(length, size.unit, resolution), unit);
  };
  const double ratio = m_ratio;
  show_size(
      {QSizeF(in_unit(size.size.width()), in_unit(size.size.height())), unit, size.dots_per_inch});
  m_ratio = ratio;
  update_fields();
}

void ExportDialog::keep_proportions(double from, QDoubleSpinBox& other, double ratio) {
  if (m_is_changing) return;
  const QScopedValueRollback<bool> changing(m_is_changing, true);
  if (m_proportions->isChecked()) other.setValue(rounded(from * ratio, m_shown_unit));
  update_fields();
}

void ExportDialog::follow_window(bool on) {
  if (on) show_size(window_size());
  update_fields();
}

// -- What the fields say --------------------------------------------------------------------------

void ExportDialog::update_fields() {
  const ExportChoice chosen = choice();
  if (!chosen.size && !m_is_changing) show_size(window_size());
  const bool is_free = chosen.size.has_value();
  const bool has_resolution = !is_vector(chosen.format);
  for (QWidget* field : {static_cast<QWidget*>(m_width), static_cast<QWidget*>(m_height),
                         static_cast<QWidget*>(m_unit), static_cast<QWidget*>(m_proportions)}) {
    field->setEnabled(is_free);
  }
  m_resolution->setEnabled(is_free && has_resolution);
  m_resolution_label->setEnabled(is_free && has_resolution);
  const ExportChoice shown{chosen.format, shown_size()};
  const std::optional<QString> refusal = export_refusal(shown);
  const double resolution = dots_per_inch(shown);
  const auto other = [&](double length) {
    const double in_other = converted(length, m_shown_unit, resolution);
    return m_shown_unit == LengthUnit::kPixels ? QString::number(in_other, 'f', 1)
                                               : QString::number(std::round(in_other), 'f', 0);
  };
  m_note->setText(refusal.value_or(
      other(m_width->value()) + QStringLiteral(" \u00d7 ") + other(m_height->value()) +
      (m_shown_unit == LengthUnit::kPixels ? " millimetres" : " pixels")));
  m_export->setEnabled(!refusal);
  m_preview->draw_later();
}

// As in the window, the picture is what the window shows, though its layout may be another one than
// that of a new picture. One of another size is drawn at the resolution at which it fits.
QImage ExportDialog::drawn_preview() const {
  const ExportChoice chosen = choice();
  const ExportChoice shown{chosen.format, shown_size()};
  if (!m_graph || export_refusal(shown)) return {};
  const QSizeF view = QSizeF(m_preview->size()) * m_preview->devicePixelRatioF();
  if (!chosen.size) {
    const QImage picture = m_graph->image();
    if (picture.isNull()) return {};
    const double scale = scale_to_fit(picture.size(), view);
    if (scale == 1) return picture;
    return picture.scaled(scaled_pixels(picture.size(), scale), Qt::IgnoreAspectRatio,
                          Qt::SmoothTransformation);
  }
  const QSize whole = export_pixels(shown);
  const double scale = scale_to_fit(whole, view);
  const QImage picture =
      m_graph->picture(scaled_pixels(whole, scale), dots_per_inch(shown) * scale);
  if (picture.isNull()) throw std::bad_alloc();
  return picture;
}

std::optional<ExportChoice> ask_for_export(KurvGraph& graph, QWidget* window) {
  const QPointer<ExportDialog> dialog(new ExportDialog(graph, last_export(), window));
  std::optional<ExportChoice> result;
  // The window may go meanwhile.
  if (dialog && dialog->exec() == QDialog::Accepted && dialog) {
    result = dialog->choice();
    remember_export(*result);
  }
  delete dialog;
  return result;
}

}  // namespace kurv::app
