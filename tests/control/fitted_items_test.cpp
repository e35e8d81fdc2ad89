#include "control/fitted_items.h"

#include <gtest/gtest.h>

#include "control/control_state.h"
#include "tests/support/test_host.h"

namespace kurv {
namespace {

bool overlap(const Rect& a, const Rect& b) {
  return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
         b.top < a.top + a.height;
}

class FittedItemsSwitch : public testing::Test {
 protected:
  // Points all over the plot where `is_dense`.
  void load(int curves, bool is_dense = false) {
    const int count = is_dense ? 2500 : 2;
    std::vector<std::vector<Double>> columns(static_cast<std::size_t>(curves) + 1);
    std::vector<String> names{"x"};
    for (int i = 0; i < count; ++i) columns[0].push_back(is_dense ? i % 50 : i);
    for (int k = 1; k <= curves; ++k) {
      names.push_back("curve " + std::to_string(k));
      for (int i = 0; i < count; ++i) columns[static_cast<std::size_t>(k)].push_back(i / 50);
    }
    control.scatter_graph2(
        "Title", test::columns(columns), test::names(names), static_cast<Integer>(count),
        static_cast<Integer>(curves),
        List<Boolean>(1, std::vector<Boolean>(static_cast<std::size_t>(curves), true)), 0, {},
        !is_dense, is_dense);
  }
  void refresh() { control.ChartOptions("refresh"); }
  const Rect& legend() { return host.layout().picLegend; }
  Double plot_right() { return Double(host.layout().plot.PlotLeft) + host.layout().plot.PlotWidth; }

  test::TestHost host;
  Control& control = host.control;
};

TEST_F(FittedItemsSwitch, IsOffByDefault) {
  EXPECT_FALSE(control.fitted_items());
  load(2, true);
  refresh();
  EXPECT_EQ(legend().left, 1000);
  EXPECT_EQ(legend().top, 680);
  EXPECT_EQ(control.Right_margine(), 800);
}

TEST_F(FittedItemsSwitch, TheLegendIsOutsideWhereItWouldHideATenthOfThePoints) {
  load(30, true);
  control.set_fitted_items(true);
  refresh();
  EXPECT_GE(legend().left, plot_right());
  EXPECT_LE(legend().left + legend().width, host.surface.ScaleWidth());
  EXPECT_GT(control.Right_margine(), 800);
}

TEST_F(FittedItemsSwitch, TheMarginReturnsWhereTheLegendFitsInside) {
  load(30, true);
  control.set_fitted_items(true);
  refresh();
  load(1);
  refresh();
  EXPECT_EQ(control.Right_margine(), 800);
  EXPECT_LT(legend().left + legend().width, plot_right());
}

TEST_F(FittedItemsSwitch, AMarginThatTheUserHasSetStays) {
  control.set_fitted_items(true);
  load(30, true);
  refresh();
  control.set_Right_margine(5000);
  refresh();
  refresh();
  EXPECT_EQ(control.Right_margine(), 5000);
}

TEST_F(FittedItemsSwitch, TurningItOffRestoresWhatItHasChanged) {
  load(30, true);
  const Single size = control.TitleFontSize();
  control.set_Title(String(200, 'm'));
  control.set_SubTitle(String(50, 'm'));
  control.set_fitted_items(true);
  refresh();
  EXPECT_LT(control.TitleFontSize(), size);
  control.set_fitted_items(false);
  EXPECT_EQ(control.TitleFontSize(), size);
  EXPECT_EQ(control.Top_margine(), 480);
  EXPECT_EQ(control.Right_margine(), 800);
  EXPECT_EQ(control.Left_margine(), 800);
}

TEST_F(FittedItemsSwitch, LabelsOfTheYAxisFitIntoTheLeftMargin) {
  load(1);
  control.set_fitted_items(true);
  control.set_AxisLabelFormatY("#,##0.0000");
  control.set_ymax(1000001);
  control.set_ymin(1000000);
  refresh();
  const Double width = host.surface.TextWidth("1,000,000.1000");
  EXPECT_GT(width, 800);
  EXPECT_GE(control.Left_margine(), width + 2 * 50);
  EXPECT_LE(control.Left_margine(), width + 2 * 100);
  EXPECT_EQ(host.layout().imgTitle.left, control.Left_margine());
  control.set_ymin(0);
  control.set_ymax(1);
  control.set_AxisLabelFormatY("0.0");
  refresh();
  EXPECT_EQ(control.Left_margine(), 800);
}

TEST_F(FittedItemsSwitch, TheLastLabelOfTheXAxisFitsIntoTheRightMargin) {
  load(1);
  control.set_fitted_items(true);
  control.set_AxisLabelFormatX("#,##0.0000");
  control.set_xmax(1000001);
  refresh();
  EXPECT_GE(control.Right_margine(), host.surface.TextWidth("1,000,001.0000") - 100);
  EXPECT_LT(control.Right_margine(), host.surface.TextWidth("1,000,001.0000"));
  EXPECT_EQ(control.Left_margine(), 800);
}

TEST_F(FittedItemsSwitch, LabelsTakeAThirdOfTheWidthAtMost) {
  load(1);
  control.set_fitted_items(true);
  control.set_AxisLabelFormatY("0" + String(500, '0'));
  refresh();
  EXPECT_EQ(control.Left_margine(), to_integer(host.surface.ScaleWidth() / 3.0));
}

TEST_F(FittedItemsSwitch, ALeftMarginThatTheUserHasSetStays) {
  load(1);
  control.set_fitted_items(true);
  control.set_Left_margine(3000);
  refresh();
  refresh();
  EXPECT_EQ(control.Left_margine(), 3000);
}

TEST_F(FittedItemsSwitch, NamesThatHaveNoRoomAreCounted) {
  load(149);
  EXPECT_EQ(control.unlisted_curves(), 0);
  control.set_fitted_items(true);
  refresh();
  const int unlisted = control.unlisted_curves();
  EXPECT_GT(unlisted, 0);
  EXPECT_LE(legend().top + legend().height,
            host.layout().plot.PlotTop + host.layout().plot.PlotHeight);
  EXPECT_NE(host.surface.log().find("\"and " + std::to_string(unlisted) + " more    \""),
            std::string::npos);
  load(3);
  refresh();
  EXPECT_EQ(control.unlisted_curves(), 0);
}

TEST_F(FittedItemsSwitch, TitlesThatHaveBecomeLongerAreFittedAgain) {
  load(1);
  control.set_fitted_items(true);
  refresh();
  control.set_Title(String(30, 'm'));
  control.set_SubTitle(String(10, 'm'));
  control.build_the_graph();
  EXPECT_FALSE(overlap(host.layout().imgTitle, host.layout().imgSubTitle));
  EXPECT_TRUE(control.has_items_in_fitted_places());
}

TEST_F(FittedItemsSwitch, ATitleHasTheLargestSizeThatFits) {
  load(1);
  control.set_Title(String(40, 'm'));
  control.set_fitted_items(true);
  for (const Single size : {20.0F, 200.5F, 32767.0F, 1e9F}) {
    control.set_TitleFontSize(size);
    refresh();
    const Rect& title = host.layout().imgTitle;
    const Single fitted = control.TitleFontSize();
    const Single room = static_cast<Single>(host.surface.ScaleWidth()) - title.left;
    EXPECT_LE(title.width, room) << size;
    if (fitted == size) continue;
    EXPECT_GT(title.width / fitted * (fitted + 2), room - 100) << size;
  }
}

TEST_F(FittedItemsSwitch, ATitleThatWasMovedStaysWhereItIs) {
  load(1);
  control.set_fitted_items(true);
  refresh();
  host.layout().imgTitle.left += 500;
  const Rect title = host.layout().imgTitle;
  control.set_Title(String(30, 'm'));
  control.build_the_graph();
  EXPECT_EQ(host.layout().imgTitle.left, title.left);
  EXPECT_EQ(host.layout().imgTitle.top, title.top);
}

TEST_F(FittedItemsSwitch, ALegendWithALongerNameIsFittedAgain) {
  load(30, true);
  control.set_fitted_items(true);
  refresh();
  const Integer margin = control.Right_margine();
  ASSERT_GE(legend().left, plot_right());
  host.document().yVarName(2) = "the concentration in the first tank";
  control.build_the_graph();
  EXPECT_GT(control.Right_margine(), margin);
  EXPECT_GE(legend().left, plot_right());
  EXPECT_LE(legend().left + legend().width, host.surface.ScaleWidth());
}

TEST_F(FittedItemsSwitch, RestoredMarginsHaveTheLegendBesideThePlot) {
  load(30, true);
  control.set_fitted_items(true);
  refresh();
  const Integer margin = control.Right_margine();
  ASSERT_GT(margin, 800);
  control.Restore_Grf();
  EXPECT_EQ(control.Right_margine(), margin);
  EXPECT_TRUE(control.has_items_in_fitted_places());
}

TEST_F(FittedItemsSwitch, UndoReturnsToFittedPlaces) {
  load(30, true);
  control.set_fitted_items(true);
  refresh();
  control.set_undo_enabled(true);
  control.make_step("Type", [&] {
    control.set_Title(String(200, 'm'));
    control.build_the_graph();
  });
  refresh();
  while (control.undo()) {
  }
  EXPECT_EQ(control.Title(), "Title");
  EXPECT_TRUE(control.has_items_in_fitted_places());
}

TEST_F(FittedItemsSwitch, ALegendThatWasNeverFittedEndsOnTheSurface) {
  control.set_fitted_items(true);
  load(149);
  EXPECT_GT(control.unlisted_curves(), 0);
  EXPECT_EQ(legend().left, 1000);
  EXPECT_EQ(legend().top, 680);
  EXPECT_LE(legend().top + legend().height, host.surface.ScaleHeight());
  load(3);
  EXPECT_EQ(control.unlisted_curves(), 0);
}

TEST_F(FittedItemsSwitch, NamesThatAreTooLongAreCut) {
  load(2, true);
  String name;
  for (int i = 0; i < 200; ++i) name += "\u00b5";
  host.document().yVarName(2) = name;
  control.set_fitted_items(true);
  refresh();
  EXPECT_GE(legend().left, plot_right());
  EXPECT_LE(legend().left + legend().width, host.surface.ScaleWidth());
  EXPECT_NE(host.surface.log().find("\u00b5\u2026    \""), std::string::npos);
  EXPECT_NE(host.surface.log().find("\"curve 2    \""), std::string::npos);
  EXPECT_EQ(host.document().yVarName(2), name);
  control.set_fitted_items(false);
  control.build_the_graph();
  EXPECT_NE(host.surface.log().find(name + "    \""), std::string::npos);
}

TEST_F(FittedItemsSwitch, TheSubtitleIsBesideTheTitleWhereItHasRoom) {
  load(1);
  control.set_SubTitle("short");
  control.set_fitted_items(true);
  refresh();
  EXPECT_GE(host.layout().imgSubTitle.left,
            host.layout().imgTitle.left + host.layout().imgTitle.width);
  EXPECT_EQ(control.Top_margine(), 480);
}

TEST_F(FittedItemsSwitch, TitlesAreNeverOnTopOfEachOther) {
  for (const std::size_t title : {1, 20, 60, 100, 300}) {
    for (const std::size_t subtitle : {1, 20, 60, 100, 300}) {
      test::TestHost own;
      own.load({1, 2}, {1, 2});
      own.control.set_Title(String(title, 'm'));
      own.control.set_SubTitle(String(subtitle, 'm'));
      own.control.set_fitted_items(true);
      own.control.ChartOptions("refresh");
      const Layout& layout = own.layout();
      EXPECT_FALSE(overlap(layout.imgTitle, layout.imgSubTitle)) << title << ' ' << subtitle;
      EXPECT_GE(layout.imgTitle.top, 0);
      EXPECT_LE(layout.imgSubTitle.top + layout.imgSubTitle.height, layout.plot.PlotTop);
      EXPECT_GE(own.control.TitleFontSize(), 9);
    }
  }
}

}  // namespace
}  // namespace kurv
