// A new user makes a picture for a publication from one of the example tables, makes mistakes with
// the mouse on the way, and takes them back.
#include <QFile>

#include "tests/story/desktop.h"
#include "tests/story/screen_text.h"
#include "tests/story/story.h"

namespace kurv::test {
namespace {

// The highest value of one summer, and the next winter.
constexpr double kSummer = 1990.3750, kSummerCo2 = 357.16;

constexpr const char* kTitleText = "Carbon dioxide at Mauna Loa";
constexpr const char* kSubtitleText = "parts per million";

constexpr double kDotsPerInch = 300;
constexpr double kDotsPerMetre = kDotsPerInch / 0.0254;

class Example : public Story {
 protected:
  Example() : Story("co2.gdf") {}

  void open_and_save();
  void zoom_too_far();
  void look_closer();
  void drag_the_legend_to_a_wrong_place();
  void hide_the_wrong_curve();
  void write_titles();
  void export_picture();

  // The plot is what is in the file again.
  void find_it_as_saved() { ASSERT_NO_FATAL_FAILURE(find_plot(m_plot)); }
  QPoint middle() const { return m_plot.place + m_plot.frame.center(); }

  // As it was saved.
  Plot m_plot;
};

// The graph file gets the name of the table, in its folder.
void Example::open_and_save() {
  ASSERT_TRUE(QFile::copy(KURV_EXAMPLES "/co2.csv", path("co2.csv")));
  start({path("co2.csv")});
  ASSERT_TRUE(comes_to_front("co2.csv \u2013 kurv"));
  ASSERT_NO_FATAL_FAILURE(save_as_proposed());
  ASSERT_NO_FATAL_FAILURE(find_it_as_saved());
}

// Show All returns to the limits of before; it can be undone as well, and done again.
void Example::zoom_too_far() {
  for (int notch = 0; notch < 4; ++notch) {
    const Plot before = plot_in_front();
    turn_wheel(middle(), Button::kWheelUp);
    ASSERT_TRUE(comes_to_differ(before));
  }
  ASSERT_TRUE(comes_to_front(changed_title()));
  press({"ctrl+0"});
  ASSERT_TRUE(comes_to_front(saved_title()));
  ASSERT_NO_FATAL_FAILURE(find_it_as_saved());

  expect_to_undo("Show All");
  press({"ctrl+z"});
  ASSERT_TRUE(comes_to_front(changed_title()));
  expect_to_redo("Show All");
  press({"ctrl+shift+z"});
  ASSERT_TRUE(comes_to_front(saved_title()));

  turn_wheel(middle(), Button::kWheelDown);
  ASSERT_NO_FATAL_FAILURE(take_back("Zoom"));
  ASSERT_NO_FATAL_FAILURE(find_it_as_saved());
}

// A rectangle, a move of the picture, and the same by keyboard.
void Example::look_closer() {
  const QPoint part(m_plot.frame.width() / 4, m_plot.frame.height() / 4);
  Plot before = plot_in_front();
  const auto has_changed = [&](const QString& step) {
    ASSERT_TRUE(comes_to_differ(before));
    expect_to_undo(step);
    before = plot_in_front();
  };
  drag(middle() - part, middle() + part, Button::kLeft, "ctrl");
  ASSERT_NO_FATAL_FAILURE(has_changed("Zoom"));
  drag(middle(), middle() + part / 2, Button::kMiddle);
  ASSERT_NO_FATAL_FAILURE(has_changed("Pan"));
  press({"plus"});
  ASSERT_NO_FATAL_FAILURE(has_changed("Zoom"));
  press({"ctrl+Left"});
  ASSERT_NO_FATAL_FAILURE(has_changed("Pan"));
  press({"ctrl+0"});
  ASSERT_TRUE(comes_to_front(saved_title()));
  ASSERT_NO_FATAL_FAILURE(find_it_as_saved());
}

void Example::drag_the_legend_to_a_wrong_place() {
  const QPoint legend = legend_in(m_plot);
  drag(legend, legend + (middle() - legend) / 2);
  ASSERT_NO_FATAL_FAILURE(take_back("Move Legend"));
  ASSERT_NO_FATAL_FAILURE(find_it_as_saved());
}

void Example::hide_the_wrong_curve() {
  click(point_in(m_plot, kSummer, kSummerCo2), Button::kRight);
  ASSERT_TRUE(comes_to_show("Re&name \u201cco2\u201d\u2026"));
  ASSERT_TRUE(comes_to_show("&Hide \u201cco2\u201d"));
  press({"h"});
  point_away();
  ASSERT_NO_FATAL_FAILURE(take_back("Hide Curve"));
  expect_to_redo("Hide Curve");
  ASSERT_NO_FATAL_FAILURE(find_it_as_saved());
}

void Example::write_titles() {
  press({"alt+g", "t"});
  ASSERT_TRUE(comes_to_front("Graph Properties"));
  press({"alt+i", "ctrl+a"});
  type(kTitleText);
  press({"alt+u"});
  type(kSubtitleText);
  press({"alt+c"});
  ASSERT_TRUE(comes_to_front(changed_title()));
  expect_to_undo("Change Subtitle");
  ASSERT_NO_FATAL_FAILURE(save());
  ASSERT_NO_FATAL_FAILURE(find_it_as_saved());
  EXPECT_EQ(saved_lines().value(kTitle - 1), kTitleText);
}

// Ten inches by five.
void Example::export_picture() {
  press({"ctrl+e"});
  ASSERT_TRUE(comes_to_front("Export Picture"));
  // Not as in the window; in millimetres; without keeping the proportions. An Alt key would tick a
  // box only after a while.
  press({"alt+f", "Tab", "space", "alt+u", "End", "Tab", "space", "alt+w", "ctrl+a"});
  type("254");
  press({"alt+h", "ctrl+a"});
  type("127");
  press({"alt+r", "ctrl+a"});
  type("300");
  ASSERT_TRUE(comes_to_show("3000 \u00d7 1500 pixels"));
  press({"Return"});
  // The dialog for the name, which has the same title.
  ASSERT_TRUE(comes_to_show("Files of type:"));
  ASSERT_TRUE(comes_to_front("Export Picture"));
  press({"Return"});
  ASSERT_TRUE(comes_to_front(saved_title()));
  // Exporting is no step. The menu opens once the picture has been written.
  expect_to_undo("Change Subtitle");

  const QImage exported(path("co2.png"));
  EXPECT_EQ(exported.size(), QSize(3000, 1500));
  EXPECT_NEAR(exported.dotsPerMeterX(), kDotsPerMetre, 1);
  EXPECT_NEAR(exported.dotsPerMeterY(), kDotsPerMetre, 1);
  // As the command line draws the table at this size.
  EXPECT_EQ(exported.convertToFormat(QImage::Format_RGB32),
            drawn_from({path("co2.csv"), "--title", kTitleText, "--subtitle", kSubtitleText,
                        "--size", "960x480", "--scale", "3.125"}));
}

TEST_F(Example, BecomesAPictureToPublishAfterSomeMistakes) {
  ASSERT_NO_FATAL_FAILURE(open_and_save());
  const QStringList first = saved_lines();
  ASSERT_NO_FATAL_FAILURE(zoom_too_far());
  ASSERT_NO_FATAL_FAILURE(look_closer());
  ASSERT_NO_FATAL_FAILURE(drag_the_legend_to_a_wrong_place());
  ASSERT_NO_FATAL_FAILURE(hide_the_wrong_curve());
  ASSERT_NO_FATAL_FAILURE(write_titles());
  ASSERT_NO_FATAL_FAILURE(export_picture());
  press({"ctrl+w"});
  ASSERT_NO_FATAL_FAILURE(expect_its_end());
  // Of the mistakes nothing is left.
  EXPECT_EQ(text_of(saved_lines().mid(kLimits - 1)), text_of(first.mid(kLimits - 1)));
  EXPECT_EQ(saved_lines().value(kLegendLeft - 1), first.value(kLegendLeft - 1));
}

}  // namespace
}  // namespace kurv::test
