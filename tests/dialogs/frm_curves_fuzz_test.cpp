// A user who does anything at any time, with any answer.
#include <random>

#include "tests/dialogs/frm_curves_fixture.h"

namespace kurv {
namespace {

using test::FrmCurvesTest;

class FrmCurvesFuzz : public FrmCurvesTest {
 protected:
  int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random); }

  void click_any_box(QListWidget& list) {
    if (list.count() == 0) return;
    const int row = below(list.count());
    list.scrollToItem(list.item(row));
    click_box(list, row);
  }
  void click_any_button() {
    const char* const answers[] = {"",   " ",   "x",   "sin(x)", "d1",
                                   "d2", "a+b", "1/0", "(((",    "<b>&amp;</b>",
                                   "y",  "x*x", "NaN", "d1*2"};
    const char* const buttons[] = {"cmdXLabel",        "cmdYTitle",    "cmdAddScatter",
                                   "cmdAddFunc",       "cmdEditFunc",  "cmdHideAllCurves",
                                   "cmdShowAllCurves", "cmdFuncLabel", "cmdFuncColor"};
    // The wizard asks again until it has an answer that it takes or none.
    for (int i = 0; i < 3; ++i) shell().inputs.emplace_back(answers[below(14)]);
    click(buttons[below(9)]);
    shell().inputs.clear();
  }
  void do_anything() {
    get<QTabWidget>("tabCurves").setCurrentIndex(below(2));
    switch (below(5)) {
      case 0:
        return click_any_box(lstScatters());
      case 1:
        return click_any_box(lstFuncs());
      case 2:
        if (cmbX().count() > 0) choose_x(below(cmbX().count()));
        return;
      case 3:
        document().SortXY = below(2) == 0;
        document().Autoscale = below(2) == 0;
        return;
      default:
        return click_any_button();
    }
  }
  void expect_window_and_graph_agree() {
    ASSERT_EQ(lstScatters().count(), document().NumY);
    for (int k = 1; k <= document().NumY; ++k) {
      EXPECT_EQ(texts(lstScatters())[static_cast<std::size_t>(k - 1)], document().yVarName(k + 1));
      EXPECT_EQ(ticks(lstScatters())[static_cast<std::size_t>(k - 1)],
                static_cast<bool>(document().y_visible(k)));
    }
    ASSERT_EQ(lstFuncs().count(), document().NumYFunc);
    for (int k = 1; k <= document().NumYFunc; ++k) {
      EXPECT_EQ(texts(lstFuncs())[static_cast<std::size_t>(k - 1)],
                document().y_func(k).expression);
      EXPECT_EQ(ticks(lstFuncs())[static_cast<std::size_t>(k - 1)],
                static_cast<bool>(document().y_func(k).visible));
    }
  }

  std::mt19937 random{20201};
};

TEST_F(FrmCurvesFuzz, TheWindowAndTheGraphAgreeWhateverTheUserDoes) {
  open_three();
  for (int step = 0; step < 1500 && !HasFailure(); ++step) {
    do_anything();
    expect_window_and_graph_agree();
  }
  EXPECT_GT(document().NumY, 3) << "some answers have been taken";
  EXPECT_GT(document().NumYFunc, 2);
}

}  // namespace
}  // namespace kurv
