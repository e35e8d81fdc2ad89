#include "fonts/shaping.h"

#include <hb.h>

#include <algorithm>
#include <cstdint>
#include <memory>

#include "fonts/characters.h"

namespace kurv {
namespace {

using Buffer = std::unique_ptr<hb_buffer_t, Release<hb_buffer_destroy>>;

// Characters that are shaped together.
struct Run {
  std::size_t begin = 0;
  std::size_t end = 0;
  StyledFace face;
  hb_script_t script = HB_SCRIPT_COMMON;
  std::uint8_t level = 0;
};

hb_script_t script_of(char32_t character) {
  return hb_unicode_script(hb_unicode_funcs_get_default(), character);
}

bool is_real(hb_script_t script) {
  return script != HB_SCRIPT_COMMON && script != HB_SCRIPT_INHERITED && script != HB_SCRIPT_UNKNOWN;
}

// Characters that all scripts share belong to the one before them, at the start to the one after.
std::vector<hb_script_t> scripts_of(const std::u32string& text) {
  std::vector<hb_script_t> scripts(text.size());
  std::transform(text.begin(), text.end(), scripts.begin(), script_of);
  const auto first = std::find_if(scripts.begin(), scripts.end(), is_real);
  hb_script_t script = first == scripts.end() ? HB_SCRIPT_LATIN : *first;
  for (hb_script_t& each : scripts) {
    if (is_real(each)) script = each;
    each = script;
  }
  return scripts;
}

bool stays_with_the_one_before(char32_t character) {
  switch (hb_unicode_general_category(hb_unicode_funcs_get_default(), character)) {
    case HB_UNICODE_GENERAL_CATEGORY_NON_SPACING_MARK:
    case HB_UNICODE_GENERAL_CATEGORY_SPACING_MARK:
    case HB_UNICODE_GENERAL_CATEGORY_ENCLOSING_MARK:
      return true;
    default:
      return false;
  }
}

// Drawn with whatever font is around it.
bool is_invisible(char32_t character) {
  return hb_unicode_general_category(hb_unicode_funcs_get_default(), character) ==
         HB_UNICODE_GENERAL_CATEGORY_FORMAT;
}

std::vector<Run> runs_of(const std::u32string& text, const Font& font, StyledFace main,
                         FontCollection& fonts) {
  const std::vector<std::uint8_t> levels = levels_of(text);
  const std::vector<hb_script_t> scripts = scripts_of(text);
  std::vector<Run> runs;
  StyledFace face = main;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool keeps_face = is_invisible(text[i]) || (i > 0 && stays_with_the_one_before(text[i]) &&
                                                      face.face->has(text[i]));
    if (!keeps_face) face = fonts.face_for(font, main, text[i]);
    if (runs.empty() || runs.back().face != face || runs.back().script != scripts[i] ||
        runs.back().level != levels[i]) {
      runs.push_back({i, i, face, scripts[i], levels[i]});
    }
    runs.back().end = i + 1;
  }
  return runs;
}

// From the highest level down, everything of that level or above it is reversed.
void put_in_visual_order(std::vector<Run>& runs) {
  for (const std::uint8_t level : {std::uint8_t{2}, std::uint8_t{1}}) {
    const auto is_below = [level](const Run& run) { return run.level < level; };
    for (auto begin = runs.begin(); begin != runs.end();) {
      begin = std::find_if_not(begin, runs.end(), is_below);
      const auto end = std::find_if(begin, runs.end(), is_below);
      std::reverse(begin, end);
      begin = end;
    }
  }
}

void append_run(ShapedPiece& piece, const Run& run, int pixel_size, hb_buffer_t* shaped) {
  constexpr double kUnitsPerPixel = 64;
  unsigned count = 0;
  const hb_glyph_info_t* const infos = hb_buffer_get_glyph_infos(shaped, &count);
  const hb_glyph_position_t* const positions = hb_buffer_get_glyph_positions(shaped, &count);
  const int bold_advance = run.face.synthesis.bold ? FontFace::bold_advance(pixel_size) : 0;
  for (unsigned i = 0; i < count; ++i) {
    const hb_glyph_position_t& position = positions[i];
    piece.glyphs.push_back({run.face, infos[i].codepoint,
                            piece.width + position.x_offset / kUnitsPerPixel,
                            -position.y_offset / kUnitsPerPixel});
    piece.width +=
        (position.x_advance + (position.x_advance > 0 ? bold_advance : 0)) / kUnitsPerPixel;
  }
}

}  // namespace

ShapedPiece shape(const std::u32string& text, const Font& font, StyledFace main, int pixel_size,
                  FontCollection& fonts) {
  const std::vector<std::uint32_t> characters(text.begin(), text.end());
  std::vector<Run> runs = runs_of(text, font, main, fonts);
  put_in_visual_order(runs);
  const Buffer buffer(hb_buffer_create());
  ShapedPiece piece;
  for (const Run& run : runs) {
    hb_buffer_clear_contents(buffer.get());
    hb_buffer_add_codepoints(buffer.get(), characters.data(), static_cast<int>(characters.size()),
                             static_cast<unsigned>(run.begin),
                             static_cast<int>(run.end - run.begin));
    hb_buffer_set_direction(buffer.get(), run.level % 2 == 1 ? HB_DIRECTION_RTL : HB_DIRECTION_LTR);
    hb_buffer_set_script(buffer.get(), run.script);
    hb_shape(run.face.face->at_size(pixel_size), buffer.get(), nullptr, 0);
    append_run(piece, run, pixel_size, buffer.get());
  }
  return piece;
}

}  // namespace kurv
