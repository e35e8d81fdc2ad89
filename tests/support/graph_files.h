// Files for the tests: a folder of their own, whole texts in and out, and a small graph file.
#pragma once

#include <KurvGraph/fault.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/test_host.h"

namespace kurv::test {

class GraphFileTest : public testing::Test {
 protected:
  // Writable by every user, so that a test can run as another user than root.
  GraphFileTest() {
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    folder = std::filesystem::temp_directory_path() /
             ("kurv_io_" + std::string(test.name()) + "_" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    std::filesystem::permissions(folder, std::filesystem::perms::all);
  }
  ~GraphFileTest() override { std::filesystem::remove_all(folder); }

  std::string path(const std::string& name) const { return (folder / name).string(); }
  std::string write(const std::string& name, std::string_view bytes) const {
    // Removed first: some file systems flush a file to the disk that is truncated and written
    // again.
    std::filesystem::remove(path(name));
    std::ofstream(path(name), std::ios::binary) << bytes;
    return path(name);
  }
  std::string read(const std::string& name) const {
    std::ifstream file(path(name), std::ios::binary);
    EXPECT_TRUE(file) << name;
    return std::string{std::istreambuf_iterator<char>(file), {}};
  }
  bool exists(const std::string& name) const { return std::filesystem::exists(path(name)); }
  // The file's lines, which all have to end in CR LF.
  std::vector<std::string> read_lines(const std::string& name) const {
    std::vector<std::string> lines;
    const std::string text = read(name);
    for (std::size_t begin = 0; begin < text.size();) {
      const std::size_t end = text.find("\r\n", begin);
      EXPECT_NE(end, text.npos) << "the last line has no end";
      if (end == text.npos) break;
      lines.push_back(text.substr(begin, end - begin));
      begin = end + 2;
    }
    return lines;
  }

  std::filesystem::path folder;
};

inline std::string joined(const std::vector<std::string>& lines, const char* line_end = "\r\n") {
  std::string text;
  for (const std::string& line : lines) text += line + line_end;
  return text;
}

// Three points of one curve, and one function curve. Line 1 is element 0.
inline std::vector<std::string> sample_lines() {
  return {"QXPLOT/V500//1E",
          "Demo",
          "3",
          "1",
          "1",  // 5
          "Demo",
          "Sub",
          "8",
          "3",
          "2",  // 10
          " 500 ",
          " 810 ",
          " 300 ",
          " 600 ",  // 14
          " 120 ",
          " 2400 ",
          " 420 ",
          " 2401 ",
          " 610 ",
          " 5200 ",
          " 4800 ",
          " 7200 ",  // 22
          " .5 ",
          " 10 ",
          "-1 ",
          " 3.25 ",
          "0.000",
          "0.0",  // 28
          "True",
          "False",
          "Arial",
          " 9 ",
          "False",
          "True",
          "Courier",
          " 12 ",  // 36
          "True",
          "True",
          "Times",
          " 10 ",  // 40
          "False",
          "True",
          "False",
          "True",
          "False",
          "True",
          "True",  // 47
          "1,2,3",
          "1,4,9",
          "x,y",
          "True",
          "x^2"};
}

// The sample with one line changed, counted from 1.
inline std::string sample_with(int line, const std::string& text) {
  std::vector<std::string> lines = sample_lines();
  lines.at(static_cast<std::size_t>(line - 1)) = text;
  return joined(lines);
}

// The number of the fault that the call raises; 0 for none.
inline int fault_of(const std::function<void()>& call) {
  try {
    call();
  } catch (const Fault& fault) {
    return fault.number();
  }
  return 0;
}

}  // namespace kurv::test
