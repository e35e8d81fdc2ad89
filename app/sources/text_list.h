// Many short texts in one piece of memory.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kurv::app {

class TextList {
 public:
  void add(std::string_view text) {
    m_text += text;
    m_ends.push_back(m_text.size());
  }
  std::size_t size() const { return m_ends.size(); }
  std::string_view operator[](std::size_t index) const {
    const std::size_t begin = index == 0 ? 0 : m_ends[index - 1];
    return std::string_view(m_text).substr(begin, m_ends[index] - begin);
  }

 private:
  std::string m_text;
  std::vector<std::size_t> m_ends;
};

}  // namespace kurv::app
