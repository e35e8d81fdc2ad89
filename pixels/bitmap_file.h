// Pictures as Windows bitmap files.
#pragma once

#include <KurvGraph/pixel_view.h>
#include <KurvGraph/values.h>

namespace kurv {

// The bytes of an uncompressed file with 24 bits a pixel.
String bitmap_file(const PixelView& picture);

}  // namespace kurv
