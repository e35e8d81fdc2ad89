#include <KurvGraph/class_registry.h>
#include <gtest/gtest.h>

namespace kurv {
namespace {

TEST(TextFieldTool, CountsFieldsFromOne) {
  const TextFieldTool& tool = *library_services().text_field;
  EXPECT_EQ(tool.GetField("a,b,c", 1, ","), "a");
  EXPECT_EQ(tool.GetField("a,b,c", 2, ","), "b");
  EXPECT_EQ(tool.GetField("a,b,c", 3, ","), "c");
  EXPECT_EQ(tool.GetField("a", 1, ","), "a");
  EXPECT_EQ(tool.GetField(",b,", 1, ","), "");
  EXPECT_EQ(tool.GetField(",b,", 3, ","), "");
  EXPECT_EQ(tool.GetField("/a.b/c.gdf", 2, "."), "b/c");
}

TEST(TextFieldTool, AFieldThatIsNotThereIsEmpty) {
  const TextFieldTool& tool = *library_services().text_field;
  for (const int field : {4, 32767, 0, -1}) EXPECT_EQ(tool.GetField("a,b,c", field, ","), "");
  EXPECT_EQ(tool.GetField("", 1, ","), "");
  EXPECT_EQ(tool.GetField("", 2, ","), "");
}

TEST(TextFieldTool, DelimiterMayBeLongerOrMissing) {
  const TextFieldTool& tool = *library_services().text_field;
  EXPECT_EQ(tool.GetField("a::b::c", 3, "::"), "c");
  EXPECT_EQ(tool.GetField("a,b", 1, ""), "a,b");
  EXPECT_EQ(tool.GetField("a,b", 2, ""), "");
}

}  // namespace
}  // namespace kurv
