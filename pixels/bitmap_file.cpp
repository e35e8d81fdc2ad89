#include "pixels/bitmap_file.h"

#include <cstddef>
#include <cstdint>

namespace kurv {
namespace {

constexpr std::size_t kHeaderSize = 54;  // of the file and of the picture
constexpr std::uint32_t kPictureHeaderSize = 40;
constexpr int kBytesPerPixel = 3;

void append(String& bytes, std::uint32_t value, int size) {
  for (int i = 0; i < size; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
}

std::uint32_t unsigned_of(int value) {
  return static_cast<std::uint32_t>(value);
}

}  // namespace

String bitmap_file(const PixelView& picture) {
  const std::size_t width = static_cast<std::size_t>(picture.width);
  // Rows end at a multiple of four bytes.
  const std::size_t row_size = (width * kBytesPerPixel + 3) / 4 * 4;
  const std::size_t data_size = row_size * static_cast<std::size_t>(picture.height);
  String bytes;
  bytes.reserve(kHeaderSize + data_size);
  bytes += "BM";
  append(bytes, static_cast<std::uint32_t>(kHeaderSize + data_size), 4);
  append(bytes, 0, 4);
  append(bytes, kHeaderSize, 4);
  append(bytes, kPictureHeaderSize, 4);
  append(bytes, unsigned_of(picture.width), 4);
  append(bytes, unsigned_of(picture.height), 4);
  append(bytes, 1, 2);  // planes
  append(bytes, 8 * kBytesPerPixel, 2);
  append(bytes, 0, 4);  // not compressed
  append(bytes, static_cast<std::uint32_t>(data_size), 4);
  append(bytes, unsigned_of(picture.pixels_per_metre), 4);
  append(bytes, unsigned_of(picture.pixels_per_metre), 4);
  append(bytes, 0, 4);  // no palette
  append(bytes, 0, 4);
  for (int y = picture.height - 1; y >= 0; --y) {
    const std::uint32_t* const row = picture.row(y);
    for (int x = 0; x < picture.width; ++x) append(bytes, row[x], kBytesPerPixel);
    bytes.append(row_size - width * kBytesPerPixel, '\0');
  }
  return bytes;
}

}  // namespace kurv
