#include "fonts/system_fonts.h"

#include <fontconfig/fontconfig.h>

#include <memory>

namespace kurv {
namespace {

using Pattern = std::unique_ptr<FcPattern, Release<FcPatternDestroy>>;
using Characters = std::unique_ptr<FcCharSet, Release<FcCharSetDestroy>>;

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
  FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
  FcPatternAddBool(pattern.get(), FC_OUTLINE, FcTrue);
  FcPatternAddBool(pattern.get(), FC_COLOR, FcFalse);
  FcPatternAddBool(pattern.get(), FC_VARIABLE, FcFalse);
  for (const char* format : {"TrueType", "CFF"}) {
    FcPatternAddString(pattern.get(), FC_FONTFORMAT, reinterpret_cast<const FcChar8*>(format));
  }
  return pattern;
}

bool is_at_least(const FcPattern* pattern, const char* object, int value) {
  int found = value;
  FcPatternGetInteger(pattern, object, 0, &found);
  return found >= value;
}

Pattern best_match(FcPattern* wanted) {
  if (!wanted) return nullptr;
  FcConfigSubstitute(nullptr, wanted, FcMatchPattern);
  FcDefaultSubstitute(wanted);
  FcResult result = FcResultNoMatch;
  return Pattern(FcFontMatch(nullptr, wanted, &result));
}

std::optional<SystemFont> file_of(const FcPattern* pattern, const Font& font) {
  FcChar8* path = nullptr;
  int index = 0;
  if (!pattern || FcPatternGetString(pattern, FC_FILE, 0, &path) != FcResultMatch) {
    return std::nullopt;
  }
  FcPatternGetInteger(pattern, FC_INDEX, 0, &index);
  // The upper half is the number of an instance of a variable font.
  return SystemFont{reinterpret_cast<const char*>(path),
                    static_cast<unsigned>(index) & 0xFFFF,
                    {font.FontBold && !is_at_least(pattern, FC_WEIGHT, FC_WEIGHT_DEMIBOLD),
                     font.FontItalic && !is_at_least(pattern, FC_SLANT, FC_SLANT_ITALIC)}};
}

}  // namespace

std::optional<SystemFont> system_font(const Font& font) {
  const Pattern wanted = pattern_of(font);
  return file_of(best_match(wanted.get()).get(), font);
}

std::optional<SystemFont> system_font_with(const Font& font, char32_t character) {
  const Pattern wanted = pattern_of(font);
  const Characters characters(FcCharSetCreate());
  if (!wanted || !characters) return std::nullopt;
  FcCharSetAddChar(characters.get(), character);
  FcPatternAddCharSet(wanted.get(), FC_CHARSET, characters.get());
  const Pattern found = best_match(wanted.get());
  FcCharSet* available = nullptr;
  if (!found || FcPatternGetCharSet(found.get(), FC_CHARSET, 0, &available) != FcResultMatch ||
      FcCharSetHasChar(available, character) == FcFalse) {
    return std::nullopt;
  }
  return file_of(found.get(), font);
}

}  // namespace kurv
