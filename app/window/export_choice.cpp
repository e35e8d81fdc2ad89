#include "app/window/export_choice.h"

#include <KurvGraph/limits.h>

#include <QSettings>
#include <algorithm>
#include <cmath>

#include "app/window/settings_file.h"

namespace kurv::app {

namespace {

// The sentence of export_refusal() says so.
static_assert(kMaxPicturePixels == 15360.0 * 8640.0);

constexpr const char* kFormatKey = "export/format";
constexpr const char* kWidthKey = "export/width";
constexpr const char* kHeightKey = "export/height";
constexpr const char* kUnitKey = "export/unit";
constexpr const char* kResolutionKey = "export/resolution";
constexpr const char* kSizeKeys[] = {kWidthKey, kHeightKey, kUnitKey, kResolutionKey};
constexpr const char* kMillimetresText = "mm";
constexpr const char* kPixelsText = "px";

// In pixels, also where they are too many for a QSize.
QSizeF wanted_pixels(const ExportChoice& choice) {
  const ExportSize& size = *choice.size;
  const auto pixels = [&](double length) {
    const double exact = size.unit == LengthUnit::kPixels
                             ? length
                             : converted(length, size.unit, dots_per_inch(choice));
    return std::max(1.0, std::round(exact));
  };
  return {pixels(size.size.width()), pixels(size.size.height())};
}

}  // namespace

double dots_per_inch(const ExportChoice& choice) {
  return is_vector(choice.format) || !choice.size ? kDocumentDotsPerInch
                                                  : choice.size->dots_per_inch;
}

QSize export_pixels(const ExportChoice& choice) {
  return wanted_pixels(choice).toSize();
}

double converted(double length, LengthUnit from, double dots_per_inch) {
  const double pixels_per_millimetre = dots_per_inch / kMillimetresPerInch;
  return from == LengthUnit::kPixels ? length / pixels_per_millimetre
                                     : length * pixels_per_millimetre;
}

std::optional<QString> export_refusal(const ExportChoice& choice) {
  if (!choice.size) return std::nullopt;
  const QSizeF wanted = wanted_pixels(choice);
  const bool is_resolved = !is_vector(choice.format);
  const QString advice =
      is_resolved ? "Choose a smaller size or resolution." : "Choose a smaller size.";
  if (std::max(wanted.width(), wanted.height()) > kMaxSide) {
    return "A picture has at most " + QString::number(kMaxSide) + " pixels on a side. " + advice;
  }
  if (is_resolved && wanted.width() * wanted.height() > kMaxPicturePixels) {
    return "A picture has at most 15360 \u00d7 8640 pixels in all. " + advice;
  }
  return std::nullopt;
}

ExportChoice last_export() {
  const QSettings settings(settings_file(), QSettings::IniFormat);
  ExportChoice choice;
  const std::string format = settings.value(kFormatKey).toString().toStdString();
  choice.format = picture_format("picture." + format).value_or(choice.format);
  ExportSize size;
  size.size = {settings.value(kWidthKey).toDouble(), settings.value(kHeightKey).toDouble()};
  if (settings.value(kUnitKey) == QLatin1String(kMillimetresText)) {
    size.unit = LengthUnit::kMillimetres;
  }
  size.dots_per_inch = settings.value(kResolutionKey).toDouble();
  const bool makes_sense = size.size.width() > 0 && size.size.height() > 0 &&
                           size.dots_per_inch >= kLeastResolution &&
                           size.dots_per_inch <= kMostResolution;
  if (makes_sense) choice.size = size;
  return choice;
}

void remember_export(const ExportChoice& choice) {
  QSettings settings(settings_file(), QSettings::IniFormat);
  settings.setValue(kFormatKey, QString::fromStdString(picture_extension(choice.format)).mid(1));
  if (!choice.size) {
    for (const char* key : kSizeKeys) settings.remove(key);
    return;
  }
  settings.setValue(kWidthKey, choice.size->size.width());
  settings.setValue(kHeightKey, choice.size->size.height());
  const bool is_metric = choice.size->unit == LengthUnit::kMillimetres;
  settings.setValue(kUnitKey, QLatin1String(is_metric ? kMillimetresText : kPixelsText));
  settings.setValue(kResolutionKey, choice.size->dots_per_inch);
}

}  // namespace kurv::app
