// A new user makes a graph of a table of his own, makes mistakes in the windows on the way, and
// takes them back.
#include <QColor>
#include <cstdlib>

#include "tests/story/desktop.h"
#include "tests/story/screen_text.h"
#include "tests/story/story.h"

namespace kurv::test {
namespace {

constexpr QRgb kRingInk = 0xFF003C8C;
constexpr int kRingRadius = 6;
constexpr int kNearly = 40;  // of 255, as the ring is antialiased

// Whether a pixel there or near it has the colour of the ring.
bool has_ink(const QImage& screen, QPoint at) {
  const auto is_ink = [](QRgb pixel) {
    return std::abs(qRed(pixel) - qRed(kRingInk)) < kNearly &&
           std::abs(qGreen(pixel) - qGreen(kRingInk)) < kNearly &&
           std::abs(qBlue(pixel) - qBlue(kRingInk)) < kNearly;
  };
  for (int y = at.y() - 2; y <= at.y() + 2; ++y) {
    for (int x = at.x() - 2; x <= at.x() + 2; ++x) {
      if (is_ink(screen.pixel(x, y))) return true;
    }
  }
  return false;
}

class OwnTable : public Story {
 protected:
  OwnTable() : Story("flows.gdf") {}

  void import_and_save();
  void read_a_value();
  void type_into_a_wrong_cell();
  void edit_two_cells();
  void rename_wrongly();
  void mistype_a_function();
  void derive_needlessly();
  void mistype_a_limit();
};

// File > Open and the path. The import has understood the table.
void OwnTable::import_and_save() {
  write("flows.csv",
        "time,up,down\n"
        "10,20,90\n11,40,81\n12,60,72\n13,80,63\n14,10,54\n15,30,45\n16,50,36\n17,70,27\n");
  start({});
  ASSERT_TRUE(comes_to_front("kurv"));
  press({"ctrl+o"});
  ASSERT_TRUE(comes_to_front("Open"));
  type(path("flows.csv"));
  press({"Return"});
  ASSERT_TRUE(comes_to_front("Import flows.csv"));
  press({"Return"});
  ASSERT_TRUE(comes_to_front("flows.csv \u2013 kurv"));
  ASSERT_NO_FATAL_FAILURE(save_as_proposed());
}

// The nearest point has a ring, which is seen above it and on either side; the status bar names it.
void OwnTable::read_a_value() {
  Plot plot;
  ASSERT_NO_FATAL_FAILURE(find_plot(plot));
  const QPoint point = point_in(plot, 13, 80);
  point_at(point + QPoint(2, 2));
  EXPECT_TRUE(comes_to_show("up: x 13, y 80"));
  EXPECT_TRUE(comes_true("the point has a ring", [&] {
    const QImage screen = screen_image();
    return has_ink(screen, point - QPoint(kRingRadius, 0)) &&
           has_ink(screen, point + QPoint(kRingRadius, 0)) &&
           has_ink(screen, point - QPoint(0, kRingRadius));
  }));
  point_away();
  ASSERT_NO_FATAL_FAILURE(find_plot(plot));
}

// The table finds the row, and its own keys undo.
void OwnTable::type_into_a_wrong_cell() {
  press({"ctrl+t"});
  ASSERT_TRUE(comes_to_front("Data Table"));
  press({"ctrl+f"});
  type("12");
  ASSERT_TRUE(comes_to_show("Row 3, time"));
  press({"Escape", "Right"});
  type("9999");
  press({"Return"});
  expect_to_undo("Edit Cell");
  press({"ctrl+z"});
  expect_to_redo("Edit Cell");
  press({"alt+c"});
  ASSERT_TRUE(comes_to_front(saved_title()));
}

// Tab leads to the next column, Enter to the next row.
void OwnTable::edit_two_cells() {
  press({"ctrl+t"});
  ASSERT_TRUE(comes_to_front("Data Table"));
  press({"Down", "Down", "Right"});
  type("61");
  press({"Tab"});
  type("71");
  press({"Return"});
  type("62");
  press({"Return", "alt+c"});
  ASSERT_TRUE(comes_to_front(changed_title()));
  ASSERT_NO_FATAL_FAILURE(save());
  EXPECT_EQ(text_of(saved_lines().mid(kColumns - 1, 3)),
            "10,11,12,13,14,15,16,17\n20,40,61,80,10,30,50,70\n90,81,71,62,54,45,36,27");
}

// Undone by the key in the window where it was done.
void OwnTable::rename_wrongly() {
  press({"ctrl+u"});
  ASSERT_TRUE(comes_to_front("Curves"));
  press({"F2"});
  ASSERT_TRUE(comes_to_front("KURV Guide"));
  type("outflow");
  press({"Return"});
  ASSERT_TRUE(comes_to_front("Curves"));
  ASSERT_TRUE(comes_to_show("outflow"));
  press({"ctrl+z", "alt+c"});
  ASSERT_TRUE(comes_to_front(saved_title()));
  expect_to_redo("Rename Curve");
}

// The message says what is wrong, and nothing is drawn.
void OwnTable::mistype_a_function() {
  press({"ctrl+u"});
  ASSERT_TRUE(comes_to_front("Curves"));
  press({"alt+f", "alt+a"});
  ASSERT_TRUE(comes_to_front("KURV"));
  type("3*x+sin(x");
  press({"Return"});
  ASSERT_TRUE(comes_to_front("KURV Guide"));
  press({"Return"});
  ASSERT_TRUE(comes_to_front("Curves"));
  press({"alt+a"});
  ASSERT_TRUE(comes_to_front("KURV"));
  type("3*x+sin(x)");
  press({"Return"});
  ASSERT_TRUE(comes_to_front("Curves"));
  press({"alt+c"});
  ASSERT_TRUE(comes_to_front(changed_title()));
  expect_to_undo("Add Function");
  ASSERT_NO_FATAL_FAILURE(save());
}

void OwnTable::derive_needlessly() {
  press({"ctrl+u"});
  ASSERT_TRUE(comes_to_front("Curves"));
  press({"alt+d", "alt+v"});
  ASSERT_TRUE(comes_to_show("Step 1 of 2."));
  ASSERT_TRUE(comes_to_front("Add derived scatter curve"));
  type("total");
  press({"Return"});
  ASSERT_TRUE(comes_to_show("Step 2 of 2."));
  ASSERT_TRUE(comes_to_front("Add derived scatter curve"));
  type("up+down");
  press({"Return"});
  ASSERT_TRUE(comes_to_front("Curves"));
  press({"alt+c"});
  ASSERT_NO_FATAL_FAILURE(take_back("Add Derived Curve"));
}

// A minimum above the maximum is not stored, and the reason is beside the field; with another
// maximum both are, although they show nothing of the data.
void OwnTable::mistype_a_limit() {
  press({"ctrl+d"});
  ASSERT_TRUE(comes_to_front("Graph Properties"));
  press({"alt+x", "alt+m", "ctrl+a"});
  type("500");
  ASSERT_TRUE(comes_to_show("Minimum must be below maximum"));
  press({"alt+u", "ctrl+a"});
  type("600");
  press({"Return", "alt+c"});
  ASSERT_TRUE(comes_to_front(changed_title()));
  // Each of the two fields is a step.
  expect_to_undo("Change X Limits");
  press({"ctrl+z"});
  ASSERT_NO_FATAL_FAILURE(take_back("Change X Limits"));
}

TEST_F(OwnTable, IsDrawnAsItIsMeantAfterSomeMistakes) {
  ASSERT_NO_FATAL_FAILURE(import_and_save());
  ASSERT_NO_FATAL_FAILURE(read_a_value());
  ASSERT_NO_FATAL_FAILURE(type_into_a_wrong_cell());
  ASSERT_NO_FATAL_FAILURE(edit_two_cells());
  ASSERT_NO_FATAL_FAILURE(rename_wrongly());
  ASSERT_NO_FATAL_FAILURE(mistype_a_function());
  const QStringList expected = saved_lines();
  ASSERT_NO_FATAL_FAILURE(derive_needlessly());
  ASSERT_NO_FATAL_FAILURE(mistype_a_limit());
  Plot plot;
  ASSERT_NO_FATAL_FAILURE(find_plot(plot));

  // It is saved again already: of the mistakes nothing is left.
  press({"ctrl+w"});
  ASSERT_NO_FATAL_FAILURE(expect_its_end());
  EXPECT_EQ(text_of(saved_lines()), text_of(expected));
  EXPECT_EQ(text_of(expected.mid(kColumns + 2)), "time,up,down\nTrue,True\n3*x+sin(x)\n");
}

}  // namespace
}  // namespace kurv::test
