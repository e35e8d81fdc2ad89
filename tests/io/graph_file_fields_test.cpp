#include <KurvGraph/graph_file_fields.h>
#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

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

}  // namespace
}  // namespace kurv
