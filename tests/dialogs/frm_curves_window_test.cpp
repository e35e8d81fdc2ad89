// The window of the curves under a real keyboard and a real mouse.
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>

#include "tests/dialogs/window_support.h"

namespace kurv::test {
namespace {

using testing::StartsWith;

class CurvesWindow : public RealWindow {
 protected:
  CurvesWindow() : RealWindow("frmCurves", "curves") {}

  User& does(const QStringList& names) { return m_user.in_window("frmCurves", keys(names)); }
  // By Escape, which no prompt may still be there to take.
  void expect_closed_by_escape() {
    does({"Escape"});
    EXPECT_TRUE(m_user.is_done());
    EXPECT_EQ(window(), nullptr);
  }
};

TEST_F(CurvesWindow, SpaceTicksTheCurveWhereTheArrowsHaveLed) {
  does({"space"}).sees([&] { return !document().y_visible(1); });
  does({"Down", "space"}).sees([&] { return !document().y_visible(2); });
  does({"space"}).sees([&] { return bool(document().y_visible(2)); });
  expect_closed_by_escape();
  EXPECT_FALSE(document().y_visible(1));
  EXPECT_EQ(m_listener.redraws_since(), 3);
}

TEST_F(CurvesWindow, MnemonicsHideAndShowAllCurves) {
  does({"alt+h"}).sees([&] { return !document().y_visible(1) && !document().y_visible(2); });
  does({"alt+s"}).sees([&] { return document().y_visible(1) && document().y_visible(2); });
  expect_closed_by_escape();
}

TEST_F(CurvesWindow, F2RenamesTheSelectedCurve) {
  does({"Down", "F2"}).in<QInputDialog>(type("hours of sun")).sees([&] {
    return find<QListWidget>("lstScatters")->item(1)->text() == "hours of sun";
  });
  expect_closed_by_escape();
  EXPECT_EQ(document().yVarName(3), "hours of sun");
  EXPECT_EQ(document().yVarName(2), "a");
}

TEST_F(CurvesWindow, AnEscapedRenamingLeavesTheNameAndTheWindow) {
  does({"alt+r"}).in<QInputDialog>({"key", "Escape"});
  expect_closed_by_escape();
  EXPECT_EQ(document().yVarName(2), "a");
  EXPECT_EQ(m_listener.redraws_since(), 0);
}

TEST_F(CurvesWindow, TheArrowsChooseAnotherX) {
  does({"alt+x", "Down"}).sees([&] { return document().yVarName(1) == "a"; });
  expect_closed_by_escape();
  EXPECT_EQ(document().yVarName(2), "x");
  EXPECT_EQ(document().xyArrUnsorted(1, 2), 4);
  EXPECT_EQ(document().xmax, 4);
}

TEST_F(CurvesWindow, AFunctionIsAddedRefusedAndHidden) {
  does({"alt+f", "alt+a"}).in<QInputDialog>(type("x^2")).sees([&] {
    return find<QListWidget>("lstFuncs")->count() == 1;
  });
  does({"alt+a"}).in<QInputDialog>(type("x+q")).in<QMessageBox>({"key", "Return"});
  does({"alt+n", "space"}).sees([&] { return !document().y_func(1).visible; });
  expect_closed_by_escape();
  EXPECT_EQ(document().NumYFunc, 1);
  EXPECT_EQ(document().y_func(1).expression, "x^2");
  ASSERT_EQ(m_user.shown.size(), 3u);
  EXPECT_THAT(m_user.shown.back(), StartsWith("Only 'x' variable is allowed"));
}

TEST_F(CurvesWindow, AMouseTicksABoxAndCloses) {
  does({}).clicks([&] {
    const auto* const list = find<QListWidget>("lstScatters");
    const QRect row = list->visualItemRect(list->item(1));
    const QPoint box(row.left() + row.height() / 2, row.center().y());
    return list->viewport()->mapToGlobal(box);
  });
  m_user.sees([&] { return !document().y_visible(2); }).clicks([&] {
    const auto* const close = find<QPushButton>("cmdClose");
    return close->mapToGlobal(close->rect().center());
  });
  m_user.sees([&] { return !window(); });
  EXPECT_TRUE(m_user.is_done());
  EXPECT_TRUE(document().y_visible(1));
  EXPECT_FALSE(document().y_visible(2));
}

}  // namespace
}  // namespace kurv::test
