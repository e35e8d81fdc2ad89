#include <KurvGraph/wheel_guard.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "dialogs/frm_curves.h"
#include "dialogs/frm_propert.h"

namespace kurv {
namespace {

bool turn(QWidget& field) {
  const QPointF place = QRectF(field.rect()).center();
  QWheelEvent event(place, field.mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(&field, &event);
  return event.isAccepted();
}

struct Fields : testing::Test {
  Fields() {
    auto* const column = new QVBoxLayout(page);
    list->addItems({"a", "b", "c"});
    typed->addItems({"a", "b", "c"});
    typed->setEditable(true);
    slider->setOrientation(Qt::Horizontal);
    for (QWidget* field : {static_cast<QWidget*>(list), static_cast<QWidget*>(typed),
                           static_cast<QWidget*>(number), static_cast<QWidget*>(slider)}) {
      column->addWidget(field);
    }
    page->setMinimumHeight(2000);
    window.setWidget(page);
    window.resize(300, 300);
    window.setFocusPolicy(Qt::StrongFocus);
    guard_wheel(window);
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    window.setFocus();
  }

  QScrollArea window;
  QWidget* page = new QWidget;
  QComboBox* list = new QComboBox;
  QComboBox* typed = new QComboBox;
  QSpinBox* number = new QSpinBox;
  QSlider* slider = new QSlider;
};

TEST_F(Fields, TurnOnlyWithTheFocus) {
  const auto state = [this] {
    return std::vector{list->currentIndex(), typed->currentIndex(), number->value(),
                       slider->value()};
  };
  const auto before = state();
  for (QWidget* field : {static_cast<QWidget*>(list), static_cast<QWidget*>(typed),
                         static_cast<QWidget*>(number), static_cast<QWidget*>(slider)}) {
    window.setFocus();
    EXPECT_FALSE(turn(*field)) << "it goes on to the page";
    EXPECT_EQ(state(), before);
    EXPECT_FALSE(field->hasFocus());
  }
  number->setValue(50);
  slider->setValue(50);
  for (QWidget* field : {static_cast<QWidget*>(list), static_cast<QWidget*>(typed),
                         static_cast<QWidget*>(number), static_cast<QWidget*>(slider)}) {
    const auto unchanged = state();
    field->setFocus();
    turn(*field);
    EXPECT_NE(state(), unchanged);
  }
}

TEST_F(Fields, TheScrollBarTurnsWithoutTheFocus) {
  turn(*window.verticalScrollBar());
  EXPECT_GT(window.verticalScrollBar()->value(), 0);
}

template <class Window>
void expect_guarded_lists() {
  Window window(nullptr);
  for (QComboBox* list : window.template findChildren<QComboBox*>()) {
    list->clear();
    list->addItems({"1", "2", "3"});
    list->setCurrentIndex(0);
    EXPECT_FALSE(turn(*list)) << list->objectName().toStdString();
    EXPECT_EQ(list->currentIndex(), 0) << list->objectName().toStdString();
    EXPECT_EQ(list->focusPolicy(), Qt::StrongFocus);
  }
}

TEST(WheelGuard, TheWindowsOfGraphsHaveIt) {
  expect_guarded_lists<frmPropert>();
  expect_guarded_lists<frmCurves>();
}

}  // namespace
}  // namespace kurv
