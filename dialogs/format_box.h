// A list of number formats, each beside what it makes of the first label of an axis. Another format
// can be typed.
#pragma once

#include <KurvGraph/values.h>

#include <QComboBox>
#include <QStringList>

namespace kurv {

class FormatBox final : public QComboBox {
 public:
  FormatBox(const QStringList& formats, QWidget* parent);

  // Shows the format, unless one is being typed, and what the formats make of this number.
  void show_format(const String& format, Double first_label);

  String format() const { return currentText().toStdString(); }
  QString first_label() const;

  // With the space that formats and labels need.
  void showPopup() override;

 private:
  bool is_being_typed() const;

  Double m_first_label = 0;
};

}  // namespace kurv
