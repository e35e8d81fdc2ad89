// One scalable font, opened by the libraries that shape texts and draw letters.
#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H
#include <hb.h>

#include <functional>
#include <memory>

#include <KurvGraph/values.h>

namespace kurv {

template <auto release>
struct Release {
  template <typename T>
  void operator()(T* object) const {
    release(object);
  }
};
using Library = std::unique_ptr<FT_LibraryRec_, Release<FT_Done_FreeType>>;
using FontBytes = std::unique_ptr<hb_blob_t, Release<hb_blob_destroy>>;

// Null where there is no memory.
Library open_library();

// Changes of a face for a style that its family lacks.
struct Synthesis {
  bool bold = false;
  bool italic = false;

  friend bool operator==(const Synthesis&, const Synthesis&) = default;
};

class FontFace {
 public:
  // Null where the bytes are no scalable font. The library must outlive the face.
  static std::shared_ptr<FontFace> open(FT_Library library, FontBytes bytes, unsigned index);

  bool has(char32_t character) const;
  String family() const;
  bool is_bold() const;
  bool is_italic() const;

  // From the baseline, in pixels of a font of that size.
  double ascent(int pixel_size) const;
  double descent(int pixel_size) const;

  // For shaping: lengths are 64ths of a pixel of a font of that size. Valid until the next call.
  hb_font_t* at_size(int pixel_size);
  // The extra advance of a letter that is made bold, in the same unit.
  static int bold_advance(int pixel_size) { return pixel_size * 64 / 24; }

  // The outline of a letter of that size in pixels, in 64ths of a pixel, y upwards. Null where
  // there is none. Valid until the next call.
  FT_Outline* outline(unsigned glyph, double pixel_size, Synthesis synthesis);

 private:
  using Face = std::unique_ptr<FT_FaceRec_, Release<FT_Done_Face>>;
  using ShapingFont = std::unique_ptr<hb_font_t, Release<hb_font_destroy>>;
  FontFace(FontBytes bytes, Face face, unsigned index);

  FontBytes m_bytes;
  Face m_face;
  ShapingFont m_shaping_font;
};

}  // namespace kurv
