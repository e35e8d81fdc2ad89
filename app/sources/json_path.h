// The names on the way from the value of a JSON file to a value in it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kurv::app {

// Where a handler is in the file. Elements of arrays are numbered from 1.
class JsonPath {
 public:
  // Before each value: an element of an array gets its number as its name, the value of a key has
  // the key.
  void begin_value() {
    if (!m_levels.empty() && m_levels.back().is_array) {
      set_name(std::to_string(++m_levels.back().elements));
    }
  }
  void set_name(std::string_view name) {
    m_text.resize(m_levels.back().length);
    if (m_levels.size() > 1) m_text += '.';
    m_text += name;
  }
  void enter(bool is_array) {
    m_levels.push_back({is_array, 0, m_text.size()});
    m_arrays += is_array ? 1 : 0;
  }
  void leave() {
    m_arrays -= m_levels.back().is_array ? 1 : 0;
    m_text.resize(m_levels.back().length);
    m_levels.pop_back();
  }

  // How many objects and arrays are open, and how many arrays.
  std::size_t depth() const { return m_levels.size(); }
  std::size_t arrays() const { return m_arrays; }
  const std::string& text() const { return m_text; }

 private:
  struct Level {
    bool is_array;
    std::size_t elements;
    std::size_t length;  // of the path without the names in this level
  };

  std::vector<Level> m_levels;
  std::size_t m_arrays = 0;
  std::string m_text;
};

}  // namespace kurv::app
