// What the window says of the graph's run-time errors.
#include "app/window/window_texts.h"

#include <KurvGraph/fault.h>
#include <gmock/gmock.h>

#include <array>

namespace kurv::app {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr std::array kNumbers = {5,  6,  7,  9,  11,  13,  53,  57, 61,
                                 62, 70, 75, 76, 429, 438, 449, 450};

std::string said(int number, const QString& file, const std::string& path) {
  const QString reason = fault_text(static_cast<FaultKind>(number));
  return run_time_error(number, file.isEmpty() ? reason : file + ": " + reason, path).toStdString();
}

TEST(RunTimeErrors, NameWhatFailedAndWhatToDoInPlainWords) {
  for (const int number : kNumbers) {
    const std::string of_graph = said(number, "", "/tmp/small.gdf");
    const std::string of_own_file = said(number, "/tmp/small.gdf", "/tmp/small.gdf");
    const std::string of_file = said(number, "/gone/table.txt", "/tmp/small.gdf");
    EXPECT_THAT(of_graph, StartsWith("small.gdf cannot be "));
    EXPECT_THAT(of_own_file, StartsWith("small.gdf cannot be "));
    EXPECT_THAT(of_file, StartsWith("/gone/table.txt cannot be "));
    EXPECT_THAT(said(number, "", ""), StartsWith("The graph cannot be "));
    for (const std::string& text : {of_graph, of_own_file, of_file}) {
      EXPECT_THAT(text, Not(HasSubstr(fault_text(static_cast<FaultKind>(number)))));
      EXPECT_THAT(text, HasSubstr("; "));
      EXPECT_THAT(text, EndsWith("."));
    }
  }
}

TEST(RunTimeErrors, AreShownAsTheyAreWhereTheirTextIsAnother) {
  EXPECT_EQ(run_time_error(9, "of a service", "/tmp/small.gdf"), "of a service.");
}

}  // namespace
}  // namespace kurv::app
