// A form with the widget, compiled by uic as in the build of a program.
#include <gtest/gtest.h>

#include <QMainWindow>

#include "ui_growth.h"

namespace {

TEST(CompiledForm, HasTheGraphWithItsProperties) {
  QMainWindow window;
  Ui::Growth form;
  form.setupUi(&window);
  EXPECT_EQ(form.graph->Title(), "Growth");
  EXPECT_EQ(form.graph->NumTicks(), 8);
  EXPECT_EQ(form.graph->ymin(), 0);
  EXPECT_EQ(form.graph->ymax(), 12.5);
  EXPECT_EQ(form.graph->AxisLabelFormatX(), "0");
  EXPECT_TRUE(form.graph->X_grid());
  EXPECT_FALSE(form.graph->toolbar_visible());
  EXPECT_FALSE(form.graph->design_mode());

  window.resize(640, 480);
  window.show();
  form.graph->plot({.title = "Heights", .x = {1, 2, 3}, .y = {{"height", {1, 4, 9}}}});
  EXPECT_TRUE(form.graph->has_graph());
  EXPECT_EQ(form.graph->Title(), "Heights");
}

}  // namespace
