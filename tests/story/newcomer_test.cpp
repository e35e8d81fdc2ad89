// The whole story of a new user, from the data to a finished graph, by keys and mouse alone.
#include <gmock/gmock.h>

#include <QTest>

#include "tests/story/desktop.h"
#include "tests/story/story.h"

namespace kurv::test {
namespace {

using testing::HasSubstr;

constexpr QPoint kDragged(-300, 120);  // pixels

class Newcomer : public Story {
 protected:
  Newcomer() : Story("kept.gdf") {}

  void import_two_of_the_columns();
  void hide_and_rename();
  void add_a_function();
  void set_limits();
  void save_as_a_new_file();
  void drag_the_legend();
  void edit_a_cell();
};

// File > Open, the path, the second column as x, and not the first one as a curve.
void Newcomer::import_two_of_the_columns() {
  write("flows.csv",
        "number,time,up,down,noise\n"
        "1,10,2,90,7\n2,11,4,81,3\n3,12,6,72,9\n4,13,8,63,1\n5,14,10,54,5\n");
  press({"alt+f", "o"});
  ASSERT_TRUE(comes_to_front("Open"));
  type(path("flows.csv"));
  press({"Return"});
  ASSERT_TRUE(comes_to_front("Import flows.csv"));
  press({"Down", "alt+c", "space", "alt+t"});
  type("Two flows");
  press({"Return"});
  ASSERT_TRUE(comes_to_front("flows.csv \u2013 kurv"));
}

void Newcomer::hide_and_rename() {
  press({"alt+g", "c"});
  ASSERT_TRUE(comes_to_front("Curves"));
  press({"End", "space", "Up", "alt+r"});
  ASSERT_TRUE(comes_to_front("KURV Guide"));
  type("outflow");
  press({"Return"});
  ASSERT_TRUE(comes_to_front("Curves"));
}

void Newcomer::add_a_function() {
  press({"alt+f", "alt+a"});
  ASSERT_TRUE(comes_to_front("KURV"));
  type("3*x+sin(x)");
  press({"Return"});
  ASSERT_TRUE(comes_to_front("Curves"));
  press({"alt+c"});
  ASSERT_TRUE(comes_to_front("flows.csv* \u2013 kurv"));
}

// They do not follow the data any more, or the next change of the data would undo them.
void Newcomer::set_limits() {
  press({"ctrl+d"});
  ASSERT_TRUE(comes_to_front("Graph Properties"));
  press({"alt+f", "alt+x", "alt+m", "ctrl+a"});
  type("8");
  press({"alt+u"});
  type("18");
  press({"alt+n"});
  type("-20");
  press({"alt+i"});
  type("120");
  press({"alt+a", "alt+c"});
  ASSERT_TRUE(comes_to_front("flows.csv* \u2013 kurv"));
}

void Newcomer::save_as_a_new_file() {
  press({"ctrl+s"});
  ASSERT_TRUE(comes_to_front("Save As"));
  type(path("kept"));
  press({"Return"});
  ASSERT_TRUE(comes_to_front(saved_title()));
}

// It is where the graph file says.
void Newcomer::drag_the_legend() {
  Plot plot;
  ASSERT_NO_FATAL_FAILURE(find_plot(plot));
  drag(legend_in(plot), legend_in(plot) + kDragged);
  ASSERT_TRUE(comes_to_front(changed_title()));
}

// The third point of the first curve.
void Newcomer::edit_a_cell() {
  press({"alt+e", "t"});
  ASSERT_TRUE(comes_to_front("Data Table"));
  press({"Down", "Down", "Right"});
  type("44.5");
  press({"Return", "alt+c"});
  ASSERT_TRUE(comes_to_front(changed_title()));
}

TEST_F(Newcomer, FindsEverythingAgainThatWasDoneToTheGraph) {
  start({});
  ASSERT_TRUE(comes_to_front("kurv"));
  ASSERT_NO_FATAL_FAILURE(import_two_of_the_columns());
  ASSERT_NO_FATAL_FAILURE(hide_and_rename());
  ASSERT_NO_FATAL_FAILURE(add_a_function());
  ASSERT_NO_FATAL_FAILURE(set_limits());
  ASSERT_NO_FATAL_FAILURE(save_as_a_new_file());
  QStringList expected = saved_lines();
  ASSERT_NO_FATAL_FAILURE(drag_the_legend());
  ASSERT_NO_FATAL_FAILURE(edit_a_cell());
  ASSERT_NO_FATAL_FAILURE(save());
  Plot plot;
  ASSERT_NO_FATAL_FAILURE(find_plot(plot));
  // The status bar says for five seconds that it was saved.
  QTest::qWait(6000);
  const QImage before = front_window().image;
  press({"ctrl+w"});
  ASSERT_NO_FATAL_FAILURE(expect_its_end());

  // The file says what was done, and nothing else has changed since it was saved first.
  EXPECT_EQ(text_of(expected.mid(kTitle - 1, 4)), "Two flows\n5\n3\n1");
  EXPECT_EQ(text_of(expected.mid(kLimits - 1, 4)), "-20 \n 120 \n 8 \n 18 ");
  EXPECT_EQ(text_of(expected.mid(kColumns - 1)),
            "10,11,12,13,14\n2,4,6,8,10\n90,81,72,63,54\n7,3,9,1,5\n"
            "time,up,outflow,noise\nTrue,True,False\n3*x+sin(x)\n");
  expected[kColumns] = "2,4,44.5,8,10";
  const auto move = [&](int line, int by) {
    const int twips = expected[line - 1].trimmed().toInt() + by * kTwipsPerPixel;
    expected[line - 1] = ' ' + QString::number(twips) + ' ';
  };
  move(kLegendLeft, kDragged.x());
  move(kLegendTop, kDragged.y());
  EXPECT_EQ(text_of(saved_lines()), text_of(expected));

  // So do the other commands of the program.
  const std::string info = printed_by(KURV_PROGRAM, {"info", graph()}).toStdString();
  EXPECT_THAT(info, HasSubstr("\"outflow\", 5 values, visible\n"));
  EXPECT_THAT(info, HasSubstr("\"noise\", 5 values, hidden\n"));
  EXPECT_THAT(info, HasSubstr("3*x+sin(x)\n"));
  const QString copy = path("copy.gdf");
  printed_by(KURV_PROGRAM, {"convert", graph(), "-o", copy});
  EXPECT_EQ(text_of(lines_of(copy).mid(kLimits - 1)), text_of(expected.mid(kLimits - 1)));

  start({graph()});
  ASSERT_TRUE(comes_to_front(saved_title()));
  ASSERT_NO_FATAL_FAILURE(find_plot(plot));
  EXPECT_TRUE(comes_true("the window looks as it did before",
                         [&] { return front_window().image == before; }));
  press({"ctrl+q"});
  ASSERT_NO_FATAL_FAILURE(expect_its_end());
}

}  // namespace
}  // namespace kurv::test
