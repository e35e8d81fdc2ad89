#include "fonts/font_face.h"

#include <ft2build.h>
#include FT_OUTLINE_H
#include <hb-ot.h>

#include <cmath>
#include <utility>

namespace kurv {
namespace {

// The largest size in pixels that the library takes.
constexpr double kMaxPixelSize = 32000;

// Of an upright letter that is made italic: 12 degrees.
constexpr FT_Matrix kSlant = {0x10000, 0x3666, 0, 0x10000};

// To 64ths of a pixel, as advances are.
double rounded(double length) {
  return std::floor(length * 64 + 0.5) / 64;
}

}  // namespace

Library open_library() {
  FT_Library library = nullptr;
  return Library(FT_Init_FreeType(&library) == 0 ? library : nullptr);
}

std::shared_ptr<FontFace> FontFace::open(FT_Library library, FontBytes bytes, unsigned index) {
  if (!library || !bytes) return nullptr;
  unsigned size = 0;
  const char* const data = hb_blob_get_data(bytes.get(), &size);
  FT_Face opened = nullptr;
  const FT_Error error =
      FT_New_Memory_Face(library, reinterpret_cast<const FT_Byte*>(data),
                         static_cast<FT_Long>(size), static_cast<FT_Long>(index), &opened);
  if (error != 0) return nullptr;
  Face face(opened);
  if (!FT_IS_SCALABLE(opened) || !FT_IS_SFNT(opened) || opened->units_per_EM == 0) return nullptr;
  return std::shared_ptr<FontFace>(new FontFace(std::move(bytes), std::move(face), index));
}

FontFace::FontFace(FontBytes bytes, Face face, unsigned index)
    : m_bytes(std::move(bytes)), m_face(std::move(face)) {
  const std::unique_ptr<hb_face_t, Release<hb_face_destroy>> shaping_face(
      hb_face_create(m_bytes.get(), index));
  m_shaping_font.reset(hb_font_create(shaping_face.get()));
  hb_ot_font_set_funcs(m_shaping_font.get());
}

bool FontFace::has(char32_t character) const {
  hb_codepoint_t glyph = 0;
  return hb_font_get_nominal_glyph(m_shaping_font.get(), character, &glyph) != 0;
}

String FontFace::family() const {
  return m_face->family_name ? m_face->family_name : "";
}

bool FontFace::is_bold() const {
  return (m_face->style_flags & FT_STYLE_FLAG_BOLD) != 0;
}

bool FontFace::is_italic() const {
  return (m_face->style_flags & FT_STYLE_FLAG_ITALIC) != 0;
}

double FontFace::ascent(int pixel_size) const {
  return rounded(1.0 * pixel_size * m_face->ascender / m_face->units_per_EM);
}

double FontFace::descent(int pixel_size) const {
  return rounded(-1.0 * pixel_size * m_face->descender / m_face->units_per_EM);
}

hb_font_t* FontFace::at_size(int pixel_size) {
  hb_font_set_scale(m_shaping_font.get(), pixel_size * 64, pixel_size * 64);
  return m_shaping_font.get();
}

FT_Outline* FontFace::outline(unsigned glyph, double pixel_size, Synthesis synthesis) {
  if (!(pixel_size > 0 && pixel_size <= kMaxPixelSize)) return nullptr;
  const auto size = static_cast<FT_F26Dot6>(std::lround(pixel_size * 64));
  if (FT_Set_Char_Size(m_face.get(), 0, size, 72, 72) != 0) return nullptr;
  if (FT_Load_Glyph(m_face.get(), glyph, FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP) != 0) {
    return nullptr;
  }
  if (m_face->glyph->format != FT_GLYPH_FORMAT_OUTLINE) return nullptr;
  FT_Outline* const outline = &m_face->glyph->outline;
  if (synthesis.bold) FT_Outline_Embolden(outline, size / 24);
  if (synthesis.italic) FT_Outline_Transform(outline, &kSlant);
  return outline;
}

}  // namespace kurv
