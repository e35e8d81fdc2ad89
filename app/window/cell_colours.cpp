#include "app/window/cell_colours.h"

#include <QApplication>
#include <QPalette>

namespace kurv::app {

namespace {

// So much of the first colour, from 0 to 1, and the rest of the second one.
QColor mixed(const QColor& first, const QColor& second, double share) {
  const auto mix = [share](int one, int other) {
    return static_cast<int>(one * share + other * (1 - share));
  };
  return {mix(first.red(), second.red()), mix(first.green(), second.green()),
          mix(first.blue(), second.blue())};
}

QColor base() {
  return QApplication::palette().color(QPalette::Base);
}

QColor text() {
  return QApplication::palette().color(QPalette::Text);
}

}  // namespace

QBrush refused_cell() {
  constexpr double kOnLight = 0.25;
  constexpr double kOnDark = 0.45;
  return mixed(QColor(220, 0, 0), base(), base().lightness() < 128 ? kOnDark : kOnLight);
}

QBrush missing_cell() {
  return mixed(text(), base(), 0.12);
}

QBrush grey_text() {
  return mixed(text(), base(), 0.55);
}

}  // namespace kurv::app
