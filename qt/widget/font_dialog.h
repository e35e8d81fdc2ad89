// Asks for what a graph keeps of a font: its name, its size, bold and italic.
#pragma once

#include <KurvGraph/plot_surface.h>

#include <QCheckBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QFontComboBox>
#include <QLabel>

namespace kurv {

class FontDialog final : public QDialog {
  Q_OBJECT

 public:
  explicit FontDialog(QWidget* parent);

  void set_font(const Font& font);
  // What the user has not changed is that of set_font(), also a name that is not installed.
  Font chosen_font() const;

 private:
  void show_sample();

  QFontComboBox* m_name;
  QDoubleSpinBox* m_size;
  QCheckBox* m_bold;
  QCheckBox* m_italic;
  QLabel* m_sample;
  Font m_font;
  double m_first_size = 0;  // as the box shows that of m_font
};

}  // namespace kurv
