#include <KurvGraph/png_file.h>

#include <png.h>

#include <algorithm>
#include <csetjmp>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include <KurvGraph/fault.h>

#include "png/whole_file.h"

namespace kurv {
namespace {

// Memory that is large enough for any compression, so that nothing is allocated, and can fail,
// inside the library.
struct Sink {
  char* bytes;
  std::size_t capacity;
  std::size_t size;
};

std::size_t largest_file(const PixelView& picture) {
  const std::size_t raw =
      (static_cast<std::size_t>(picture.width) * 3 + 1) * static_cast<std::size_t>(picture.height);
  return raw + raw / 64 + 4096;
}

void append(png_structp png, png_bytep bytes, std::size_t size) {
  Sink& sink = *static_cast<Sink*>(png_get_io_ptr(png));
  if (size > sink.capacity - sink.size) png_error(png, "no memory");
  std::memcpy(sink.bytes + sink.size, bytes, size);
  sink.size += size;
}

void flush(png_structp) {}

// Instead of printing what has failed.
void fail(png_structp png, png_const_charp) {
  png_longjmp(png, 1);
}

void ignore(png_structp, png_const_charp) {}

void write_header(png_structp png, png_infop info, const PixelView& picture) {
  png_set_IHDR(png, info, static_cast<png_uint_32>(picture.width),
               static_cast<png_uint_32>(picture.height), 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  const auto density = static_cast<png_uint_32>(std::max(picture.pixels_per_metre, 0));
  if (density > 0) png_set_pHYs(png, info, density, density, PNG_RESOLUTION_METER);
  png_write_info(png, info);
}

void write_rows(png_structp png, const PixelView& picture, png_byte* row) {
  for (int y = 0; y < picture.height; ++y) {
    png_byte* byte = row;
    for (int x = 0; x < picture.width; ++x) {
      const std::uint32_t pixel = picture.row(y)[x];
      *byte++ = static_cast<png_byte>(pixel >> 16 & 0xFF);
      *byte++ = static_cast<png_byte>(pixel >> 8 & 0xFF);
      *byte++ = static_cast<png_byte>(pixel & 0xFF);
    }
    png_write_row(png, row);
  }
}

// Returns whether it succeeded. The library leaves by a jump where it fails, so nothing here has a
// destructor.
bool write_png(const PixelView& picture, png_byte* row, Sink& sink) {
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, fail, ignore);
  if (!png) return false;
  png_infop info = png_create_info_struct(png);
  if (!info || setjmp(png_jmpbuf(png)) != 0) {
    png_destroy_write_struct(&png, &info);
    return false;
  }
  png_set_write_fn(png, &sink, append, flush);
  write_header(png, info, picture);
  write_rows(png, picture, row);
  png_write_end(png, info);
  png_destroy_write_struct(&png, &info);
  return true;
}

}  // namespace

String png_bytes(const PixelView& picture) {
  if (!picture.pixels || picture.width <= 0 || picture.height <= 0) {
    throw Fault(FaultKind::kInvalidProcedureCall);
  }
  String row(static_cast<std::size_t>(picture.width) * 3, '\0');
  String bytes(largest_file(picture), '\0');
  Sink sink{bytes.data(), bytes.size(), 0};
  if (!write_png(picture, reinterpret_cast<png_byte*>(row.data()), sink)) {
    throw Fault(FaultKind::kOutOfMemory);
  }
  bytes.resize(sink.size);
  bytes.shrink_to_fit();
  return bytes;
}

void save_png(const PixelView& picture, const String& path) {
  write_whole_file(path, png_bytes(picture));
}

}  // namespace kurv
