// The size of a surface in twips and in pixels.
#pragma once

namespace kurv {

inline constexpr int kTwipsPerInch = 1440;
inline constexpr double kTwipsPerPoint = 20;

struct Resolution {
  int width = 1;  // in device pixels
  int height = 1;
  double device_pixel_ratio = 1;
  double twips_per_pixel = 15;  // of the device

  // The surface's size in twips, within sixteen bits.
  double scale_width() const;
  double scale_height() const;
  double twips_per_logical_pixel() const { return twips_per_pixel * device_pixel_ratio; }
  // At least one.
  int pixels_per_metre() const;

  friend bool operator==(const Resolution&, const Resolution&) = default;
};

// The resolution of a surface of this size in logical pixels. Both sides have at least one device
// pixel. A logical pixel has 15 twips, or fewer where a side would then exceed 32767 twips. The
// ratio is lowered where there would be more than 4 x 7680 x 4320 device pixels.
Resolution resolution_of(double logical_width, double logical_height, double device_pixel_ratio);

}  // namespace kurv
