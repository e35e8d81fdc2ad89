// The graph painted on another surface.
#include <KurvGraph/headless.h>
#include <gtest/gtest.h>

#include <sstream>

#include "control/built_in_classes.h"
#include "tests/support/test_host.h"

namespace kurv {
namespace {

// All that the control would show and save, to be compared before and after a painting.
std::string state_of(test::TestHost& host) {
  const GraphDocument& document = host.document();
  std::ostringstream text;
  text << document.GraphSaved.bits() << ' ' << document.NumY << ' ' << document.xmin << ' '
       << document.xmax << ' ' << document.ymin << ' ' << document.ymax << ' '
       << document.xyArr(1, 1) << ' ' << document.xyArr(2, 1) << '\n';
  const Layout& layout = host.layout();
  for (const Rect& rect :
       {layout.imgTitle, layout.imgSubTitle, layout.picLegend, layout.shpXlabels, layout.shpYlabels,
        layout.shpXcaption, layout.shpGraphBorder[0], layout.shpGraphBorder[1]}) {
    text << rect.left << ' ' << rect.top << ' ' << rect.width << ' ' << rect.height << '\n';
  }
  text << layout.plot.PlotLeft << ' ' << layout.plot.PlotTop << ' ' << layout.plot.PlotWidth << ' '
       << layout.plot.PlotHeight << '\n'
       << host.container.pointers.size() << ' ' << host.shell.messages.size() << '\n'
       << host.surface.log();
  return text.str();
}

std::string painted(const test::TestHost& host) {
  RecordingSurface other(12000, 9000);
  host.control.draw_on(other);
  return std::string(other.log());
}

// What comes before the first label sets up the surface, which differs between two surfaces.
std::string from_first_label(const std::string& log) {
  return log.substr(log.find("print"));
}

// The pen width, in pixels, of the first tick in the last picture of a log.
std::string pen_of_ticks(const std::string& log) {
  const std::size_t tick = log.find("segment", log.rfind("cls\n"));
  const std::size_t width = log.rfind("width ", tick);
  return width == std::string::npos ? "1"
                                    : log.substr(width + 6, log.find('\n', width) - width - 6);
}

TEST(DrawOn, PaintsWhatTheNextRedrawShows) {
  test::TestHost host;
  host.load({3, 1, 2}, {5, 7, 6}, true, true);
  host.control.add_function("x*2");
  host.control.set_X_grid(true);
  host.control.set_Top_margine(900);
  host.control.set_SortXY(true);
  host.control.set_Title("Another");
  const std::string elsewhere = painted(host);
  EXPECT_EQ(from_first_label(elsewhere), from_first_label(host.redrawn()));
}

TEST(DrawOn, LeavesTheControlAsItWas) {
  test::TestHost host;
  host.load({3, 1, 2}, {5, 7, 6}, true, true);
  host.control.add_function("x*2");
  host.document().GraphSaved = true;
  host.control.set_SortXY(true);
  host.control.set_Left_margine(2000);
  host.control.set_SubTitle("longer than before");
  host.layout().picLegend.left = 20000;
  const std::string before = state_of(host);
  EXPECT_NE(painted(host), "");
  EXPECT_EQ(state_of(host), before);
}

TEST(DrawOn, DoesNotReportARedraw) {
  struct Counting final : HeadlessContainer {
    using HeadlessContainer::HeadlessContainer;
    void redrawn() override { ++redraws; }
    int redraws = 0;
  };
  RecordingSurface surface(12000, 9000);
  Counting container(surface);
  HeadlessShell shell;
  Control control(container, shell, surface);
  control.scatter_graph(test::columns({{4, 5}}), test::points({1, 2}), 2, 1, String("T"), "x",
                        test::names({"y"}), 0, {});
  const int before = container.redraws;
  EXPECT_GT(before, 0);
  RecordingSurface other(12000, 9000);
  control.draw_on(other);
  EXPECT_EQ(container.redraws, before);
}

TEST(DrawOn, AnEmptyGraphClearsTheSurface) {
  const test::TestHost host;
  RecordingSurface other(12000, 9000);
  other.Line({0, 0}, {1, 1}, 1, LineKind::kSegment);
  host.control.draw_on(other);
  RecordingSurface cleared(12000, 9000);
  cleared.Line({0, 0}, {1, 1}, 1, LineKind::kSegment);
  cleared.Cls();
  EXPECT_EQ(other.log(), cleared.log());
}

// Expects the same pen of the ticks in the last picture of the control's own surface and in what
// draw_on() paints.
void expect_ticks(const test::TestHost& host, const std::string& pen) {
  EXPECT_EQ(pen_of_ticks(host.surface.log()), pen);
  EXPECT_EQ(pen_of_ticks(painted(host)), pen);
}

TEST(DrawOn, TicksAreAsWideAsThoseOfTheLastRedraw) {
  test::TestHost host;
  host.load({1, 2}, {5, 7});
  expect_ticks(host, "1");
  host.document().y_visible(1) = false;
  host.control.set_BorderWidth(4);
  host.control.build_the_graph();
  expect_ticks(host, "1");  // no curve was drawn, so the pen of the border is left
  host.control.build_the_graph();
  expect_ticks(host, "4");
  host.control.set_BorderWidth(3);
  host.document().y_visible(1) = true;
  expect_ticks(host, "4");
  host.control.build_the_graph();
  expect_ticks(host, "4");
  host.control.build_the_graph();
  expect_ticks(host, "1");
}

TEST(DrawOn, TicksAreAsWideAsThoseOfARedrawThatFailedAfterThem) {
  test::TestHost host;
  host.load({1, 2}, {5, 7});
  host.control.set_CurvesWidth(3);
  const Double xmax = host.control.xmax();
  host.control.set_xmax(host.control.xmin());
  EXPECT_THROW(host.control.build_the_graph(), Fault);
  host.control.set_xmax(xmax);
  expect_ticks(host, "1");
  host.control.build_the_graph();
  expect_ticks(host, "3");
}

TEST(DrawOn, AFunctionCurveLeavesAPenOfOne) {
  test::TestHost host;
  host.load({1, 2}, {5, 7});
  host.control.add_function("x*2");
  host.document().y_visible(1) = false;
  host.control.set_BorderWidth(4);
  host.control.build_the_graph();
  host.control.build_the_graph();
  expect_ticks(host, "1");
}

TEST(DrawOn, AFaultReachesTheCallerAndChangesNothing) {
  test::TestHost host;
  host.load({1, 2}, {5, 7});
  host.control.set_xmax(host.control.xmin());
  const std::string before = state_of(host);
  EXPECT_THROW(painted(host), Fault);
  EXPECT_EQ(state_of(host), before);
}

// -- Built-in classes of a module above the control ----------------------------------------------

class NamedPrinter final : public PicturePrinter {
 public:
  explicit NamedPrinter(int number) : m_number(number) {}
  int number() const { return m_number; }
  void PrintPicture(std::string_view, std::string_view, std::string_view, Single) override {}

 private:
  int m_number;
};

int printer_made() {
  const auto printer = create<PicturePrinter>(kPicturePrinterClass);
  return dynamic_cast<NamedPrinter&>(*printer).number();
}

TEST(BuiltInClass, IsUsedUnlessAHostHasRegisteredItsOwn) {
  const auto make = [](int number) {
    return [number] { return std::make_unique<NamedPrinter>(number); };
  };
  register_class(kPicturePrinterClass, make(1));
  register_built_in_class(kPicturePrinterClass, make(2));
  EXPECT_EQ(printer_made(), 1) << "the host's own, registered before";
  register_class(kPicturePrinterClass, nullptr);
  EXPECT_EQ(printer_made(), 2);
  register_class(kPicturePrinterClass, make(3));
  EXPECT_EQ(printer_made(), 3) << "and registered after";
  register_class(kPicturePrinterClass, nullptr);
  register_built_in_class(kPicturePrinterClass, nullptr);
  EXPECT_THROW(printer_made(), Fault);
}

}  // namespace
}  // namespace kurv
