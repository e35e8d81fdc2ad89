// The bar above the plot that says what was left out of a table.
#include <QAbstractButton>
#include <QClipboard>
#include <QPlainTextEdit>

#include "tests/app/window/window_fixture.h"

namespace kurv::app {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class NoticeBarTest : public Windows {
 protected:
  std::string noted(const char* name = "noted.csv") const {
    return written(path(name), "x,y,state\n1,2,on\n2,3,off\n3,5,on\n");
  }
  std::string twice_noted() const {
    return written(path("twice.csv"), "x,y,state\n1,2,on\n2,3,off\n3\n4,6,on,9\n");
  }

  // Of which it is not known whether the day or the month is first.
  std::string guessed() const {
    return written(path("guessed.csv"), "day,v\n01/02/2023,1\n02/02/2023,2\n03/02/2023,5\n");
  }

  static void press_button(QDialog& dialog, const char* name) {
    auto* const button = dialog.findChild<QPushButton*>(name);
    if (!button) {
      ADD_FAILURE() << "no button " << name;
      return dialog.reject();
    }
    button->click();
  }
  static QWidget& bar(MainWindow* window) { return *window->findChild<QWidget*>("barNotices"); }
  static QAbstractButton& line(MainWindow* window) {
    return *window->findChild<QAbstractButton*>("cmdNotices");
  }
  static QAbstractButton& close_button(MainWindow* window) {
    return *window->findChild<QAbstractButton*>("cmdCloseNotices");
  }

  // Answers the window of all notes, and returns its text.
  void read_notes(QString& text) {
    answer<QDialog>([&](QDialog& dialog) {
      auto* const notes = dialog.findChild<QPlainTextEdit*>("txtNotes");
      ASSERT_NE(notes, nullptr);
      EXPECT_TRUE(notes->isReadOnly());
      EXPECT_TRUE(notes->textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
      text = notes->toPlainText();
      dialog.reject();
    });
  }
};

TEST_F(NoticeBarTest, SaysTheNoteOfATable) {
  MainWindow* const kurv = window_of(noted());
  EXPECT_TRUE(bar(kurv).isVisible());
  EXPECT_THAT(line(kurv).text().toStdString(), HasSubstr("\"state\""));
  EXPECT_EQ(line(kurv).accessibleName(), line(kurv).text());
}

TEST_F(NoticeBarTest, CountsSeveralNotesAndExplainsAllOfThem) {
  MainWindow* const kurv = window_of(twice_noted());
  const GraphSource source = load(path("twice.csv"), {});
  ASSERT_GT(source.data->warnings.size(), 1u);
  EXPECT_THAT(
      line(kurv).text().toStdString(),
      StartsWith(std::to_string(source.data->warnings.size()) + " notes about this table: "));
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_unknown}) {
    QString text;
    read_notes(text);
    if (key == Qt::Key_unknown) {
      QTest::mouseClick(&line(kurv), Qt::LeftButton);
    } else {
      QTest::keyClick(&line(kurv), key);
    }
    EXPECT_EQ(static_cast<std::size_t>(text.count("\n\n")), source.data->warnings.size() - 1);
    EXPECT_THAT(text.toStdString(), HasSubstr("\"state\""));
  }
}

TEST_F(NoticeBarTest, IsInTheOrderOfTheTabKey) {
  MainWindow* const kurv = window_of(noted());
  EXPECT_TRUE(line(kurv).focusPolicy() & Qt::TabFocus);
  kurv->activateWindow();
  kurv->graph().setFocus();
  QApplication::setActiveWindow(kurv);
  for (int i = 0; i < 50 && !line(kurv).hasFocus(); ++i) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_TRUE(line(kurv).hasFocus());
  EXPECT_TRUE(close_button(kurv).focusPolicy() & Qt::TabFocus);
  EXPECT_FALSE(close_button(kurv).accessibleName().isEmpty());
}

TEST_F(NoticeBarTest, IsNotThereWithoutNotes) {
  EXPECT_FALSE(bar(window()).isVisible());
  EXPECT_FALSE(bar(window_of(table())).isVisible());
  EXPECT_FALSE(bar(window_of(graph_file())).isVisible());
}

TEST_F(NoticeBarTest, GoesWithTheGraph) {
  MainWindow* const kurv = window_of(noted());
  kurv->show_graph({}, load(graph_file(), {}));
  EXPECT_FALSE(bar(kurv).isVisible());
  kurv->show_graph({}, load(noted(), {}));
  EXPECT_TRUE(bar(kurv).isVisible());
}

TEST_F(NoticeBarTest, StaysWhenTheGraphIsRedrawnOrSaved) {
  MainWindow* const kurv = window_of(noted());
  change_title(kurv, "Other");
  choose_file(path("other.gdf"));
  press(kurv, "mnuSave");
  QTest::qWait(20);
  EXPECT_TRUE(bar(kurv).isVisible());
}

TEST_F(NoticeBarTest, IsClosedByItsButtonAndByEscape) {
  MainWindow* const kurv = window_of(noted());
  QTest::mouseClick(&close_button(kurv), Qt::LeftButton);
  EXPECT_FALSE(bar(kurv).isVisible());
  kurv->show_graph({}, load(noted(), {}));
  EXPECT_TRUE(bar(kurv).isVisible());
  QTest::keyClick(&line(kurv), Qt::Key_Escape);
  EXPECT_FALSE(bar(kurv).isVisible());
}

TEST_F(NoticeBarTest, LeavesThePlotItsSize) {
  for (const QSize size : {QSize(500, 400), kDefaultSize}) {
    GraphChoice choice;
    choice.size = size;
    auto* const kurv = new MainWindow(std::nullopt, {});
    kurv->show_graph(choice, load(noted(), choice));
    QTest::qWait(50);
    EXPECT_TRUE(bar(kurv).isVisible());
    EXPECT_EQ(kurv->graph().plot_rect().size(), size);
    EXPECT_EQ(kurv->graph().image().size(), size);
    QTest::keyClick(&line(kurv), Qt::Key_Escape);
    QTest::qWait(50);
    EXPECT_EQ(kurv->graph().plot_rect().size(), size);
    kurv->show_graph({}, load(noted(), {}));
    QTest::qWait(50);
    EXPECT_EQ(kurv->graph().plot_rect().size(), size);
  }
}

TEST_F(NoticeBarTest, DoesNotMakeTheWindowWide) {
  const QByteArray name(3000, 'n');
  MainWindow* const kurv =
      window_of(written(path("long.csv"), "x,y," + name + "\n1,2,on\n2,3,off\n"));
  EXPECT_TRUE(bar(kurv).isVisible());
  kurv->resize(300, 300);
  QTest::qWait(20);
  EXPECT_LE(kurv->width(), 800);
}

TEST_F(NoticeBarTest, IsThereForATableOfTheImportWindow) {
  MainWindow* const kurv = window();
  answer<ImportDialog>([](ImportDialog& dialog) { dialog.accept(); });
  const std::string late = written(path("late.csv"), "x,y\n1,2\n2\n3,5,6\n4,3\n5,4\n");
  EXPECT_TRUE(kurv->open(late));
  EXPECT_TRUE(bar(kurv).isVisible());
}

TEST_F(NoticeBarTest, TakesTheNotesInWordsOfTheWindow) {
  QByteArray table = "x,y\n";
  for (int i = 0; i < 33000; ++i) table += QByteArray::number(i) + ",1\n";
  MainWindow* const kurv = window();
  kurv->show_graph({}, load(written(path("many.csv"), table), {}));
  EXPECT_TRUE(bar(kurv).isVisible());
  EXPECT_THAT(line(kurv).text().toStdString(), HasSubstr("thinned out to 32767 rows"));
  EXPECT_EQ(line(kurv).text().indexOf("--"), -1) << line(kurv).text().toStdString();
}

TEST_F(NoticeBarTest, WhatItSaysCanBeChangedInTheImportWindow) {
  MainWindow* const kurv = window_of(guessed());
  EXPECT_THAT(line(kurv).text().toStdString(), HasSubstr("\"Dates\" changes that"));
  const QPointer<KurvGraph> before = &kurv->graph();
  answer<QDialog>([](QDialog& notes) { press_button(notes, "cmdChange"); });
  answer<ImportDialog>([](ImportDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Import guessed.csv");
    dialog.accept();
  });
  line(kurv).click();
  ASSERT_TRUE(QTest::qWaitFor([&] { return &kurv->graph() != before; }, 5000));
  EXPECT_EQ(all().size(), 1u);
  EXPECT_TRUE(kurv->is_saved());
}

TEST_F(NoticeBarTest, GivesNoAdviceThatCannotBeFollowed) {
  MainWindow* const kurv = window();
  GraphSource source = load(guessed(), {});
  source.path.clear();
  kurv->show_graph({}, source);
  EXPECT_THAT(line(kurv).text().toStdString(), HasSubstr("the month first"));
  EXPECT_THAT(line(kurv).text().toStdString(), Not(HasSubstr("changes that")));
  answer<QDialog>([](QDialog& notes) {
    EXPECT_EQ(notes.findChild<QPushButton*>("cmdChange"), nullptr);
    notes.reject();
  });
  line(kurv).click();
}

}  // namespace
}  // namespace kurv::app
