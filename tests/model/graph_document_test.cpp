#include "model/graph_document.h"

#include <gtest/gtest.h>

namespace kurv {
namespace {

TEST(GraphDocument, StartsWithItsDefaults) {
  const GraphDocument document;
  EXPECT_FALSE(document.GraphValid);
  EXPECT_EQ(document.NumData, 0);
  EXPECT_EQ(document.NumY, 0);
  EXPECT_EQ(document.NumYFunc, 0);
  EXPECT_FALSE(document.Connected);
  EXPECT_TRUE(document.Autoscale.is_exactly_true());
  EXPECT_EQ(document.ymin, 0);
  EXPECT_EQ(document.ymax, 0);
  EXPECT_EQ(document.xmin, 0);
  EXPECT_EQ(document.xmax, 0);
  EXPECT_EQ(document.Top_margine, 480);
  EXPECT_EQ(document.Left_margine, 800);
  EXPECT_EQ(document.Right_margine, 800);
  EXPECT_EQ(document.Bottom_margine, 520);
  EXPECT_EQ(document.Title, "Graph Title");
  EXPECT_EQ(document.SubTitle, "");
  EXPECT_EQ(document.NumTicks, 10);
  EXPECT_EQ(document.AxisLabelFormatX, "0.00");
  EXPECT_EQ(document.AxisLabelFormatY, "0.0");
  EXPECT_FALSE(document.DrawMarkers);
  EXPECT_TRUE(document.XLimitsExact.is_exactly_true());
  EXPECT_FALSE(document.YLimitsExact);
  EXPECT_FALSE(document.SortXY);
  EXPECT_EQ(document.MarkerSize, 40);
  EXPECT_EQ(document.MarkerDrawSize, 200.0 / 6);
  EXPECT_EQ(document.BorderWidth, 2);
  EXPECT_EQ(document.CurvesWidth, 1);
  EXPECT_FALSE(document.Y_grid);
  EXPECT_FALSE(document.X_grid);
  EXPECT_TRUE(document.TitleFontBold.is_exactly_true());
  EXPECT_FALSE(document.QueryForSave);
  EXPECT_FALSE(document.GraphSaved);
  EXPECT_FALSE(document.DataFromHost);
}

TEST(GraphDocument, DrawSizeFollowsMarkerSize) {
  GraphDocument document;
  set_marker_size(document, 12);
  EXPECT_EQ(document.MarkerSize, 12);
  EXPECT_EQ(document.MarkerDrawSize, 10);
}

TEST(GraphDocument, FunctionSlotsGoFromZeroToThirty) {
  GraphDocument document;
  EXPECT_EQ(document.y_func(0).expression, "");
  EXPECT_EQ(document.y_func(30).expression, "");
  EXPECT_THROW(document.y_func(31), Fault);
  EXPECT_THROW(document.y_func(-1), Fault);
}

TEST(GraphDocument, ArraysAreEmptyAndChecked) {
  GraphDocument document;
  EXPECT_THROW(document.xyArr(1, 1), Fault);
  EXPECT_THROW(document.yVarName(0), Fault);
  EXPECT_THROW(document.y_visible(0), Fault);
}

TEST(GraphDocument, ResetForgetsFileAndTitleTogether) {
  GraphDocument document;
  document.FileName = "/tmp/a.gdf";
  document.SavedTitle = "A";
  reset_file(document);
  EXPECT_EQ(document.FileName, "");
  EXPECT_EQ(document.SavedTitle, "");
}

TEST(GraphDocument, FontsComeFromTheirGroups) {
  GraphDocument document;
  document.FontName = "a";
  document.FontSize = 7;
  document.FontItalic = Boolean::from_bits(1);  // any non-zero flag is a set one
  document.TitleFontName = "b";
  document.SubTitleFontName = "c";
  EXPECT_EQ(axis_font(document), (Font{"a", 7, false, true}));
  EXPECT_EQ(title_font(document), (Font{"b", 0, true, false}));
  EXPECT_EQ(subtitle_font(document), (Font{"c", 0, false, false}));
}

}  // namespace
}  // namespace kurv
