#include "fonts/system_fonts.h"

#include <fontconfig/fontconfig.h>

#include <memory>
#include <string_view>

namespace kurv {
namespace {

using FontSet = std::unique_ptr<FcFontSet, Release<FcFontSetDestroy>>;
using Pattern = std::unique_ptr<FcPattern, Release<FcPatternDestroy>>;

void add_family(FcPattern* pattern, const char* name) {
  FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(name));
}

// The families that Qt's texts have, in the same order.
Pattern pattern_of(const Font& font) {
  Pattern pattern(FcPatternCreate());
  if (!pattern) return pattern;
  if (!font.FontName.empty()) add_family(pattern.get(), font.FontName.c_str());
  for (const char* family : {"Liberation Sans", "DejaVu Sans", "sans-serif"}) {
    add_family(pattern.get(), family);
  }
  FcPatternAddInteger(pattern.get(), FC_WEIGHT, font.FontBold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
  FcPatternAddInteger(pattern.get(), FC_SLANT, font.FontItalic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
  return pattern;
}

bool is_at_least(const FcPattern* pattern, const char* object, int value) {
  int found = value;
  FcPatternGetInteger(pattern, object, 0, &found);
  return found >= value;
}

bool is_true(const FcPattern* pattern, const char* object) {
  FcBool found = FcFalse;
  return FcPatternGetBool(pattern, object, 0, &found) == FcResultMatch && found == FcTrue;
}

// Of the formats that can be shaped. Of a variable font the instances are usable.
bool is_usable(const FcPattern* pattern) {
  FcChar8* format = nullptr;
  if (FcPatternGetString(pattern, FC_FONTFORMAT, 0, &format) != FcResultMatch) return false;
  const std::string_view name = reinterpret_cast<const char*>(format);
  return (name == "TrueType" || name == "CFF") && is_true(pattern, FC_SCALABLE) &&
         !is_true(pattern, FC_COLOR) && !is_true(pattern, FC_VARIABLE);
}

SystemFont described(FcPattern* pattern, const Font& font) {
  FcChar8* path = nullptr;
  int index = 0;
  FcCharSet* characters = nullptr;
  FcPatternGetString(pattern, FC_FILE, 0, &path);
  FcPatternGetInteger(pattern, FC_INDEX, 0, &index);
  FcPatternGetCharSet(pattern, FC_CHARSET, 0, &characters);
  FcPatternReference(pattern);
  const std::shared_ptr<FcPattern> owner(pattern, FcPatternDestroy);
  return {path ? reinterpret_cast<const char*>(path) : "",
          // The upper half is the number of an instance of a variable font.
          static_cast<unsigned>(index) & 0xFFFF,
          {font.FontBold && !is_at_least(pattern, FC_WEIGHT, FC_WEIGHT_DEMIBOLD),
           font.FontItalic && !is_at_least(pattern, FC_SLANT, FC_SLANT_ITALIC)},
          [owner, characters](char32_t character) {
            return characters && FcCharSetHasChar(characters, character) == FcTrue;
          }};
}

}  // namespace

std::vector<SystemFont> system_fonts(const Font& font) {
  std::vector<SystemFont> fonts;
  const Pattern wanted = pattern_of(font);
  if (!wanted) return fonts;
  FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
  FcDefaultSubstitute(wanted.get());
  FcResult result = FcResultNoMatch;
  const FontSet sorted(FcFontSort(nullptr, wanted.get(), FcFalse, nullptr, &result));
  if (!sorted) return fonts;
  for (int i = 0; i < sorted->nfont; ++i) {
    FcPattern* const pattern = sorted->fonts[i];
    if (is_usable(pattern)) fonts.push_back(described(pattern, font));
  }
  return fonts;
}

}  // namespace kurv
