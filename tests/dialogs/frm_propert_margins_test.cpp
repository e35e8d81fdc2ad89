#include "control/property_pages.h"
#include "tests/dialogs/propert_support.h"

namespace kurv::test {

namespace {

struct MarginField {
  const char* name;
  Integer (Control::*get)() const;
};

constexpr MarginField kMargins[] = {{"txtMarginTop", &Control::Top_margine},
                                    {"txtMarginBottom", &Control::Bottom_margine},
                                    {"txtMarginLeft", &Control::Left_margine},
                                    {"txtMarginRight", &Control::Right_margine}};

TEST_F(FrmPropert, AMarginIsTakenOnReturn) {
  open(kGeneralPage);
  for (const MarginField& margin : kMargins) {
    const Integer before = (graph().*margin.get)();
    type(margin.name, "611");
    EXPECT_EQ((graph().*margin.get)(), before) << margin.name;
    EXPECT_EQ(client.redraws(), 0);
    press(margin.name, Qt::Key_Return);
    EXPECT_EQ((graph().*margin.get)(), 611) << margin.name;
    EXPECT_EQ(client.redraws(), 1);
  }
  EXPECT_TRUE(window->isVisible());
  EXPECT_TRUE(client.shell.messages.empty());
}

TEST_F(FrmPropert, AMarginIsTakenWhenTheFocusLeaves) {
  open(kGeneralPage);
  type("txtMarginLeft", "900");
  press("txtMarginLeft", Qt::Key_Tab);
  EXPECT_EQ(graph().Left_margine(), 900);
  EXPECT_EQ(client.redraws(), 1);
}

TEST_F(FrmPropert, AMarginIsTakenOnceHoweverOftenItIsEntered) {
  open(kGeneralPage);
  type("txtMarginLeft", "900");
  press("txtMarginLeft", Qt::Key_Return);
  press("txtMarginLeft", Qt::Key_Return);
  press("txtMarginLeft", Qt::Key_Tab);
  EXPECT_EQ(client.redraws(), 1);
}

TEST_F(FrmPropert, TheSameMarginChangesNothing) {
  open(kGeneralPage);
  type("txtMarginTop", "480");
  press("txtMarginTop", Qt::Key_Return);
  EXPECT_EQ(client.redraws(), 0);
  // A margin that was not edited is not checked either.
  graph().set_Top_margine(-5);
  window->refill();
  press("txtMarginTop", Qt::Key_Return);
  EXPECT_EQ(graph().Top_margine(), -5);
  EXPECT_TRUE(client.shell.messages.empty());
}

TEST_F(FrmPropert, ARefusedMarginIsToldOnceAndPutBack) {
  for (const char* keys : {"0", "-1", "abc", "NaN", "99999", "32768", "1e300", " "}) {
    open(kGeneralPage);
    client.shell.messages.clear();
    type("txtMarginTop", keys);
    press("txtMarginTop", Qt::Key_Return);
    press("txtMarginTop", Qt::Key_Tab);
    ASSERT_EQ(client.shell.messages.size(), 1u) << keys;
    EXPECT_EQ(client.shell.messages[0].text, "Invalid data entry.");
    EXPECT_EQ(client.shell.messages[0].flags, 16);
    EXPECT_EQ(client.shell.messages[0].title, "KURV Guide");
    EXPECT_EQ(text("txtMarginTop"), "480");
    EXPECT_EQ(graph().Top_margine(), 480);
  }
  EXPECT_EQ(client.redraws(), 0);
}

TEST_F(FrmPropert, TheMessageMayTakeTheFocusFromTheMargin) {
  open(kGeneralPage);
  client.shell.meanwhile = [&] {
    EXPECT_EQ(text("txtMarginTop"), "0");
    find<QWidget>("cmdApply")->setFocus();
    QApplication::processEvents();
  };
  type("txtMarginTop", "0");
  press("txtMarginTop", Qt::Key_Return);
  EXPECT_EQ(client.shell.messages.size(), 1u);
  EXPECT_EQ(text("txtMarginTop"), "480");
}

TEST_F(FrmPropert, GetsTheFocusBackFromTheMessage) {
  open(kGeneralPage);
  client.shell.meanwhile = [&] {
    QWidget message;
    message.show();
    message.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&message));
    EXPECT_FALSE(window->isActiveWindow());
  };
  type("txtMarginTop", "0");
  press("txtMarginTop", Qt::Key_Return);
  EXPECT_EQ(client.shell.messages.size(), 1u);
  EXPECT_TRUE(QTest::qWaitForWindowActive(window));
  EXPECT_EQ(window->focusWidget(), box("txtMarginTop"));
}

TEST_F(FrmPropert, AHugeMarginIsTheLargestThatTheSurfaceMayHaveRoomFor) {
  client.surface.set_size(40000, 40000);
  open(kGeneralPage);
  type("txtMarginTop", "50000");
  press("txtMarginTop", Qt::Key_Return);
  EXPECT_EQ(graph().Top_margine(), 32767);
  EXPECT_EQ(text("txtMarginTop"), "32767");
  EXPECT_EQ(client.redraws(), 1);
}

TEST_F(FrmPropert, TheWindowMayGoWhileTheMessageIsOpen) {
  open(kGeneralPage);
  client.shell.meanwhile = [&] { delete window.data(); };
  type("txtMarginTop", "0");
  press("txtMarginTop", Qt::Key_Return);
  EXPECT_TRUE(window.isNull());
  EXPECT_EQ(client.shell.messages.size(), 1u);
}

TEST_F(FrmPropert, ClosingTakesTheMarginThatWasBeingTyped) {
  open(kGeneralPage);
  type("txtMarginTop", "700");
  press("txtMarginTop", Qt::Key_Escape);
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(graph().Top_margine(), 700);
}

TEST_F(FrmPropert, TheWindowMayGoWhileAMarginIsRefusedAtItsEnd) {
  open(kGeneralPage);
  client.shell.meanwhile = [&] { delete window.data(); };
  type("txtMarginTop", "0");
  window->close();
  EXPECT_TRUE(window.isNull());
}

}  // namespace

}  // namespace kurv::test
