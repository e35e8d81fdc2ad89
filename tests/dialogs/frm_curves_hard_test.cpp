// The window when there is little to show, or something goes wrong.
#include "tests/dialogs/frm_curves_fixture.h"

namespace kurv {
namespace {

using test::FrmCurvesTest;
using testing::ElementsAre;

TEST_F(FrmCurvesTest, AFaultOfARedrawLeavesTheWindowWithWhatIsStored) {
  open_three();
  document().xmin = document().xmax;
  shell().inputs = {"better"};
  click("cmdYTitle");
  EXPECT_TRUE(client.fault.has_value());
  EXPECT_THAT(texts(lstScatters()), ElementsAre("better", "b", "flat"));
}

TEST_F(FrmCurvesTest, WithoutAClientNothingHappens) {
  open_three();
  window->set_client(nullptr);
  click_box(lstScatters(), 0);
  for (const char* name : {"cmdXLabel", "cmdYTitle", "cmdAddScatter", "cmdHideAllCurves",
                           "cmdShowAllCurves", "cmdAddFunc", "cmdEditFunc"}) {
    button(name).click();
  }
  choose_x(1);
  window->refill();
  EXPECT_EQ(client.handled, 0);
}

TEST_F(FrmCurvesTest, BeforeAGraphIsValidTheWindowWorksAndNothingIsDrawn) {
  open();
  EXPECT_EQ(lstScatters().count(), 3) << "the demonstration data";
  click_box(lstScatters(), 0);
  click("cmdHideAllCurves");
  choose_x(1);
  shell().inputs = {"name", "expression", "x"};
  click("cmdYTitle");
  EXPECT_FALSE(document().y_visible(2));
  EXPECT_EQ(client.redraws(), 0);
}

TEST_F(FrmCurvesTest, AnEmptyGraphOffersNothingToWorkOn) {
  document() = GraphDocument();
  open();
  EXPECT_EQ(cmbX().count(), 0);
  for (const char* name : {"cmdYTitle", "cmdHideAllCurves", "cmdShowAllCurves", "cmdEditFunc"}) {
    EXPECT_FALSE(button(name).isEnabled()) << name;
  }
  EXPECT_FALSE(cmbX().isEnabled());
  QTest::keyClick(&lstScatters(), Qt::Key_Space);
  QTest::keyClick(&lstScatters(), Qt::Key_F2);
  EXPECT_EQ(client.handled, 0);
}

}  // namespace
}  // namespace kurv
