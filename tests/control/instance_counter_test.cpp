#include <limits>

#include "tests/support/graph_files.h"

namespace kurv {
namespace {

TEST(InstanceCounter, OverflowsPast32767ControlsOfAProcess) {
  test::PlainContainer container;
  test::ScriptedShell shell;
  RecordingSurface surface(7200, 4800);
  const auto make = [&] { Control(container, shell, surface); };
  for (int i = 1; i <= std::numeric_limits<Integer>::max(); ++i) make();
  EXPECT_EQ(test::fault_of(make), 6);
  EXPECT_EQ(test::fault_of(make), 6) << "it stays used up";
}

}  // namespace
}  // namespace kurv
