// Which font a character is drawn with.
#pragma once

#include <map>
#include <memory>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include <KurvGraph/plot_surface.h>

#include "fonts/font_face.h"
#include "fonts/system_fonts.h"

namespace kurv {

// A face as it is used for a wanted style.
struct StyledFace {
  FontFace* face = nullptr;  // of the collection; null where there is no font
  Synthesis synthesis;

  friend bool operator==(const StyledFace&, const StyledFace&) = default;
};

class FontCollection {
 public:
  explicit FontCollection(bool uses_system_fonts);

  bool add(FontBytes bytes);

  // The face that the font's name and style mean; the size does not matter.
  StyledFace main_face(const Font& font);
  // The main face, or another one that has the character. The main face where none has it.
  StyledFace face_for(const Font& font, StyledFace main, char32_t character);

  FT_Library freetype() const { return m_library.get(); }

 private:
  StyledFace added_face(const Font& font, char32_t character) const;
  StyledFace system_face(const Font& font, char32_t character);
  StyledFace open(const SystemFont& font);

  using Style = std::tuple<String, bool, bool>;
  bool m_uses_system_fonts;
  Library m_library;
  std::vector<std::shared_ptr<FontFace>> m_added;
  std::map<std::pair<String, unsigned>, std::shared_ptr<FontFace>> m_opened;  // null: unusable
  std::map<Style, std::vector<SystemFont>> m_offered;
  // Found for characters that main faces lack; null where no face has the character.
  std::map<std::pair<Style, char32_t>, StyledFace> m_others;
};

}  // namespace kurv
