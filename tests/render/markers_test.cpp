#include "render/markers.h"

#include <gtest/gtest.h>

#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <KurvGraph/recording_surface.h>
#include "tests/support/golden.h"

namespace kurv {
namespace {

std::string marker(int number, bool line_sample = false, Double size = 120) {
  GraphDocument document;
  set_marker_size(document, size);
  document.CurvesWidth = 2;
  RecordingSurface surface(5000, 5000);
  DrawMarker(document, surface, number, 1000, 2000, line_sample);
  return surface.log();
}

TEST(Markers, AllFortyKinds) {
  std::string all;
  for (int kind = 0; kind < kMarkerKinds; ++kind) {
    all += "kind " + std::to_string(kind) + '\n' + marker(kind);
  }
  test::expect_golden("markers.txt", all);
}

TEST(Markers, FortyKindsArePairwiseDistinct) {
  std::set<std::string> shapes;
  for (int kind = 0; kind < kMarkerKinds; ++kind) {
    // Without its colour: the fifth number of a line, the fourth of a circle or an arc.
    std::istringstream log(marker(kind));
    std::string shape;
    for (std::string line; std::getline(log, line);) {
      std::istringstream words(line);
      std::vector<std::string> parts{std::istream_iterator<std::string>(words), {}};
      parts.at(parts[0] == "circle" || parts[0] == "arc" ? 4 : 5) = "C";
      for (const std::string& part : parts) shape += part + ' ';
    }
    shapes.insert(shape);
  }
  EXPECT_EQ(shapes.size(), 40U);
}

TEST(Markers, EachBeginsWithItsWhiteSquare) {
  for (int kind = 0; kind < kMarkerKinds; ++kind) {
    EXPECT_TRUE(marker(kind).starts_with("fill 900 1900 1100 2100 15\n")) << kind;
  }
}

TEST(Markers, LineSampleHasTheCurvesWidth) {
  EXPECT_EQ(marker(3, true),
            "fill 900 1900 1100 2100 15\n"
            "width 2\n"
            "segment 900 2000 1100 2000 3\n"
            "width 1\n");
}

TEST(Markers, CurveFortyOneHasTheKindOfCurveOneInItsOwnColour) {
  EXPECT_EQ(marker(1), "fill 900 1900 1100 2100 15\ncircle 1000 2000 120 1\n");
  EXPECT_EQ(marker(41), "fill 900 1900 1100 2100 15\ncircle 1000 2000 120 13\n");
}

}  // namespace
}  // namespace kurv
