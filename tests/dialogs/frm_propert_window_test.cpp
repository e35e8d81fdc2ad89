// Tabs, names, mnemonics and the tab order of the window.
#include <QAbstractButton>
#include <QKeySequence>
#include <QScrollArea>
#include <QTabBar>
#include <map>

#include "control/property_pages.h"
#include "tests/dialogs/propert_support.h"

namespace kurv::test {

namespace {

constexpr Integer kPages[] = {kGeneralPage, kTitlesPage, kAxesPage, kLinesPage};

QString visible_caption(const QWidget* widget) {
  if (!widget->isVisible()) return {};
  if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) return button->text();
  const auto* label = qobject_cast<const QLabel*>(widget);
  return label && label->buddy() ? label->text() : QString();
}

bool can_be_used(const QWidget* widget) {
  return qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QComboBox*>(widget) ||
         qobject_cast<const QAbstractButton*>(widget);
}

TEST_F(FrmPropert, ThePageChoosesTheTab) {
  const std::pair<int, int> tabs[] = {{0, 0}, {1, 1}, {2, 2}, {4, 3}, {3, 0}, {5, 0}, {-1, 0}};
  for (const auto& [page, tab] : tabs) {
    window->init(static_cast<Integer>(page));
    EXPECT_EQ(find<QTabWidget>("tabCurves")->currentIndex(), tab) << page;
  }
}

TEST_F(FrmPropert, BeginsInTheFirstFieldOfThePage) {
  open(kTitlesPage);
  EXPECT_EQ(window->focusWidget(), box("txtTitle"));
  open(kAxesPage);
  EXPECT_EQ(window->focusWidget(), box("txtXAxis_2"));
}

TEST_F(FrmPropert, EveryNamedPartIsThere) {
  for (const char* name :
       {"Frame1",         "Frame2",         "Frame3",         "Frame4",          "Label2",
        "Label3",         "Label4",         "Label5",         "Label10",         "Label11",
        "Label12",        "Label13",        "Label14",        "Label15",         "Label16",
        "lblMarkerSize",  "txtTitle",       "txtSubTitle",    "txtXAxis_1",      "txtXAxis_2",
        "txtYAxis_1",     "txtYAxis_2",     "txtMarginTop",   "txtMarginBottom", "txtMarginLeft",
        "txtMarginRight", "txtAxisTicks",   "txtMarkerSize",  "chkAutoScale",    "chkConnected",
        "chkDrawPoints",  "chkSort",        "chkXGrids",      "chkYGrids",       "chkXZoom",
        "chkYZoom",       "cmbCurvesWidth", "cmbBorderWidth", "cmbXFormat",      "cmbYFormat",
        "cmdApply",       "cmdRestoreXY",   "cmdFonts_0",     "cmdFonts_1",      "cmdFonts_2",
        "cmdClose",       "tabCurves"}) {
    EXPECT_EQ(window->findChildren<QWidget*>(QLatin1String(name)).size(), 1) << name;
  }
  EXPECT_EQ(window->objectName(), "frmPropert");
}

TEST_F(FrmPropert, NoMnemonicIsUsedTwiceAmongVisibleControls) {
  graph().set_DrawMarkers(true);
  for (const Integer page : kPages) {
    open(page);
    std::map<QString, QString> captions;
    const auto add = [&](const QString& caption) {
      const QString letter = QKeySequence::mnemonic(caption).toString();
      ASSERT_FALSE(letter.isEmpty()) << caption.toStdString();
      EXPECT_TRUE(captions.emplace(letter, caption).second)
          << caption.toStdString() << " and " << captions[letter].toStdString();
    };
    const auto* tabs = find<QTabWidget>("tabCurves");
    for (int i = 0; i < tabs->count(); ++i) add(tabs->tabText(i));
    for (const QWidget* widget : window->findChildren<QWidget*>()) {
      if (const QString caption = visible_caption(widget); !caption.isEmpty()) add(caption);
    }
    EXPECT_GE(captions.size(), 11u);
  }
}

TEST_F(FrmPropert, EveryFieldHasAMnemonicAndAName) {
  std::vector<const QWidget*> labelled;
  for (const QLabel* label : window->findChildren<QLabel*>()) labelled.push_back(label->buddy());
  int fields = 0;
  for (const char* prefix : {"txt", "cmb"}) {
    for (const QWidget* field : window->findChildren<QWidget*>()) {
      if (!field->objectName().startsWith(QLatin1String(prefix))) continue;
      ++fields;
      const std::string name = field->objectName().toStdString();
      EXPECT_TRUE(can_be_used(field)) << name;
      EXPECT_EQ(std::count(labelled.begin(), labelled.end(), field), 1) << name;
      EXPECT_FALSE(field->accessibleName().isEmpty()) << name;
    }
  }
  EXPECT_EQ(fields, 16);
}

TEST_F(FrmPropert, FontButtonsHaveAccessibleNames) {
  EXPECT_EQ(find<QPushButton>("cmdFonts_0")->accessibleName(), "Font of the axes and the legend");
  EXPECT_EQ(find<QPushButton>("cmdFonts_1")->accessibleName(), "Font of the title");
  EXPECT_EQ(find<QPushButton>("cmdFonts_2")->accessibleName(), "Font of the subtitle");
}

TEST_F(FrmPropert, MnemonicsFocusTheirFields) {
  open(kGeneralPage);
  QTest::keyClick(window.data(), Qt::Key_P, Qt::AltModifier);
  EXPECT_EQ(window->focusWidget(), box("txtMarginTop"));
  QTest::keyClick(window.data(), Qt::Key_X, Qt::AltModifier);
  EXPECT_EQ(find<QTabWidget>("tabCurves")->currentIndex(), 2);
  QTest::keyClick(window.data(), Qt::Key_K, Qt::AltModifier);
  EXPECT_EQ(window->focusWidget(), box("txtAxisTicks"));
}

TEST_F(FrmPropert, TabGoesDownThePageAndToTheButtons) {
  open(kAxesPage);
  const char* const way[] = {"txtXAxis_2",   "txtXAxis_1",     "chkXZoom",  "cmbXFormat",
                             "txtYAxis_2",   "txtYAxis_1",     "chkYZoom",  "cmbYFormat",
                             "txtAxisTicks", "cmdRoundLimits", "chkXGrids", "chkYGrids",
                             "cmdRestoreXY", "cmdApply",       "cmdClose"};
  for (const char* name : way) {
    EXPECT_EQ(window->focusWidget()->objectName(), name);
    QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
  }
  EXPECT_TRUE(qobject_cast<QTabBar*>(window->focusWidget()));
}

TEST_F(FrmPropert, ScrollsOnAScreenThatIsTooSmallForIt) {
  open(kAxesPage);
  window->resize(window->minimumSizeHint());
  const QWidget* const last = find<QWidget>("chkYGrids");
  EXPECT_TRUE(last->visibleRegion().isEmpty());
  find<QWidget>("chkXGrids")->setFocus();
  press("chkXGrids", Qt::Key_Tab);
  EXPECT_EQ(window->focusWidget(), last);
  EXPECT_FALSE(last->visibleRegion().isEmpty());
}

TEST_F(FrmPropert, NothingIsCutOffAtItsFirstSize) {
  for (const Integer page : kPages) {
    open(page);
    const auto* area = qobject_cast<QScrollArea*>(find<QTabWidget>("tabCurves")->currentWidget());
    ASSERT_NE(area, nullptr);
    EXPECT_GE(area->viewport()->width(), area->widget()->minimumSizeHint().width()) << page;
    EXPECT_GE(area->viewport()->height(), area->widget()->minimumSizeHint().height()) << page;
  }
}

}  // namespace

}  // namespace kurv::test
