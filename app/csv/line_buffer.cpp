#include "app/csv/line_buffer.h"

#include <algorithm>

#include "app/base/user_error.h"
#include "app/csv/csv_text.h"

namespace kurv::app {

namespace {

constexpr std::size_t kLongestLine = std::size_t{64} << 20;
// Enough to see by the NUL bytes which encoding it is.
constexpr std::size_t kBeginning = 64;

bool is_little_endian(Encoding encoding) {
  return encoding == Encoding::kUtf16Le || encoding == Encoding::kUtf32Le;
}

}  // namespace

std::size_t LineBuffer::unit_size() const {
  switch (*m_encoding) {
    case Encoding::kUtf16Le:
    case Encoding::kUtf16Be:
      return 2;
    case Encoding::kUtf32Le:
    case Encoding::kUtf32Be:
      return 4;
    case Encoding::kUtf8:
    case Encoding::kCp1252:
    case Encoding::kLatin1:
      break;
  }
  return 1;
}

void LineBuffer::find_encoding(bool is_all) {
  if (m_encoding) return;
  const bool has_line = m_bytes.find('\n') != std::string::npos;
  if (!is_all && !has_line && m_bytes.size() < kBeginning) return;
  m_encoding = encoding_of_beginning(m_bytes);
  if (!m_encoding) throw no_text(m_name);
  check_text(m_bytes);
}

void LineBuffer::check_text(std::string_view bytes) const {
  if (unit_size() == 1 && bytes.find('\0') != std::string_view::npos) throw no_text(m_name);
}

void LineBuffer::append(std::string_view bytes) {
  m_bytes += bytes;
  if (m_encoding) {
    check_text(bytes);
  } else {
    find_encoding(false);
  }
  if (!m_encoding) return;
  const std::size_t unit = unit_size();
  const std::size_t end = m_bytes.size() / unit * unit;
  const std::size_t low = is_little_endian(*m_encoding) ? 0 : unit - 1;
  for (std::size_t at = end; at > m_searched; at -= unit) {
    std::string_view character(m_bytes.data() + at - unit, unit);
    if (character[low] != '\n') continue;
    if (std::count(character.begin(), character.end(), '\0') + 1 !=
        static_cast<std::ptrdiff_t>(unit)) {
      continue;
    }
    m_complete = at;
    break;
  }
  m_searched = end;
  if (m_bytes.size() - m_complete <= kLongestLine) return;
  throw UserError(m_name +
                  " has a line of more than 64 MiB; it needs rows, each of them on a line.");
}

// Blanks and empty lines alone are no error here.
std::string LineBuffer::decoded(std::size_t size) {
  if (size == 0) return {};
  std::string bytes = m_bytes.substr(0, size);
  m_bytes.erase(0, size);
  m_complete = 0;
  m_searched = m_bytes.size() / unit_size() * unit_size();
  return decode(std::move(bytes), *m_encoding).text;
}

std::string LineBuffer::take_lines() {
  return decoded(m_complete);
}

std::string LineBuffer::take_rest() {
  find_encoding(true);
  return decoded(m_bytes.size());
}

void LineBuffer::clear_rest() {
  m_bytes.clear();
  m_complete = 0;
  m_searched = 0;
}

}  // namespace kurv::app
