// The files in tests/tables/sources.
#pragma once

#include <fstream>
#include <iterator>
#include <string>

namespace kurv::app::test {

inline std::string source_path(const std::string& name) {
  return KURV_SOURCE_DIR "/tests/tables/sources/" + name;
}

inline std::string source_bytes(const std::string& name) {
  std::ifstream file(source_path(name), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace kurv::app::test
