// Bytes that come piece by piece, as whole lines.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "app/csv/text_encoding.h"

namespace kurv::app {

class LineBuffer {
 public:
  // Without an encoding, it is found out from the first bytes. `name` begins the messages.
  LineBuffer(std::optional<Encoding> encoding, std::string name)
      : m_encoding(encoding), m_name(std::move(name)) {}

  // Throws UserError for bytes that are no text, and for a line of more than 64 MiB.
  void append(std::string_view bytes);
  // The lines that are complete, in UTF-8; empty where there are none.
  std::string take_lines();
  // What is left when no more bytes come.
  std::string take_rest();
  // Forgets the line that is not complete.
  void clear_rest();

 private:
  void find_encoding(bool is_all);
  void check_text(std::string_view bytes) const;
  std::size_t unit_size() const;
  std::string decoded(std::size_t size);

  std::optional<Encoding> m_encoding;
  std::string m_name;
  std::string m_bytes;
  // Where the last complete line ends, and up to where its end has been searched for.
  std::size_t m_complete = 0;
  std::size_t m_searched = 0;
};

}  // namespace kurv::app
