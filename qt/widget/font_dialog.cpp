#include "qt/widget/font_dialog.h"

#include <KurvGraph/indicator_style.h>
#include <KurvGraph/wheel_guard.h>

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "dialogs/box_outline.h"

namespace kurv {

namespace {

constexpr double kSmallestSize = 1;
constexpr double kLargestSize = 32767;
// So that the sample fits into the dialog.
constexpr double kLargestSampleSize = 36;

template <class Widget>
Widget* named_field(Widget* widget, const char* name, const char* description) {
  widget->setObjectName(QLatin1String(name));
  widget->setAccessibleName(QString::fromUtf8(description));
  return widget;
}

QCheckBox* new_check_box(const char* name, const char* caption) {
  auto* const box = new QCheckBox(QString::fromUtf8(caption));
  box->setObjectName(QLatin1String(name));
  QPalette colours;
  outline_check_boxes(colours);
  box->setPalette(colours);
  scale_indicators(*box);
  return box;
}

}  // namespace

FontDialog::FontDialog(QWidget* parent)
    : QDialog(parent),
      m_name(named_field(new QFontComboBox, "cmbFontName", "Font")),
      m_size(named_field(new QDoubleSpinBox, "spnFontSize", "Size in points")),
      m_bold(new_check_box("chkFontBold", "&Bold")),
      m_italic(new_check_box("chkFontItalic", "&Italic")),
      m_sample(
          named_field(new QLabel(QStringLiteral("AaBbYyZz 0123")), "lblFontSample", "Sample")) {
  setObjectName(QStringLiteral("FontDialog"));
  m_size->setRange(kSmallestSize, kLargestSize);
  m_size->setSuffix(QStringLiteral(" pt"));
  m_sample->setTextFormat(Qt::PlainText);
  m_sample->setAlignment(Qt::AlignCenter);
  m_sample->setFrameShape(QFrame::StyledPanel);
  constexpr int kSampleLines = 4;
  m_sample->setFixedHeight(kSampleLines * fontMetrics().height());

  auto* const style = new QHBoxLayout;
  style->addWidget(m_bold);
  style->addWidget(m_italic);
  style->addStretch();
  auto* const form = new QFormLayout;
  form->addRow(QStringLiteral("&Font:"), m_name);
  form->addRow(QStringLiteral("&Size:"), m_size);
  form->addRow(QString(), style);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* const rows = new QVBoxLayout(this);
  rows->addLayout(form);
  rows->addWidget(m_sample);
  rows->addStretch();
  rows->addWidget(buttons);

  connect(m_name, &QComboBox::currentTextChanged, this, &FontDialog::show_sample);
  connect(m_size, &QDoubleSpinBox::valueChanged, this, &FontDialog::show_sample);
  connect(m_bold, &QCheckBox::toggled, this, &FontDialog::show_sample);
  connect(m_italic, &QCheckBox::toggled, this, &FontDialog::show_sample);
  guard_wheel(*this);
}

void FontDialog::set_font(const Font& font) {
  m_font = font;
  const QString name = QString::fromStdString(font.FontName);
  m_name->setCurrentFont(QFont(name));
  // The box would show the name of another font where this one is not installed.
  m_name->setEditText(name);
  m_size->setValue(font.FontSize);
  m_first_size = m_size->value();
  m_bold->setChecked(font.FontBold);
  m_italic->setChecked(font.FontItalic);
  show_sample();
}

Font FontDialog::chosen_font() const {
  Font font = m_font;
  const String name = m_name->currentText().trimmed().toStdString();
  if (!name.empty()) font.FontName = name;
  if (m_size->value() != m_first_size) font.FontSize = to_single(m_size->value());
  font.FontBold = m_bold->isChecked();
  font.FontItalic = m_italic->isChecked();
  return font;
}

void FontDialog::show_sample() {
  const Font chosen = chosen_font();
  QFont font(QString::fromStdString(chosen.FontName));
  font.setPointSizeF(std::clamp(m_size->value(), kSmallestSize, kLargestSampleSize));
  font.setBold(chosen.FontBold);
  font.setItalic(chosen.FontItalic);
  m_sample->setFont(font);
}

}  // namespace kurv
