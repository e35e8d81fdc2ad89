#include <cmath>
#include <string_view>

#include "pixels/pixel_picture_state.h"

namespace kurv {

void PixelPicture::Print(Single CurrentX, Single CurrentY, std::string_view text) {
  if (std::isnan(CurrentX) || std::isnan(CurrentY)) return;
  m_state->flush();
  const Resolution& resolution = m_state->resolution;
  m_state->text_cache().draw(
      m_state->canvas(), {m_state->font, pixel_of(m_state->fore_color), {CurrentX, CurrentY}, text},
      {resolution.width, resolution.height, resolution.twips_per_pixel}, *m_state->texts);
}

Double PixelPicture::TextWidth(std::string_view text) const {
  return m_state->texts->text_width(m_state->font, text);
}

Double PixelPicture::TextHeight(std::string_view text) const {
  return m_state->texts->text_height(m_state->font, text);
}

const Font& PixelPicture::font() const {
  return m_state->font;
}

void PixelPicture::set_font(const Font& font) {
  m_state->font = font;
}

int PixelPicture::ForeColor() const {
  return m_state->fore_color;
}

void PixelPicture::set_ForeColor(int colour) {
  m_state->fore_color = colour;
}

}  // namespace kurv
