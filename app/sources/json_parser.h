// The values of a JSON file, one by one.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kurv::app {

// Takes the values of a file in their order. Whatever it throws ends the parsing.
class JsonHandler {
 public:
  JsonHandler() = default;
  JsonHandler(const JsonHandler&) = delete;
  JsonHandler& operator=(const JsonHandler&) = delete;
  virtual ~JsonHandler() = default;

  virtual void begin_object() = 0;
  virtual void key(std::string_view name) = 0;
  virtual void end_object() = 0;
  virtual void begin_array() = 0;
  virtual void end_array() = 0;
  // A string, or a number, Boolean or null as the text of a cell; null is an empty text.
  virtual void scalar(std::string_view text) = 0;
};

// Texts hold no NUL: it becomes a blank. Values may follow each other, as in a file with one object
// a line. Numbers are those of JSON, and NaN and Infinity; one that is too large for a double is
// infinite. Returns how much of the text was parsed: all of it, or all but an incomplete last line.
// Throws UserError, which begins with `path`, for what is no JSON otherwise.
std::size_t parse_json(std::string_view text, const std::string& path, JsonHandler& handler);

// The number of the line in which the character at `offset` is, from 1 on.
std::size_t line_of(std::string_view text, std::size_t offset);

}  // namespace kurv::app
