// The characters of a line: decoded, and with the direction in which they run.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace kurv {

// Removes characters from the front of the line and returns them: as many as 200 UTF-16 units are,
// so that the work for what is visible of a long line is bounded. Control characters become blanks,
// bytes that are no UTF-8 the replacement character.
std::u32string take_piece(std::string_view& line);

// The embedding level of each character: even ones run to the right, odd ones to the left. A subset
// of the Unicode bidirectional algorithm: strong characters, numbers with their separators, and
// neutral ones between them.
std::vector<std::uint8_t> levels_of(const std::u32string& text);

}  // namespace kurv
