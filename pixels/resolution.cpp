#include "pixels/resolution.h"

#include <algorithm>
#include <cmath>

#include <KurvGraph/limits.h>

namespace kurv {

double Resolution::scale_width() const {
  return std::min<double>(kMaxSide, width * twips_per_pixel);
}

double Resolution::scale_height() const {
  return std::min<double>(kMaxSide, height * twips_per_pixel);
}

int Resolution::pixels_per_metre() const {
  const double per_metre = kTwipsPerInch / twips_per_pixel / 0.0254;
  return static_cast<int>(std::clamp(std::round(per_metre), 1.0, 1e9));
}

Resolution resolution_of(double logical_width, double logical_height, double device_pixel_ratio) {
  const double width = logical_width > 0 ? logical_width : 1;
  const double height = logical_height > 0 ? logical_height : 1;
  const double longest = std::max(width, height);
  double ratio =
      device_pixel_ratio > 0 && std::isfinite(device_pixel_ratio) ? device_pixel_ratio : 1;
  // Limits the memory of a picture: a larger one gets a lower resolution.
  ratio = std::min({ratio, kMaxSide / longest, std::sqrt(kMaxPicturePixels / (width * height))});
  ratio = std::max(ratio, 1e-6);
  const auto pixels = [ratio](double logical) {
    return static_cast<int>(std::clamp(std::round(logical * ratio), 1.0, double{kMaxSide}));
  };
  const double twips_per_logical_pixel = std::min(15.0, kMaxSide / longest);
  return {pixels(width), pixels(height), ratio, twips_per_logical_pixel / ratio};
}

}  // namespace kurv
