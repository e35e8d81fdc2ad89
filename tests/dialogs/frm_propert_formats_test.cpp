// Number formats that are chosen or typed, and what they make of the first label.
#include <QAbstractItemView>

#include "control/property_pages.h"
#include "tests/dialogs/propert_support.h"

namespace kurv::test {

namespace {

struct Formats : FrmPropert {
  Formats() {
    graph().set_xmin(315.7);
    graph().set_xmax(400);
    graph().set_AxisLabelFormatX("0.00");
    open(kAxesPage);
  }

  void type_format(const char* keys) {
    QLineEdit* const field = list("cmbXFormat")->lineEdit();
    list("cmbXFormat")->setFocus();
    field->selectAll();
    QTest::keyClicks(field, QLatin1String(keys));
  }
  std::string note() { return find<QLabel>("lblXFormat")->text().toStdString(); }
  bool is_refused() {
    return list("cmbXFormat")->lineEdit()->palette().color(QPalette::Text) == QColor(255, 0, 0);
  }
};

TEST_F(Formats, EachIsShownWithTheFirstLabel) {
  const QComboBox* const formats = list("cmbXFormat");
  EXPECT_EQ(formats->itemText(2), "0.00");
  EXPECT_EQ(formats->itemData(2, Qt::UserRole), "315.70");
  EXPECT_EQ(formats->itemData(0, Qt::UserRole), "316");
  EXPECT_EQ(formats->itemData(7, Qt::UserRole), "3.16E+2");
  EXPECT_EQ(formats->itemData(2, Qt::AccessibleTextRole), "0.00, first label 315.70");
  EXPECT_EQ(note(), "First label: 315.70");
}

TEST_F(Formats, TheLabelFollowsTheLimitAndTheFormat) {
  type("txtXAxis_2", "20");
  EXPECT_EQ(note(), "First label: 20.00");
  EXPECT_EQ(list("cmbXFormat")->itemData(0, Qt::UserRole), "20");
  press("cmbXFormat", Qt::Key_Down);
  EXPECT_EQ(note(), "First label: 20.000");
}

TEST_F(Formats, OneThatARedrawHasChosenIsShown) {
  graph().set_round_limits(true);
  graph().update_limits();
  window->refill();
  type("txtXAxis_1", "3.125");
  press("txtXAxis_1", Qt::Key_Return);
  EXPECT_EQ(list("cmbXFormat")->currentText().toStdString(), graph().AxisLabelFormatX());
}

TEST_F(Formats, ATypedOneIsStoredAndDrawn) {
  client.redraws();
  type_format("#,##0.0 m");
  EXPECT_EQ(graph().AxisLabelFormatX(), "#,##0.0 m");
  EXPECT_EQ(note(), "First label: 315.7 m");
  EXPECT_GE(client.redraws(), 1);
  EXPECT_FALSE(is_refused());
  press("cmbXFormat", Qt::Key_Tab);
  EXPECT_EQ(list("cmbXFormat")->currentText(), "#,##0.0 m");
}

TEST_F(Formats, WhatIsTypedIsOneStep) {
  graph().set_undo_enabled(true);
  type_format("0.0000");
  type_format("#0");
  graph().undo();
  EXPECT_EQ(graph().AxisLabelFormatX(), "0.00");
  EXPECT_FALSE(graph().undo_text());
}

TEST_F(Formats, ARefusedOneIsSaidBesideItAndNotStored) {
  type_format("abc");
  EXPECT_EQ(graph().AxisLabelFormatX(), "0.00");
  EXPECT_TRUE(is_refused());
  EXPECT_EQ(note(), "Shows no number: use 0 and #");
  EXPECT_EQ(list("cmbXFormat")->accessibleDescription().toStdString(), note());
  window->refill();
  EXPECT_EQ(list("cmbXFormat")->currentText(), "abc") << "while it is being typed";
  press("cmbXFormat", Qt::Key_Tab);
  EXPECT_EQ(list("cmbXFormat")->currentText(), "0.00");
  EXPECT_EQ(note(), "First label: 315.70");
  EXPECT_FALSE(is_refused());
  EXPECT_TRUE(client.shell.messages.empty());
}

TEST_F(Formats, TheCursorStaysWhereOneTypes) {
  type_format("0.0");
  QLineEdit* const field = list("cmbXFormat")->lineEdit();
  field->setCursorPosition(1);
  QTest::keyClicks(field, "0");
  EXPECT_EQ(field->text(), "00.0");
  window->refill();
  EXPECT_EQ(field->cursorPosition(), 2);
}

TEST_F(Formats, AnItemCanBeChosenAgainAfterAnotherTextWasTyped) {
  type_format("0.00 m");
  EXPECT_EQ(graph().AxisLabelFormatX(), "0.00 m");
  QComboBox* const formats = list("cmbXFormat");
  formats->showPopup();
  QTest::qWait(1);
  formats->view()->setCurrentIndex(formats->model()->index(2, 0));
  QTest::keyClick(formats->view(), Qt::Key_Return);
  EXPECT_EQ(graph().AxisLabelFormatX(), "0.00");
}

TEST_F(Formats, AHugeLabelIsCutOff) {
  graph().set_xmin(-1e300);
  window->refill();
  EXPECT_LT(note().size(), 60u);
}

TEST_F(Formats, ThePopupIsAsWideAsItsRows) {
  QComboBox* const formats = list("cmbXFormat");
  formats->showPopup();
  EXPECT_GE(formats->view()->viewport()->width(), formats->view()->sizeHintForColumn(0));
  formats->hidePopup();
}

}  // namespace

}  // namespace kurv::test
