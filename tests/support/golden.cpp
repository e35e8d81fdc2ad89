#include "tests/support/golden.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace kurv::test {

void expect_golden(const std::string& name, const std::string& text) {
  expect_page("tests/golden/" + name, text);
}

void expect_page(const std::string& from_root, const std::string& text) {
  const std::string path = std::string(KURV_SOURCE_DIR) + '/' + from_root;
  if (const char* update = std::getenv("UPDATE_GOLDENS"); update && *update == '1') {
    std::ofstream(path, std::ios::binary) << text;
    return;
  }
  std::ifstream file(path, std::ios::binary);
  ASSERT_TRUE(file) << "there is no golden " << path << "; UPDATE_GOLDENS=1 writes it";
  const std::string expected{std::istreambuf_iterator<char>(file), {}};
  EXPECT_EQ(text, expected) << "differs from " << path;
}

}  // namespace kurv::test
