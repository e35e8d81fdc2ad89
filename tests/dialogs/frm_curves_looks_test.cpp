// What a person meets in the window: keys, names that are hard to show, and what a screen reader
// says.
#include <QAccessible>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <map>
#include <set>

#include "tests/dialogs/frm_curves_fixture.h"

namespace kurv {
namespace {

using test::FrmCurvesTest;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kNames[] = {
    "cmbX",          "lstScatters",      "lstFuncs",         "tabCurves",
    "fra",           "Label1",           "cmdXLabel",        "cmdYTitle",
    "cmdAddScatter", "cmdAddFunc",       "cmdEditFunc",      "cmdFuncLabel",
    "cmdFuncColor",  "cmdHideAllCurves", "cmdShowAllCurves", "cmdClose"};

// The letters that the keyboard reaches, with what each of them marks.
std::multimap<QChar, std::string> mnemonics(QWidget& window) {
  std::multimap<QChar, std::string> found;
  const auto note = [&found](const QString& text) {
    const qsizetype at = text.indexOf(u'&');
    if (at >= 0) found.emplace(text[at + 1].toUpper(), text.toStdString());
  };
  for (const QAbstractButton* button : window.findChildren<QAbstractButton*>())
    note(button->text());
  for (const QLabel* label : window.findChildren<QLabel*>()) note(label->text());
  for (const QTabBar* tabs : window.findChildren<QTabBar*>()) {
    for (int i = 0; i < tabs->count(); ++i) note(tabs->tabText(i));
  }
  return found;
}

TEST_F(FrmCurvesTest, EveryControlHasItsName) {
  open_three();
  for (const char* name : kNames) {
    EXPECT_NE(window->findChild<QWidget*>(QLatin1String(name)), nullptr) << name;
  }
  EXPECT_EQ(window->objectName(), "frmCurves");
}

TEST_F(FrmCurvesTest, NoLetterMarksTwoControls) {
  open_three();
  const auto found = mnemonics(*window);
  std::set<QChar> letters;
  for (const auto& [letter, text] : found) EXPECT_TRUE(letters.insert(letter).second) << text;
  EXPECT_EQ(found.size(), 15u) << "buttons, tabs, and the captions of three lists";
}

TEST_F(FrmCurvesTest, EveryControlThatTakesTheFocusHasALetterAndANameForScreenReaders) {
  open_three();
  for (const char* name : kNames) {
    QWidget& widget = get<QWidget>(name);
    if (!(widget.focusPolicy() & Qt::TabFocus) || widget.inherits("QTabWidget")) continue;
    QAccessibleInterface* const reader = QAccessible::queryAccessibleInterface(&widget);
    ASSERT_NE(reader, nullptr) << name;
    EXPECT_FALSE(reader->text(QAccessible::Name).isEmpty()) << name;
    const auto* const as_button = qobject_cast<QAbstractButton*>(&widget);
    bool has_letter = as_button && as_button->text().contains(u'&');
    for (const QLabel* label : window->findChildren<QLabel*>()) {
      has_letter = has_letter || (label->buddy() == &widget && label->text().contains(u'&'));
    }
    EXPECT_TRUE(has_letter) << name;
  }
}

TEST_F(FrmCurvesTest, EnterPressesNoButton) {
  open_three();
  for (const QPushButton* button : window->findChildren<QPushButton*>()) {
    EXPECT_FALSE(button->isDefault() || button->autoDefault())
        << button->objectName().toStdString();
  }
  lstScatters().setFocus();
  QTest::keyClick(&lstScatters(), Qt::Key_Return);
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(client.handled, 0);
}

TEST_F(FrmCurvesTest, EscapeAndCloseCloseTheWindow) {
  open_three();
  QTest::keyClick(&lstScatters(), Qt::Key_Escape);
  EXPECT_FALSE(window->isVisible());
  window->show();
  click("cmdClose");
  EXPECT_FALSE(window->isVisible());
}

TEST_F(FrmCurvesTest, TheFocusStartsWhereItChangesNothing) {
  open_three();
  EXPECT_EQ(window->focusWidget(), &lstScatters());
}

TEST_F(FrmCurvesTest, TabWalksThroughTheControlsFromTopToBottom) {
  open_three();
  cmbX().setFocus();
  std::vector<std::string> walked;
  for (int i = 0; i < 8; ++i) {
    QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
    walked.push_back(window->focusWidget()->objectName().toStdString());
  }
  EXPECT_THAT(walked,
              ElementsAre("cmdXLabel", "qt_tabwidget_tabbar", "lstScatters", "cmdYTitle",
                          "cmdAddScatter", "cmdHideAllCurves", "cmdShowAllCurves", "cmdClose"));
}

TEST_F(FrmCurvesTest, NamesAreShownToTheLetter) {
  const char* const hard[] = {
      "R&D", "<b>bold</b>", "two\r\nlines", "tab\there", "ünïcödé \xF0\x9F\x93\x88",
      "&&",  " blanks ",    "%1 %s \\n"};
  std::vector<std::vector<Double>> data{{1, 2}};
  std::vector<String> names{"x"};
  for (const char* name : hard) {
    data.push_back({3, 4});
    data.back()[1] += static_cast<Double>(data.size());
    names.emplace_back(name);
  }
  load(data, names, {"x&1", "<i>x</i>"});
  open();
  for (int row = 0; row < lstScatters().count(); ++row) {
    EXPECT_EQ(lstScatters().item(row)->text().toStdString(), hard[row]);
    const std::string tip = lstScatters().item(row)->toolTip().toStdString();
    EXPECT_THAT(tip, Not(HasSubstr("<b>bold")));
  }
  EXPECT_EQ(cmbX().itemText(3), "two  lines");
  for (int index = 1; index < cmbX().count(); ++index) {
    choose_x(index);
    EXPECT_EQ(document().yVarName(1), hard[index - 1]) << "chosen by its real name";
  }
  EXPECT_EQ(texts(lstFuncs()).front(), "x&1");
}

TEST_F(FrmCurvesTest, NamesThatAreNoUtf8AreChosenAndEditedAllTheSame) {
  load({{1, 2}, {3, 4}}, {"x", "caf\xE9"}, {"x*\xE9"});
  open();
  choose_x(1);
  EXPECT_EQ(document().yVarName(1), "caf\xE9");
  show_functions();
  shell().inputs = {"2*x"};
  click("cmdEditFunc");
  EXPECT_EQ(document().y_func(1).expression, "2*x");
}

TEST_F(FrmCurvesTest, VeryLongNamesWidenNothing) {
  open_three();
  const QSize before = window->minimumSizeHint();
  const String name(200000, 'w');
  load({{1, 2}, {3, 4}}, {name, name}, {String(5000, 'x')});
  window->refill();
  QApplication::processEvents();
  EXPECT_EQ(window->minimumSizeHint(), before);
  EXPECT_LE(lstScatters().visualItemRect(lstScatters().item(0)).width(),
            lstScatters().viewport()->width());
  EXPECT_LT(lstScatters().item(0)->toolTip().size(), 2000);
  EXPECT_FALSE(window->grab().isNull());
}

TEST_F(FrmCurvesTest, AsManyCurvesAndFunctionsAsThereCanBe) {
  std::vector<std::vector<Double>> data;
  std::vector<String> names;
  for (int c = 0; c < 150; ++c) {
    data.push_back({Double(c), Double(c + 1)});
    names.push_back("c" + std::to_string(c));
  }
  load(data, names, std::vector<String>(30, "x"));
  open();
  EXPECT_EQ(cmbX().count(), 150);
  EXPECT_EQ(lstScatters().count(), 149);
  EXPECT_EQ(lstFuncs().count(), 30);
  lstScatters().scrollToBottom();
  click_box(lstScatters(), 148);
  EXPECT_FALSE(document().y_visible(149));
  show_functions();
  lstFuncs().scrollToBottom();
  click_box(lstFuncs(), 29);
  EXPECT_FALSE(document().y_func(30).visible);
  EXPECT_FALSE(button("cmdAddScatter").isEnabled());
  EXPECT_TRUE(button("cmdAddFunc").isEnabled()) << "the command shows that there is no free slot";
}

TEST_F(FrmCurvesTest, CurvesShowASampleInTheirColour) {
  open_three();
  for (const auto& [row, colour] : {std::pair{0, QColor(0, 0, 128)}, {1, QColor(0, 128, 0)}}) {
    const QIcon icon = lstScatters().item(row)->icon();
    const QImage image = icon.pixmap(lstScatters().iconSize()).toImage();
    EXPECT_EQ(image.pixelColor(image.rect().center()), colour);
    EXPECT_EQ(image.pixelColor(image.width() / 2, 2), QColor(Qt::white));
  }
  EXPECT_TRUE(lstFuncs().item(0)->icon().isNull());
}

}  // namespace
}  // namespace kurv
