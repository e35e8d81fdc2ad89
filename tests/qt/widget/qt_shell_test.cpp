// The desktop by the toolkit's dialogs, each answered by a timer as a user would.
#include "qt/widget/qt_shell.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QFile>
#include <QFileDialog>
#include <QFontComboBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>
#include <QWheelEvent>
#include <functional>

#include "qt/widget/font_dialog.h"

namespace kurv {
namespace {

using testing::ElementsAre;

constexpr const char* kFilter = "Graph files (*.gdf)|*.gdf|All files (*.*)|*.*";

// Waits for a dialog of this kind and passes it on, once.
template <class Dialog>
class Answering {
 public:
  explicit Answering(std::function<void(Dialog&)> answer) {
    QObject::connect(&m_timer, &QTimer::timeout, [this, answer] {
      auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
      if (!dialog) return;
      m_timer.stop();
      answer(*dialog);
    });
    m_timer.start(1);
  }

 private:
  QTimer m_timer;
};

class QtShellTest : public testing::Test {
 protected:
  QString path(const QString& name) const { return m_folder.filePath(name); }

  SaveDialog save_settings() const {
    return {"Save", kFilter, "gdf", path("graph").toStdString(), 2};
  }

  QTemporaryDir m_folder;
  QWidget m_window;
  QtShell m_shell{m_window};
};

TEST_F(QtShellTest, MessageBoxesShowTheirTextAsItIsInLines) {
  QString text;
  QString title;
  QMessageBox::Icon icon{};
  const Answering<QMessageBox> answering([&](QMessageBox& box) {
    text = box.text();
    title = box.windowTitle();
    icon = box.icon();
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.parentWidget(), &m_window);
    EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
    box.button(QMessageBox::Ok)->click();
  });
  EXPECT_EQ(m_shell.message_box("<b>one</b>\r\ntwo\rthree", kCriticalStop, "KURV Guide"),
            Answer::kOk);
  EXPECT_EQ(text, "<b>one</b>\ntwo\nthree");
  EXPECT_EQ(title, "KURV Guide");
  EXPECT_EQ(icon, QMessageBox::Critical);
}

TEST_F(QtShellTest, QuestionsAreAnsweredYesOrNo) {
  for (const bool yes : {true, false}) {
    const Answering<QMessageBox> answering([&](QMessageBox& box) {
      EXPECT_EQ(box.icon(), QMessageBox::Question);
      box.button(yes ? QMessageBox::Yes : QMessageBox::No)->click();
    });
    EXPECT_EQ(m_shell.message_box("Save?", kYesNoQuestion, "KURV Guide"),
              yes ? Answer::kYes : Answer::kNo);
  }
}

TEST_F(QtShellTest, AQuestionThatIsClosedIsAnsweredNo) {
  const Answering<QMessageBox> answering([](QMessageBox& box) { box.reject(); });
  EXPECT_EQ(m_shell.message_box("Save?", kYesNoQuestion, "KURV Guide"), Answer::kNo);
}

TEST_F(QtShellTest, ExclamationsHaveTheirIcon) {
  const Answering<QMessageBox> answering([](QMessageBox& box) {
    EXPECT_EQ(box.icon(), QMessageBox::Warning);
    box.accept();
  });
  EXPECT_EQ(m_shell.message_box("Careful", kExclamation, "KURV Guide"), Answer::kOk);
}

TEST_F(QtShellTest, ADialogMayGoWithItsWindow) {
  auto* const window = new QWidget;
  QtShell shell(*window);
  const Answering<QMessageBox> answering([&](QMessageBox&) { delete window; });
  EXPECT_EQ(shell.message_box("Save?", kYesNoQuestion, "KURV Guide"), Answer::kNo);
}

TEST_F(QtShellTest, PromptsGiveTheirTextAndNothingWhenCancelled) {
  for (const bool accept : {true, false}) {
    const Answering<QInputDialog> answering([&](QInputDialog& prompt) {
      EXPECT_EQ(prompt.textValue(), "10");
      EXPECT_EQ(prompt.labelText(), "Ticks\nper axis");
      EXPECT_EQ(prompt.findChild<QLabel*>()->textFormat(), Qt::PlainText);
      prompt.setTextValue("zwölf");
      accept ? prompt.accept() : prompt.reject();
    });
    EXPECT_EQ(m_shell.input_prompt("Ticks\r\nper axis", "KURV", "10"), accept ? "zwölf" : "");
  }
}

TEST_F(QtShellTest, ANameWithoutExtensionGetsThatOfTheChosenFilter) {
  const Answering<QFileDialog> answering([&](QFileDialog& dialog) {
    EXPECT_THAT(dialog.nameFilters(), ElementsAre(QString("Graph files (*.gdf)"), "All files (*)"));
    dialog.findChild<QLineEdit*>("fileNameEdit")->setText(path("plain"));
    static_cast<QDialog&>(dialog).accept();
  });
  const FileChoice choice = m_shell.save_file(save_settings());
  EXPECT_EQ(choice.path, path("plain.gdf").toStdString());
  EXPECT_EQ(choice.filter, 1);
}

TEST_F(QtShellTest, TheWheelChangesNoKindOfFileInPassing) {
  const Answering<QFileDialog> answering([](QFileDialog& dialog) {
    auto* const kinds = dialog.findChild<QComboBox*>("fileTypeCombo");
    QWheelEvent turn(QPointF(5, 5), kinds->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(kinds, &turn);
    EXPECT_EQ(kinds->currentIndex(), 0);
    dialog.reject();
  });
  EXPECT_EQ(m_shell.save_file(save_settings()).path, "");
}

TEST_F(QtShellTest, AnExtensionThatIsTypedStays) {
  const Answering<QFileDialog> answering([&](QFileDialog& dialog) {
    dialog.findChild<QLineEdit*>("fileNameEdit")->setText(path("typed.txt"));
    static_cast<QDialog&>(dialog).accept();
  });
  EXPECT_EQ(m_shell.save_file(save_settings()).path, path("typed.txt").toStdString());
}

TEST_F(QtShellTest, TheChosenFilterIsCountedFromOneAndDecidesTheExtension) {
  const Answering<QFileDialog> answering([&](QFileDialog& dialog) {
    auto* const box = dialog.findChild<QComboBox*>("fileTypeCombo");
    box->setCurrentIndex(1);
    Q_EMIT box->textActivated(box->currentText());
    Q_EMIT box->activated(1);
    dialog.findChild<QLineEdit*>("fileNameEdit")->setText(path("table"));
    static_cast<QDialog&>(dialog).accept();
  });
  const FileChoice choice =
      m_shell.save_file({"Save", "Text (*.txt)|*.txt|Commas|*.csv;*.tsv", "txt", "", 0});
  EXPECT_EQ(choice.filter, 2);
  EXPECT_EQ(choice.path, path("table.csv").toStdString());
}

TEST_F(QtShellTest, ACancelledFileDialogHasNoPath) {
  const Answering<QFileDialog> answering([](QFileDialog& dialog) { dialog.reject(); });
  EXPECT_EQ(m_shell.open_file({"Open", kFilter, "gdf"}).path, "");
}

TEST_F(QtShellTest, AnExistingFileIsChosen) {
  QFile file(path("there.gdf"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.close();
  const Answering<QFileDialog> answering([&](QFileDialog& dialog) {
    EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
    dialog.findChild<QLineEdit*>("fileNameEdit")->setText(path("there.gdf"));
    static_cast<QDialog&>(dialog).accept();
  });
  EXPECT_EQ(m_shell.open_file({"Open", kFilter, "gdf"}).path, path("there.gdf").toStdString());
}

TEST_F(QtShellTest, OnlyTheFlagMakesASaveDialogAsk) {
  for (const int flags : {0, 2}) {
    const Answering<QFileDialog> answering([&](QFileDialog& dialog) {
      EXPECT_EQ(dialog.testOption(QFileDialog::DontConfirmOverwrite), flags == 0);
      EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
      dialog.reject();
    });
    EXPECT_EQ(m_shell.save_file({"Save", kFilter, "gdf", "", flags}).path, "");
  }
}

TEST_F(QtShellTest, FontsComeBackAsChosen) {
  const Answering<FontDialog> answering([](FontDialog& dialog) {
    EXPECT_EQ(dialog.findChild<QDoubleSpinBox*>("spnFontSize")->value(), 10);
    EXPECT_TRUE(dialog.findChild<QCheckBox*>("chkFontBold")->isChecked());
    dialog.findChild<QFontComboBox*>("cmbFontName")->setEditText("Liberation Serif");
    dialog.findChild<QDoubleSpinBox*>("spnFontSize")->setValue(14);
    dialog.findChild<QCheckBox*>("chkFontBold")->click();
    dialog.findChild<QCheckBox*>("chkFontItalic")->click();
    dialog.accept();
  });
  const std::optional<Font> font = m_shell.choose_font({"Liberation Sans", 10, true, false});
  ASSERT_TRUE(font);
  EXPECT_EQ(*font, (Font{"Liberation Serif", 14, false, true}));
}

TEST_F(QtShellTest, WhatIsLeftAloneInTheFontDialogStaysTheSame) {
  for (const Font& font :
       {Font{"No Such Font", Single(8.126), true, true}, Font{"", 0, false, false},
        Font{"Liberation Sans", 1e30F, false, true}}) {
    const Answering<FontDialog> answering([](FontDialog& dialog) { dialog.accept(); });
    EXPECT_EQ(m_shell.choose_font(font), font) << font.FontName;
  }
}

TEST_F(QtShellTest, TheFontDialogSaysWhichFontAndOffersWhatIsKept) {
  const Answering<FontDialog> answering([](FontDialog& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Subtitle Font");
    EXPECT_EQ(dialog.findChildren<QCheckBox*>().size(), 2);
    EXPECT_EQ(dialog.findChildren<QComboBox*>().size(), 1);
    EXPECT_EQ(dialog.findChildren<QAbstractSpinBox*>().size(), 1);
    dialog.reject();
  });
  EXPECT_FALSE(m_shell.choose_font({}, "Subtitle Font"));
}

TEST_F(QtShellTest, TheSampleShowsTheFont) {
  const Answering<FontDialog> answering([](FontDialog& dialog) {
    const QLabel* const sample = dialog.findChild<QLabel*>("lblFontSample");
    EXPECT_EQ(sample->font().family(), "Liberation Sans");
    EXPECT_EQ(sample->font().pointSizeF(), 10);
    dialog.findChild<QCheckBox*>("chkFontItalic")->click();
    dialog.findChild<QDoubleSpinBox*>("spnFontSize")->setValue(20);
    EXPECT_TRUE(sample->font().italic());
    EXPECT_EQ(sample->font().pointSizeF(), 20);
    dialog.reject();
  });
  EXPECT_FALSE(m_shell.choose_font({"Liberation Sans", 10, true, false}));
}

TEST_F(QtShellTest, ACancelledFontDialogHasNoFont) {
  const Answering<FontDialog> answering([](FontDialog& dialog) { dialog.reject(); });
  EXPECT_FALSE(m_shell.choose_font({}));
}

TEST(QtShellTexts, FiltersBecomeTheToolkits) {
  EXPECT_THAT(name_filters(kFilter), ElementsAre(QString("Graph files (*.gdf)"), "All files (*)"));
  EXPECT_THAT(name_filters("A (b) things|*.a;*.b"), ElementsAre(QString("A (b) things (*.a *.b)")));
  EXPECT_THAT(name_filters(""), testing::IsEmpty());
  EXPECT_THAT(name_filters("no pattern"), testing::IsEmpty());
}

TEST(QtShellTexts, ExtensionsComeFromTheFirstPattern) {
  EXPECT_EQ(extension_of("Graph files (*.gdf)", "txt"), "gdf");
  EXPECT_EQ(extension_of("Pictures (*.bmp *.png)", "txt"), "bmp");
  EXPECT_EQ(extension_of("All files (*)", "txt"), "txt");
  EXPECT_EQ(extension_of("", "txt"), "txt");
  EXPECT_EQ(extension_of("Odd (*.t*)", "gdf"), "gdf");
}

}  // namespace
}  // namespace kurv
