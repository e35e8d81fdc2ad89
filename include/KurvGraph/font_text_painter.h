/// @file
/// Texts of a PixelPicture without a toolkit: with the fonts of the system, or with fonts that the
/// program brings along.
///
/// Texts are shaped: kerning, ligatures, combining marks, Arabic and Indic scripts. A character
/// that the font lacks is taken from another one. In a line with two directions each run has its
/// own, and runs are in the order of their levels; explicit directional controls have no effect,
/// and brackets are not paired. Letters are grey, never coloured; fonts of bitmaps are not used.
#pragma once

#include <memory>
#include <string_view>

#include <KurvGraph/text_painter.h>

namespace kurv {

/// Measures and paints texts with the fonts of the system, or with added ones.
///
/// @copydetails font_text_painter.h
class KURV_EXPORT FontTextPainter final : public TextPainter {
 public:
  /// Where its fonts come from.
  enum class Source {
    kSystem,     ///< the fonts of the system, after those that are added
    kAddedOnly,  ///< on a machine without fonts, or where a picture has to be the same everywhere
  };

  /// A painter that has no added fonts yet.
  explicit FontTextPainter(Source source = Source::kSystem);
  ~FontTextPainter() override;

  /// Adds a scalable font of the format TrueType or OpenType, of a collection the first one. It is
  /// used for the texts of its family, and for others where there is no better one. Returns false
  /// for anything else, which changes nothing.
  bool add_font_file(const String& path);
  /// Adds the font that a file of these bytes contains. Otherwise as add_font_file().
  bool add_font(std::string_view bytes);

  /// The width in twips; without any font an estimate, so that a graph keeps its shape. Texts then
  /// draw nothing.
  Double text_width(const Font& font, std::string_view text) override;
  /// The height in twips; without any font an estimate, as for the width.
  Double text_height(const Font& font, std::string_view text) override;
  PixelBox bounds(const PlacedText& text, const PictureSize& picture) override;
  void paint(const PlacedText& text, const PictureSize& picture, const TextTarget& target) override;
  int generation() override;

 private:
  struct KURV_HIDDEN State;
  std::unique_ptr<State> m_state;
};

}  // namespace kurv
