// Margins and marker sizes with units.
#include "control/property_pages.h"
#include "tests/dialogs/propert_support.h"

namespace kurv::test {

namespace {

struct Lengths : FrmPropert {
  Lengths() { QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany)); }
  ~Lengths() override { QLocale::setDefault(before); }

  std::string note(const char* name) { return find<QLabel>(name)->text().toStdString(); }

  const QLocale before;
};

TEST_F(Lengths, AMarginIsTwipsAndIsShownInMillimetresBesideTheField) {
  open(kGeneralPage);
  EXPECT_EQ(text("txtMarginTop"), "480");
  EXPECT_EQ(note("lblMarginTop"), "8.5 mm");
  EXPECT_EQ(note("lblMarginLeft"), "14.1 mm");
  type("txtMarginTop", "12 mm");
  EXPECT_EQ(note("lblMarginTop"), "12.0 mm");
  EXPECT_EQ(graph().Top_margine(), 480);
  press("txtMarginTop", Qt::Key_Return);
  EXPECT_EQ(graph().Top_margine(), 680);
  EXPECT_EQ(text("txtMarginTop"), "680");
  EXPECT_EQ(note("lblMarginTop"), "12.0 mm");
  EXPECT_TRUE(client.shell.messages.empty());
}

TEST_F(Lengths, EveryUnitIsTaken) {
  open(kGeneralPage);
  const std::pair<const char*, Integer> lengths[] = {{"0.5 in", 720}, {"40 px", 600},
                                                     {"30 pt", 600},  {"1 cm", 567},
                                                     {"0,5 in", 720}, {"800", 800}};
  for (const auto& [keys, twips] : lengths) {
    type("txtMarginLeft", keys);
    press("txtMarginLeft", Qt::Key_Return);
    EXPECT_EQ(graph().Left_margine(), twips) << keys;
  }
}

TEST_F(Lengths, WhatIsNoLengthIsSaidBesideTheField) {
  open(kGeneralPage);
  type("txtMarginTop", "12 miles");
  EXPECT_EQ(note("lblMarginTop"), "not a length");
  EXPECT_EQ(box("txtMarginTop")->accessibleDescription(), "not a length");
  press("txtMarginTop", Qt::Key_Return);
  EXPECT_EQ(client.shell.messages.size(), 1u);
  EXPECT_EQ(text("txtMarginTop"), "480");
  EXPECT_EQ(note("lblMarginTop"), "8.5 mm");
}

TEST_F(Lengths, AHugeMarginIsShownAsWhatItIsStoredAs) {
  open(kGeneralPage);
  type("txtMarginTop", "1e300");
  EXPECT_EQ(note("lblMarginTop"), "578.0 mm");
}

TEST_F(Lengths, AreShownInInchesWhereThoseAreUsual) {
  QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
  open(kGeneralPage);
  EXPECT_EQ(note("lblMarginTop"), "0.33 in");
}

TEST_F(Lengths, HaveTheSeparatorOfTheGraph) {
  graph().set_decimal_separator(',');
  open(kGeneralPage);
  EXPECT_EQ(note("lblMarginTop"), "8,5 mm");
}

TEST_F(Lengths, AMarkerSizeHasAUnitToo) {
  open(kLinesPage);
  EXPECT_EQ(note("lblMarkerLength"), "0.7 mm");
  type("txtMarkerSize", "1 mm");
  EXPECT_EQ(graph().MarkerSize(), 57);
  EXPECT_FALSE(is_red("txtMarkerSize"));
  EXPECT_EQ(note("lblMarkerLength"), "1.0 mm");
  type("txtMarkerSize", "250");
  EXPECT_TRUE(is_red("txtMarkerSize"));
  EXPECT_EQ(note("lblMarkerLength"), "must be 10 to 200");
  type("txtMarkerSize", "x");
  EXPECT_EQ(note("lblMarkerLength"), "not a length");
}

}  // namespace

}  // namespace kurv::test
