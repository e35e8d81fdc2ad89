// The context menu that begins with what was clicked.
#include <gmock/gmock.h>

#include <QInputDialog>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QUndoStack>
#include <set>

#include "render/mapping.h"
#include "tests/qt/widget/plot_test.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;

QMenu* open_menu() {
  return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

std::vector<std::string> texts_of(const QMenu& menu) {
  std::vector<std::string> texts;
  for (const QAction* entry : menu.actions()) {
    if (!entry->isSeparator()) texts.push_back(entry->text().remove('&').toStdString());
  }
  return texts;
}

QAction* action(const char* name) {
  return open_menu()->findChild<QAction*>(name);
}

class ExtendedMenu : public PlotTest {
 protected:
  void SetUp() override {
    PlotTest::SetUp();
    m_graph.set_extended_menu(true);
    m_graph.undo_stack();
    process_all();
  }
  void TearDown() override {
    if (open_menu()) open_menu()->close();
  }

  void right_click(QPointF at) {
    if (open_menu()) open_menu()->close();
    Mouse(m_plot, Qt::RightButton).click(at);
    ASSERT_NE(open_menu(), nullptr);
  }
  // A point of the plot, in pixels.
  QPointF pixel(double x, double y) const {
    return *m_graph.pixel_of(x, y) - m_graph.plot_rect().topLeft();
  }
  QPointF on_curve() const { return pixel(1.5, 2.5); }  // of "a"
  QPointF row(int number) {
    const Rect& legend = m_graph.layout().picLegend;
    return QPointF(legend.left + legend.width / 2,
                   legend.top + legend.height * (number - 0.5) / 2) /
           15;
  }
  std::string top() { return texts_of(*open_menu()).front(); }

  void trigger(const char* name) {
    ASSERT_NE(action(name), nullptr) << name;
    action(name)->trigger();
    open_menu()->close();
    process_all();
  }
};

TEST_F(ExtendedMenu, HasTheCommandsForThePictureBetweenUndoAndTheWindows) {
  right_click(pixel(1.1, 4.9));
  EXPECT_THAT(texts_of(*open_menu()),
              ElementsAre("Undo", "Redo", "Copy Picture", "Save As…", "Print…", "Properties…",
                          "Curves and Functions…", "Data Table…", "Fonts", "Margins",
                          "Marker Size…", "X Axis Title…", "Add Function…", "Add Derived Curve…"));
  EXPECT_THAT(texts_of(*open_menu()->findChild<QMenu*>("mnuFonts")),
              ElementsAre("Axis Font…", "Title Font…", "Subtitle Font…"));
  EXPECT_THAT(texts_of(*open_menu()->findChild<QMenu*>("mnuMargins")),
              ElementsAre("Left Margin…", "Right Margin…", "Top Margin…", "Bottom Margin…"));
}

TEST_F(ExtendedMenu, BeginsWithWhatWasClicked) {
  right_click(on_curve());
  EXPECT_THAT(texts_of(*open_menu()).at(0), "Rename “a”…");
  EXPECT_THAT(texts_of(*open_menu()).at(1), "Hide “a”");
  right_click(on_curve() + QPointF(0, 5));
  EXPECT_EQ(top(), "Rename “a”…") << "near it";
  right_click(row(2));
  EXPECT_EQ(top(), "Rename “b”…");
  right_click(middle(m_graph.layout().imgTitle));
  EXPECT_EQ(top(), "Titles and Fonts…");
  right_click(middle(m_graph.layout().imgSubTitle));
  EXPECT_EQ(top(), "Titles and Fonts…");
  right_click(middle(m_graph.layout().shpXlabels));
  EXPECT_EQ(top(), "Axes…");
  right_click(middle(m_graph.layout().shpYlabels));
  EXPECT_EQ(top(), "Axes…");
  right_click(middle(m_graph.layout().shpXcaption));
  EXPECT_EQ(top(), "X Axis Title…");
}

TEST_F(ExtendedMenu, HasNoEntryTwiceAndALetterForEach) {
  const QPointF places[] = {on_curve(), middle(m_graph.layout().imgTitle),
                            middle(m_graph.layout().shpXlabels),
                            middle(m_graph.layout().shpXcaption), pixel(1.1, 4.9)};
  for (const QPointF& place : places) {
    right_click(place);
    std::set<QString> letters;
    std::set<std::string> texts;
    for (const QAction* entry : open_menu()->actions()) {
      if (entry->isSeparator()) continue;
      const QKeySequence mnemonic = QKeySequence::mnemonic(entry->text());
      EXPECT_FALSE(mnemonic.isEmpty()) << entry->text().toStdString();
      EXPECT_TRUE(letters.insert(mnemonic.toString()).second) << entry->text().toStdString();
      EXPECT_TRUE(texts.insert(entry->text().toStdString()).second) << entry->text().toStdString();
    }
  }
}

TEST_F(ExtendedMenu, HidesACurveInOneStep) {
  right_click(on_curve());
  trigger("mnuHideCurve");
  EXPECT_FALSE(m_graph.document().y_visible(1));
  EXPECT_EQ(m_graph.undo_stack()->count(), 1);
  EXPECT_EQ(m_graph.undo_stack()->undoText(), "Hide Curve");
  right_click(on_curve());
  EXPECT_EQ(top(), "Undo Hide Curve");
  trigger("mnuUndo");
  EXPECT_TRUE(m_graph.document().y_visible(1));
}

TEST_F(ExtendedMenu, RenamesACurveInOneStep) {
  right_click(row(2));
  QTimer::singleShot(50, [] {
    auto* const prompt = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(prompt, nullptr);
    EXPECT_EQ(prompt->textValue(), "b");
    prompt->setTextValue("better");
    prompt->accept();
  });
  trigger("mnuRenameCurve");
  EXPECT_EQ(m_graph.document().yVarName(3), "better");
  EXPECT_EQ(m_graph.undo_stack()->undoText(), "Rename Curve");
  EXPECT_EQ(m_graph.undo_stack()->count(), 1);
}

TEST_F(ExtendedMenu, DoesNothingToACurveThatHasGoneMeanwhile) {
  right_click(on_curve());
  m_graph.plot({.title = "Other", .x = {1, 2}, .y = {{"c", {1, 2}}}});
  trigger("mnuHideCurve");
  EXPECT_TRUE(m_graph.document().y_visible(1));
}

TEST_F(ExtendedMenu, ShortensALongNameAndShowsAnAmpersand) {
  m_graph.plot({.title = "Other", .x = {1, 2, 3}, .y = {{"R&D", {1, 4, 2}}}});
  right_click(on_curve());
  EXPECT_EQ(open_menu()->actions().front()->text().toStdString(), "Re&name “R&&D”…");
  m_graph.plot({.title = "Other", .x = {1, 2, 3}, .y = {{QString(300, 'w'), {1, 4, 2}}}});
  right_click(on_curve());
  EXPECT_LT(top().size(), 60U);
}

TEST_F(ExtendedMenu, OpensTheWindowOfWhatWasClicked) {
  ShownWindows windows;
  right_click(middle(m_graph.layout().shpXlabels));
  trigger("mnuAxes");
  EXPECT_THAT(windows.names(), ElementsAre("frmPropert A&xes"));
  right_click(on_curve());
  trigger("mnuProperties");
  EXPECT_EQ(windows.names().size(), 1);
}

TEST_F(ExtendedMenu, HasTheActionsOfTheHostInPlaceOfItsOwn) {
  QAction copy("&Copy Everything");
  m_graph.addAction(&copy);
  right_click(pixel(1.1, 4.9));
  EXPECT_THAT(texts_of(*open_menu()),
              ElementsAre("Undo", "Redo", "Copy Everything", "Properties…", "Curves and Functions…",
                          "Data Table…", "Fonts", "Margins", "Marker Size…", "X Axis Title…",
                          "Add Function…", "Add Derived Curve…"));
}

TEST_F(ExtendedMenu, OfTheKeyboardIsAboutTheFocusedPart) {
  m_plot.focus_on(HitTarget(Region::kYLabels));
  QTest::keyClick(&m_graph, Qt::Key_F10, Qt::ShiftModifier);
  ASSERT_NE(open_menu(), nullptr);
  EXPECT_EQ(top(), "Axes…");
}

TEST_F(ExtendedMenu, OfTheKeyboardIsAboutTheCurveThatItIsOn) {
  m_graph.set_readout_enabled(true);
  QApplication::setActiveWindow(&m_graph);
  m_plot.focus_on(Region::kFrame);
  QTest::keyClick(&m_plot, Qt::Key_Tab);
  QTest::keyClick(&m_plot, Qt::Key_Down);
  ASSERT_TRUE(m_plot.focused_point());
  QTest::keyClick(&m_graph, Qt::Key_F10, Qt::ShiftModifier);
  ASSERT_NE(open_menu(), nullptr);
  EXPECT_EQ(top(), "Rename “b”…");
  const QPoint ring = m_plot.mapToGlobal(m_plot.ring().center());
  EXPECT_LT((open_menu()->pos() - ring).manhattanLength(), 3);
  trigger("mnuHideCurve");
  EXPECT_FALSE(m_graph.document().y_visible(2));
}

TEST_F(ExtendedMenu, OfAFunctionCurveBeginsWithUndo) {
  EXPECT_EQ(m_graph.add_function("4.5"), std::nullopt);
  right_click(pixel(1.5, 4.5));
  EXPECT_EQ(top(), "Undo Add Function");
  open_menu()->close();
  m_graph.set_readout_enabled(true);
  QApplication::setActiveWindow(&m_graph);
  m_plot.focus_on(Region::kFrame);
  for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Down, Qt::Key_Down}) QTest::keyClick(&m_plot, key);
  ASSERT_TRUE(m_plot.focused_point() && m_plot.focused_point()->nearest->is_function);
  QTest::keyClick(&m_graph, Qt::Key_F10, Qt::ShiftModifier);
  ASSERT_NE(open_menu(), nullptr);
  EXPECT_EQ(top(), "Undo Add Function");
}

TEST_F(ExtendedMenu, IsOffByDefault) {
  EXPECT_FALSE(KurvGraph().extended_menu());
}

}  // namespace
}  // namespace kurv::test
