// A control whose host has set a decimal comma.
#include "tests/support/graph_files.h"

namespace kurv {
namespace {

using test::fault_of;

struct DecimalComma : test::GraphFileTest {
  DecimalComma() { host.control.set_decimal_separator(','); }
  void save() {
    host.control.build_the_graph();
    host.shell.files = {{path("a.gdf"), 1}};
    host.control.ChartOptions("saveas");
  }

  test::TestHost host;
};

TEST_F(DecimalComma, IsWhatIsWritten) {
  host.load({1.5, 2}, {0.25, -0.5});
  save();
  const std::vector<std::string> lines = read_lines("a.gdf");
  EXPECT_EQ(lines[47], "1,5,2");
  EXPECT_EQ(lines[48], "0,25,-0,5");
  EXPECT_EQ(lines[24], " 1,5 ");
}

TEST_F(DecimalComma, EachNumberOfADataLineIsSplitInTwoOnReading) {
  host.load({1.5, 2.25}, {0.25, -0.5});
  save();
  host.control.file_load(path("a.gdf"));
  EXPECT_EQ(host.document().xyArr(1, 1), 1);
  EXPECT_EQ(host.document().xyArr(1, 2), 5);
  EXPECT_EQ(host.document().xyArr(2, 1), 0);
  EXPECT_EQ(host.document().xyArr(2, 2), 25);
  EXPECT_EQ(host.document().xmax, 2.25) << "lines of one number read back";
}

TEST_F(DecimalComma, RefusesAPoint) {
  std::vector<std::string> lines = test::sample_lines();
  lines[22] = " ,5 ";
  lines[25] = " 3,25 ";
  host.control.file_load(write("a.gdf", test::joined(lines)));
  EXPECT_EQ(host.document().ymin, 0.5);
  EXPECT_EQ(host.document().xmax, 3.25);
  lines[22] = " .5 ";
  EXPECT_EQ(fault_of([&] { host.control.file_load(write("b.gdf", test::joined(lines))); }), 13);
}

TEST_F(DecimalComma, CountsStillHaveAPoint) {
  std::vector<std::string> lines = test::sample_lines();
  lines[2] = "2,9";
  lines[22] = lines[25] = "1";
  host.control.file_load(write("a.gdf", test::joined(lines)));
  EXPECT_EQ(host.document().NumData, 2);
}

TEST_F(DecimalComma, NothingElseSeparates) {
  for (const char other : {' ', '\0', ';', '0', '-'}) {
    EXPECT_EQ(fault_of([&] { host.control.set_decimal_separator(other); }), 5);
  }
  EXPECT_EQ(host.control.decimal_separator(), ',');
}

}  // namespace
}  // namespace kurv
