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
  const GraphFileLists lists = graph_file_lists(1);
  EXPECT_EQ(lists.data, graph_file_fields().size() + 1);
  EXPECT_EQ(lists.names, lists.data + 2);
  EXPECT_EQ(lists.flags, lists.names + 1);
  EXPECT_EQ(lists.functions, lists.flags + 1);
  EXPECT_EQ(lists.functions, test::sample_lines().size());
}

}  // namespace
}  // namespace kurv
