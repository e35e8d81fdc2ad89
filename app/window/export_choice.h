// What a user chooses about an exported picture, and what it is by default: as in the window.
#pragma once

#include <QSize>
#include <QSizeF>
#include <QString>
#include <optional>

#include "app/graph/picture_file.h"

namespace kurv::app {

enum class LengthUnit { kPixels, kMillimetres };

inline constexpr double kMillimetresPerInch = 25.4;
// A document of lines and text has no pixels of its own; its lengths are those of this resolution.
inline constexpr double kDocumentDotsPerInch = 96;

// In dots per inch.
inline constexpr int kLeastResolution = 48;
inline constexpr int kMostResolution = 1200;

struct ExportSize {
  QSizeF size;  // in the unit
  LengthUnit unit = LengthUnit::kPixels;
  double dots_per_inch = 96;
};

struct ExportChoice {
  PictureFormat format = PictureFormat::kPng;
  std::optional<ExportSize> size;  // nothing: as in the window, which may change its size
};

// A document of lines and text has no pixels, so its pixels are those of 96 to an inch.
double dots_per_inch(const ExportChoice& choice);
// The size in pixels of a choice that has one.
QSize export_pixels(const ExportChoice& choice);
// The length in the other unit.
double converted(double length, LengthUnit from, double dots_per_inch);
// A sentence where there would be more pixels than a picture holds.
std::optional<QString> export_refusal(const ExportChoice& choice);

// The last choice, which is kept in the settings. One that was edited there counts where it makes
// sense.
ExportChoice last_export();
void remember_export(const ExportChoice& choice);

}  // namespace kurv::app
