// The examples with windows that end by themselves.
#include <gtest/gtest.h>

#include "tests/examples/example_run.h"
#include "tests/support/graph_files.h"

namespace kurv {
namespace {

class LiveExample : public test::GraphFileTest {};

// A busy machine draws less often; the exact rate is for the eye.
TEST_F(LiveExample, DrawsAgainAndAgainAndEnds) {
  const test::Ended ended = test::run(KURV_LIVE " 2");
  EXPECT_EQ(ended.status, 0) << ended.output;
  ASSERT_TRUE(ended.output.ends_with(" redraws\n")) << ended.output;
  // The toolkit may have warned before.
  const std::string lines = '\n' + ended.output;
  const int redraws = std::stoi(lines.substr(lines.rfind('\n', lines.size() - 2) + 1));
  EXPECT_GT(redraws, 10);
  EXPECT_LT(redraws, 75);
}

TEST_F(LiveExample, SavesThePictureOfAFixedTime) {
  for (const char* name : {"a.png", "b.png", "other.png"}) {
    const std::string seconds = std::string(name) == "other.png" ? " 15.5 " : " 15 ";
    const test::Ended ended = test::run(KURV_LIVE + seconds + path(name));
    EXPECT_EQ(ended.status, 0) << ended.output;
  }
  EXPECT_GT(read("a.png").size(), 4000U);
  EXPECT_TRUE(read("a.png") == read("b.png"));
  EXPECT_FALSE(read("a.png") == read("other.png"));
}

TEST_F(LiveExample, MovesOnWhenItsWindowIsFull) {
  const test::Ended ended = test::run(KURV_LIVE " 12");
  EXPECT_EQ(ended.status, 0) << ended.output;
  EXPECT_EQ(ended.output.find("no more"), std::string::npos) << ended.output;
}

TEST_F(LiveExample, FailsWhereThePictureCannotBeWritten) {
  EXPECT_EQ(test::run(KURV_LIVE " 0.1 " + path("none/live.png")).status, 1);
}

TEST_F(LiveExample, TheOtherWindowEndsTheSameWay) {
  EXPECT_EQ(test::run(KURV_OWN_MENUS " 0.3 " + path("menus.png")).status, 0);
  EXPECT_TRUE(exists("menus.png"));
  EXPECT_EQ(test::run(KURV_OWN_MENUS " 0.1 " + path("none/menus.png")).status, 1);
}

}  // namespace
}  // namespace kurv
