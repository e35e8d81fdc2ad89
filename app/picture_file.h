// Pictures on the disk.
#pragma once

#include <QImage>
#include <optional>
#include <string>

namespace kurv::app {

// "PNG" or "BMP" by the name's extension in any letter case; nothing for another one.
std::optional<std::string> picture_format(const std::string& path);

// Replaces the file as a whole or leaves it as it was. Throws UserError with the reason when the
// picture cannot be written.
void write_picture(const QImage& picture, const std::string& path);

}  // namespace kurv::app
