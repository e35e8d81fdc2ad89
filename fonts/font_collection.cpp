#include "fonts/font_collection.h"

#include <optional>
#include <utility>

#include <KurvGraph/text.h>

#include "fonts/system_fonts.h"

namespace kurv {
namespace {

constexpr char32_t kAnyCharacter = 0;

StyledFace styled(FontFace& face, const Font& font) {
  return {&face, {font.FontBold && !face.is_bold(), font.FontItalic && !face.is_italic()}};
}

// How similar a face is to what is wanted; higher is better.
int similarity(const FontFace& face, const Font& font) {
  return (equals_ignoring_case(face.family(), font.FontName) ? 4 : 0) +
         (face.is_bold() == font.FontBold ? 2 : 0) + (face.is_italic() == font.FontItalic ? 1 : 0);
}

}  // namespace

FontCollection::FontCollection(bool uses_system_fonts)
    : m_uses_system_fonts(uses_system_fonts), m_library(open_library()) {}

bool FontCollection::add(FontBytes bytes) {
  std::shared_ptr<FontFace> face = FontFace::open(m_library.get(), std::move(bytes), 0);
  if (!face) return false;
  m_added.push_back(std::move(face));
  m_others.clear();
  return true;
}

StyledFace FontCollection::added_face(const Font& font, char32_t character) const {
  FontFace* best = nullptr;
  for (const std::shared_ptr<FontFace>& face : m_added) {
    if (character != kAnyCharacter && !face->has(character)) continue;
    if (!best || similarity(*face, font) > similarity(*best, font)) best = face.get();
  }
  return best ? styled(*best, font) : StyledFace{};
}

StyledFace FontCollection::open(const String& path, unsigned index, Synthesis synthesis) {
  const auto [known, is_new] = m_opened.try_emplace({path, index});
  if (is_new) {
    known->second = FontFace::open(
        m_library.get(), FontBytes(hb_blob_create_from_file_or_fail(path.c_str())), index);
  }
  return known->second ? StyledFace{known->second.get(), synthesis} : StyledFace{};
}

StyledFace FontCollection::main_face(const Font& font) {
  const StyledFace added = added_face(font, kAnyCharacter);
  if (added.face && equals_ignoring_case(added.face->family(), font.FontName)) return added;
  if (m_uses_system_fonts) {
    if (const std::optional<SystemFont> found = system_font(font)) {
      const StyledFace opened = open(found->path, found->index, found->synthesis);
      if (opened.face) return opened;
    }
  }
  return added;
}

StyledFace FontCollection::face_for(const Font& font, StyledFace main, char32_t character) {
  if (!main.face || main.face->has(character)) return main;
  const Style style{font.FontName, font.FontBold, font.FontItalic, character};
  const auto known = m_others.find(style);
  if (known != m_others.end()) return known->second.face ? known->second : main;
  // A text may have any number of characters that no font has.
  constexpr std::size_t kMaxOthers = 5000;
  if (m_others.size() >= kMaxOthers) m_others.clear();
  const StyledFace other = other_face(font, character);
  m_others.emplace(style, other);
  return other.face ? other : main;
}

StyledFace FontCollection::other_face(const Font& font, char32_t character) {
  const StyledFace added = added_face(font, character);
  if (added.face || !m_uses_system_fonts) return added;
  const std::optional<SystemFont> found = system_font_with(font, character);
  if (!found) return {};
  const StyledFace opened = open(found->path, found->index, found->synthesis);
  return opened.face && opened.face->has(character) ? opened : StyledFace{};
}

}  // namespace kurv
