#include <KurvGraph/graph_file_fields.h>
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/graph_files.h"

namespace kurv {
namespace {

TEST(GraphFileFields, LinesAreFoundByName) {
  EXPECT_EQ(graph_file_line("Format"), 1U);
  EXPECT_EQ(graph_file_line("NumData"), 3U);
  EXPECT_EQ(graph_file_line("NumY"), 4U);
  EXPECT_EQ(graph_file_line("NumYFunc"), 5U);
  EXPECT_EQ(graph_file_line("Title"), 6U);
  EXPECT_EQ(graph_file_line("xmax"), 26U);
  EXPECT_EQ(graph_file_line("DrawMarkers"), 47U);
  EXPECT_THROW(graph_file_line("numy"), std::out_of_range);
  EXPECT_THROW(graph_file_line(""), std::out_of_range);
}

TEST(GraphFileFields, NoTwoHaveTheSameName) {
  std::set<std::string_view> names;
  for (const GraphFileField& field : graph_file_fields()) names.insert(field.name);
  EXPECT_EQ(names.size(), graph_file_fields().size());
}

TEST(GraphFileFields, TheListsFollow) {
  const std::size_t data = graph_file_list_line("values", 1);
  const std::size_t names = graph_file_list_line("names", 1);
  const std::size_t flags = graph_file_list_line("flags", 1);
  const std::size_t functions = graph_file_list_line("expressions", 1);
  EXPECT_EQ(data, graph_file_fields().size() + 1);
  EXPECT_EQ(names, data + 2);
  EXPECT_EQ(flags, names + 1);
  EXPECT_EQ(functions, flags + 1);
  EXPECT_EQ(functions, test::sample_lines().size());
  EXPECT_EQ(functions, graph_file_length(1));
  EXPECT_THROW(graph_file_list_line("colours", 1), std::out_of_range);
}

TEST(GraphFileFields, TheListsAreInTheOrderOfTheirLines) {
  for (const int curves : {0, 1, 149}) {
    std::size_t next_line = graph_file_fields().size() + 1;
    for (const GraphFileList& list : graph_file_lists(curves)) {
      EXPECT_EQ(list.first_line, next_line) << list.name;
      next_line += list.lines;
    }
    EXPECT_EQ(graph_file_length(curves), next_line - 1);
  }
}

// The rows of the table in docs/graph-file.md, without its head: the cells "Lines" and "Names".
std::vector<std::pair<std::string, std::string>> rows_of_the_page() {
  std::ifstream page(KURV_SOURCE_DIR "/docs/graph-file.md");
  std::vector<std::pair<std::string, std::string>> rows;
  const std::regex row("\\| ([^|]*) \\| (`[^|]*`) \\|.*");
  std::smatch cells;
  for (std::string line; std::getline(page, line);) {
    if (std::regex_match(line, cells, row)) rows.emplace_back(cells[1], cells[2]);
  }
  return rows;
}

// "2, 6" are two lines, "3 to 5" three, and "then" none.
std::vector<std::size_t> line_numbers(const std::string& cell) {
  std::vector<std::size_t> numbers;
  const std::regex number_or_range("(\\d+)(?: to (\\d+))?");
  for (std::sregex_iterator match(cell.begin(), cell.end(), number_or_range), end; match != end;
       ++match) {
    const std::size_t first = std::stoul((*match)[1]);
    const std::size_t last = (*match)[2].matched ? std::stoul((*match)[2]) : first;
    for (std::size_t number = first; number <= last; ++number) numbers.push_back(number);
  }
  return numbers;
}

std::vector<std::string> names_in(const std::string& cell) {
  std::vector<std::string> names;
  const std::regex name("`([^`]*)`");
  for (std::sregex_iterator match(cell.begin(), cell.end(), name), end; match != end; ++match) {
    names.push_back((*match)[1]);
  }
  return names;
}

TEST(GraphFileFields, ThePageHasEveryLineUnderItsNumber) {
  std::vector<std::string> expected(1);  // counted from 1
  for (const GraphFileField& field : graph_file_fields()) expected.emplace_back(field.name);
  const std::size_t first_list_line = expected.size();
  std::vector<std::string> expected_lists;
  for (const GraphFileList& list : graph_file_lists(0)) expected_lists.emplace_back(list.name);

  std::vector<std::string> lines(first_list_line);
  std::vector<std::string> lists;
  for (const auto& [cell, names] : rows_of_the_page()) {
    const std::vector<std::size_t> numbers = line_numbers(cell);
    const std::vector<std::string> row_names = names_in(names);
    if (numbers.empty() || numbers.front() >= first_list_line) {
      if (!numbers.empty()) {
        EXPECT_EQ(numbers.front(), first_list_line) << cell;
      }
      lists.insert(lists.end(), row_names.begin(), row_names.end());
      continue;
    }
    ASSERT_EQ(numbers.size(), row_names.size()) << cell;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      ASSERT_LT(numbers[i], lines.size()) << cell;
      EXPECT_EQ(lines[numbers[i]], "") << "line " << numbers[i] << " is there twice";
      lines[numbers[i]] = row_names[i];
    }
  }
  EXPECT_EQ(lines, expected);
  EXPECT_EQ(lists, expected_lists);
}

}  // namespace
}  // namespace kurv
