#include "fonts/font_collection.h"

#include <utility>

#include <KurvGraph/text.h>

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

StyledFace FontCollection::open(const SystemFont& font) {
  const auto [known, is_new] = m_opened.try_emplace({font.path, font.index});
  if (is_new) {
    known->second =
        FontFace::open(m_library.get(),
                       FontBytes(hb_blob_create_from_file_or_fail(font.path.c_str())), font.index);
  }
  return known->second ? StyledFace{known->second.get(), font.synthesis} : StyledFace{};
}

StyledFace FontCollection::system_face(const Font& font, char32_t character) {
  if (!m_uses_system_fonts) return {};
  constexpr std::size_t kMaxStyles = 50;
  const Style style{font.FontName, font.FontBold, font.FontItalic};
  if (m_offered.size() >= kMaxStyles && !m_offered.contains(style)) m_offered.clear();
  const auto [offered, is_new] = m_offered.try_emplace(style);
  if (is_new) offered->second = system_fonts(font);
  for (const SystemFont& each : offered->second) {
    if (character != kAnyCharacter && !each.has(character)) continue;
    const StyledFace opened = open(each);
    if (opened.face && (character == kAnyCharacter || opened.face->has(character))) return opened;
  }
  return {};
}

StyledFace FontCollection::main_face(const Font& font) {
  const StyledFace added = added_face(font, kAnyCharacter);
  if (added.face && equals_ignoring_case(added.face->family(), font.FontName)) return added;
  const StyledFace found = system_face(font, kAnyCharacter);
  return found.face ? found : added;
}

StyledFace FontCollection::face_for(const Font& font, StyledFace main, char32_t character) {
  if (!main.face || main.face->has(character)) return main;
  const std::pair key{Style{font.FontName, font.FontBold, font.FontItalic}, character};
  auto known = m_others.find(key);
  if (known == m_others.end()) {
    // A text may have any number of characters that the main face lacks.
    constexpr std::size_t kMaxOthers = 5000;
    if (m_others.size() >= kMaxOthers) m_others.clear();
    const StyledFace added = added_face(font, character);
    known = m_others.emplace(key, added.face ? added : system_face(font, character)).first;
  }
  return known->second.face ? known->second : main;
}

}  // namespace kurv
