#include "control/lifecycle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/test_host.h"

namespace kurv {
namespace {

using test::TestHost;

TEST(Initialise, TakesItsFontsFromTheSurface) {
  test::PlainContainer container;
  test::ScriptedShell shell;
  RecordingSurface surface(12000, 9000);
  surface.set_font({"Some Font", 10, true, true});
  Control control(container, shell, surface);
  EXPECT_EQ(control.FontName(), "Some Font");
  EXPECT_EQ(control.FontSize(), 10);
  EXPECT_TRUE(control.FontBold().is_exactly_true());
  EXPECT_TRUE(control.FontItalic().is_exactly_true());
  EXPECT_EQ(control.TitleFontName(), "Some Font");
  EXPECT_EQ(control.TitleFontSize(), 13);
  EXPECT_TRUE(control.TitleFontBold().is_exactly_true());
  EXPECT_TRUE(control.TitleFontItalic().is_exactly_true());
  EXPECT_EQ(control.SubTitleFontName(), "Some Font");
  EXPECT_EQ(control.SubTitleFontSize(), 10);
  EXPECT_FALSE(control.QueryForSave());
}

TEST(Initialise, TitleIsBoldAlsoWhereTheSurfaceIsNot) {
  TestHost host;
  EXPECT_EQ(host.control.TitleFontName(), "Liberation Sans");
  EXPECT_EQ(host.control.TitleFontSize(), 11);
  EXPECT_TRUE(host.control.TitleFontBold().is_exactly_true());
  EXPECT_FALSE(host.control.FontBold());
}

TEST(Initialise, LoadsADemonstrationThatIsNeverDrawn) {
  TestHost host;
  const GraphDocument& document = host.document();
  EXPECT_EQ(document.Title, "Scatter Points Graph");
  EXPECT_EQ(document.NumY, 3);
  EXPECT_EQ(document.NumData, 10);
  EXPECT_EQ(document.NumYFunc, 0);
  EXPECT_TRUE(document.Connected.is_exactly_true());
  EXPECT_TRUE(document.DrawMarkers.is_exactly_true());
  EXPECT_EQ(document.yVarName(1), "x");
  EXPECT_EQ(document.yVarName(2), "1y");
  EXPECT_EQ(document.yVarName(4), "3y");
  EXPECT_EQ(document.xyArr.upper_column(), 250);
  for (int i = 1; i <= 10; ++i) {
    EXPECT_EQ(document.xyArr(1, i), i);
    for (int k = 1; k <= 3; ++k) {
      const Double share = document.xyArr(k + 1, i) / (std::sin(k) * 10 * i);
      EXPECT_GE(share, 0);
      EXPECT_LT(share, 1);
    }
  }
  EXPECT_EQ(document.xmin, 1);
  EXPECT_EQ(document.xmax, 10);
  EXPECT_LT(document.ymin, document.ymax);
  EXPECT_FALSE(document.GraphValid);
  EXPECT_FALSE(document.DataFromHost);
  EXPECT_EQ(host.redrawn(), "") << "shown before any data, the plot stays empty";
}

TEST(Initialise, PutsTitlesAndLegendInTheirHomePlaces) {
  test::PlainContainer container;
  test::ScriptedShell shell;
  RecordingSurface surface(12000, 9000);
  Control control(container, shell, surface);
  const Layout& layout = control.state().layout;
  // "Graph Title" in 11 points: 11 characters of 110 twips, 264 twips high.
  EXPECT_EQ(layout.imgTitle.width, 1210);
  EXPECT_EQ(layout.imgTitle.top, 480 - 264 - 60);
  EXPECT_EQ(layout.imgTitle.left, 800);
  EXPECT_EQ(layout.imgSubTitle.top, 480 - 192 - 60) << "an empty subtitle has one line";
  EXPECT_EQ(layout.imgSubTitle.left, 800 + 1210 + 100);
  EXPECT_EQ(layout.picLegend.top, 680);
  EXPECT_EQ(layout.picLegend.left, 1000);
}

TEST(FirstPlacement, ShowsWhatHasANameOrAnExpression) {
  TestHost host;
  host.control.scatter_graph(test::columns({{1, 2}, {3, 4}}), test::points({1, 2}), 2, 2,
                             String("T"), "x", test::names({"", "b"}), 1, test::names({"x"}));
  host.document().y_func(1).visible = false;
  host.document().y_func(2).visible = true;
  host.control.set_X_grid(true);
  host.control.set_Y_grid(true);
  host.control.set_NumTicks(3);
  host.control.first_placement();
  EXPECT_EQ(host.document().y_visible(1), Boolean(false));
  EXPECT_EQ(host.document().y_visible(2), Boolean(true));
  EXPECT_EQ(host.document().y_func(1).visible, Boolean(true));
  EXPECT_EQ(host.document().y_func(2).visible, Boolean(false));
  EXPECT_EQ(host.control.NumTicks(), 10);
  EXPECT_FALSE(host.control.X_grid());
  EXPECT_FALSE(host.control.Y_grid());
  EXPECT_EQ(host.layout().plot.PlotWidth, 12000 - 1600);
}

TEST(Show, InRunModePutsTitlesHomeAndRedraws) {
  TestHost host;
  host.load({1, 2}, {3, 4});
  host.layout().imgTitle.left = 5;
  host.layout().picLegend.left = 5;
  host.surface.clear_log();
  host.control.show();
  EXPECT_EQ(host.layout().imgTitle.left, 800);
  EXPECT_EQ(host.layout().picLegend.left, 5) << "the legend stays where it was put";
  EXPECT_NE(host.surface.log().find("cls\n"), std::string::npos);
}

TEST(Show, InDesignModeDoesNothing) {
  TestHost host(12000, 9000, false);
  host.load({1, 2}, {3, 4});
  host.layout().imgTitle.left = 5;
  host.surface.clear_log();
  host.control.show();
  EXPECT_EQ(host.layout().imgTitle.left, 5);
  EXPECT_EQ(host.surface.log(), "");
}

TEST(Resize, RedrawsOnceTheDataAreTheHosts) {
  TestHost host;
  host.surface.set_size(10000, 8000);
  host.control.resize();
  EXPECT_EQ(host.surface.log(), "") << "nothing before any host data";
  EXPECT_EQ(host.layout().plot.PlotWidth, 10000 - 1600);
  EXPECT_EQ(host.layout().plot.PlotHeight, 8000 - 1000);
  host.load({1, 2}, {3, 4});
  host.document().GraphSaved = true;
  host.surface.clear_log();
  host.surface.set_size(11000, 8000);
  host.control.resize();
  EXPECT_FALSE(host.document().GraphSaved);
  const std::string log = host.surface.log();
  EXPECT_NE(log.find("cls\n"), std::string::npos);
  EXPECT_EQ(log.find("cls\n"), log.rfind("cls\n")) << "one redraw";
}

TEST(Resize, PlotIsAtLeastFiveHundredTwips) {
  TestHost host;
  host.surface.set_size(1000, 1000);
  host.control.resize();
  EXPECT_EQ(host.layout().plot.PlotWidth, 500);
  EXPECT_EQ(host.layout().plot.PlotHeight, 500);
}

TEST(Resize, InDesignModeRedrawsWhateverTheDataCameFrom) {
  TestHost host(12000, 9000, false);
  host.document().GraphValid = true;
  host.control.resize();
  EXPECT_NE(host.surface.log().find("cls\n"), std::string::npos);
}

TEST(Resize, AsksTheNumericHelperForTheLargerSize) {
  TestHost host;
  struct Fixed final : NumericService {
    Double decimal_logarithm(Double) const override { return 0; }
    Double round_down(Double value) const override { return value; }
    Double round_up(Double value) const override { return value; }
    Double larger_of(Double, Double) const override { return 1234.5; }
  };
  host.services.numeric = std::make_unique<Fixed>();
  host.control.resize();
  EXPECT_EQ(host.layout().plot.PlotWidth, 1234) << "a half goes to the even neighbour";
}

using Log = std::vector<std::string>;

// Writes the question into the log of the windows.
struct OrderedShell final : test::ScriptedShell {
  Answer message_box(std::string_view text, int flags, std::string_view title) override {
    windows.emplace_back("message");
    return ScriptedShell::message_box(text, flags, title);
  }
};

struct OrderedHost {
  test::PlainContainer container;
  OrderedShell shell;
  RecordingSurface surface{12000, 9000};
  std::unique_ptr<Control> control = std::make_unique<Control>(container, shell, surface);
};

TEST(Windows, AreLoadedOnceForEveryControlThatIsMade) {
  TestHost host;
  EXPECT_EQ(host.shell.windows, Log{"load"});
}

TEST(Windows, CloseMeUnloadsThemAndTheNextCommandShowsThemAgain) {
  TestHost host;
  host.control.CloseMe();
  host.control.CloseMe();
  host.control.ChartOptions("table");
  EXPECT_EQ(host.shell.windows, (Log{"load", "unload", "unload", "frmTable 0"}));
}

TEST(Windows, AreReleasedBeforeTheQuestionAndOnce) {
  OrderedHost host;
  host.control->set_QueryForSave(true);
  host.control->terminate();
  host.control->terminate();
  host.control.reset();
  EXPECT_EQ(host.shell.windows, (Log{"load", "release", "message"}));
}

TEST(Windows, AreReleasedAlsoWhereNothingIsAsked) {
  OrderedHost host;
  host.control.reset();
  EXPECT_EQ(host.shell.windows, (Log{"load", "release"}));
}

TEST(Windows, AreReleasedAlsoWhereTheSaveFails) {
  OrderedHost host;
  host.control->set_QueryForSave(true);
  host.shell.answers = {Answer::kYes};
  host.shell.files = {{"/nosuch/folder/a.gdf", 1}};
  EXPECT_THROW(host.control->terminate(), Fault);
  EXPECT_EQ(host.shell.windows, (Log{"load", "release", "message"}));
}

}  // namespace
}  // namespace kurv
