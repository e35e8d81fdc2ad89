// The encodings of text files.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kurv::app {

enum class Encoding { kUtf8, kUtf16Le, kUtf16Be, kUtf32Le, kUtf32Be, kCp1252, kLatin1 };

// As in "UTF-16LE" and "code page 1252".
std::string_view encoding_name(Encoding encoding);
// By its usual names in any letter case, such as "utf8", "UTF-16LE", "cp1252" or "latin1".
std::optional<Encoding> encoding_named(std::string_view name);

// By the byte order mark, or by where the NUL bytes are in the text's beginning. Nothing where
// there are NUL bytes and none of these encodings explains them. Otherwise UTF-8, which decode()
// corrects.
std::optional<Encoding> encoding_of_beginning(std::string_view bytes);

struct DecodedText {
  std::string text;  // UTF-8
  Encoding encoding;
  // The first line, from 1 on, that is not UTF-8 although others are and have letters beyond ASCII;
  // 0 without one. Such lines are read as code page 1252.
  std::size_t first_foreign_line = 0;
};

// The bytes as UTF-8, without a byte order mark. Text that is said to be UTF-8 and is not is read
// as code page 1252. Units that are no characters become U+FFFD.
DecodedText decode(std::string bytes, Encoding encoding);

}  // namespace kurv::app
