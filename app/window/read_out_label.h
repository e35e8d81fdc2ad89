// The field of the status bar that says what is under the pointer.
#pragma once

#include <KurvGraph/read_out.h>

#include <QLabel>

namespace kurv::app {

// "height 2: x 12.5, y 3.20"; only the place where no point is near. Empty without either.
QString read_out_text(const ReadOut& read_out);

// Named lblReadOut. As wide as a usual text, whatever it says, so that nothing beside it moves; a
// longer text is elided, and is whole in the tool tip.
class ReadOutLabel final : public QLabel {
 public:
  ReadOutLabel();

  void show_read_out(const ReadOut& read_out);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void elide();

  QString m_text;
};

}  // namespace kurv::app
