// How a graph leaves its window: the real clipboard, the real print dialog, the real save dialog.
#include <KurvGraph/file_fault.h>
#include <gmock/gmock.h>
#include <sys/resource.h>

#include <QAbstractButton>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <csignal>
#include <functional>
#include <optional>

#include "tests/qt/widget/widget_support.h"

namespace kurv::test {
namespace {

// While it exists, polls for open dialogs and passes them to `answer`. Each poll has its own timer:
// an answer may open the next dialog before it returns, and a timer does not fire inside its own
// slot.
class Answering : public QObject {
 public:
  explicit Answering(std::function<void(QWidget&)> answer) : m_answer(std::move(answer)) {
    look_later();
  }

 private:
  void look_later() {
    QTimer::singleShot(20, this, [this] {
      look_later();
      if (QWidget* const dialog = QApplication::activeModalWidget()) m_answer(*dialog);
    });
  }

  std::function<void(QWidget&)> m_answer;
};

class ExportWindow : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(QGuiApplication::platformName(), "xcb") << "this test needs a real window";
    m_graph.resize(600, 400);
    m_graph.plot(small_graph());
    m_graph.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_graph));
  }

  QString path(const QString& name) const { return m_folder.filePath(name); }

  static QByteArray contents(const QString& name) {
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return file.readAll();
  }

  // Runs another program while this one goes on handling events.
  static QByteArray output_of(const QString& tool, const QStringList& arguments) {
    QProcess process;
    process.start(tool, arguments);
    EXPECT_TRUE(QTest::qWaitFor([&] { return process.state() == QProcess::NotRunning; }, 20000));
    EXPECT_EQ(process.exitCode(), 0)
        << tool.toStdString() << ' ' << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
  }
  static QByteArray clipboard(const QString& target) {
    return output_of("xclip", {"-selection", "clipboard", "-t", target, "-o"});
  }

  // Sends the word and answers the print dialog by printing into the file; a question whether to
  // replace it is answered yes.
  void print_into(const QString& file) {
    const Answering answering([&](QWidget& dialog) {
      if (auto* const box = qobject_cast<QMessageBox*>(&dialog)) {
        box->button(QMessageBox::Yes)->click();
      } else if (auto* const print = qobject_cast<QPrintDialog*>(&dialog)) {
        ++m_print_dialogs;
        EXPECT_EQ(print->parentWidget(), &m_graph);
        print->findChild<QLineEdit*>("filename")->setText(file);
        QTest::keyClick(print, Qt::Key_Return);
      }
    });
    m_graph.ChartOptions("print");
  }

  // What the printed page shows, at a pixel for each point, and how large its picture is.
  QImage printed(const QString& file) {
    output_of("pdftoppm", {"-r", "72", "-png", "-singlefile", file, path("page")});
    return QImage(path("page.png")).convertToFormat(QImage::Format_RGB32);
  }

  QTemporaryDir m_folder;
  KurvGraph m_graph;
  int m_print_dialogs = 0;
};

TEST_F(ExportWindow, AnotherProgramGetsThePictureFromTheClipboardPixelByPixel) {
  m_graph.ChartOptions("copy");
  const QByteArray targets = clipboard("TARGETS");
  EXPECT_TRUE(targets.contains("image/png")) << targets.toStdString();
  EXPECT_TRUE(targets.contains("image/bmp"));
  for (const char* format : {"PNG", "BMP"}) {
    const QByteArray bytes = clipboard("image/" + QString(format).toLower());
    const QImage pasted = QImage::fromData(bytes, format);
    EXPECT_EQ(pasted.convertToFormat(QImage::Format_RGB32),
              m_graph.image().convertToFormat(QImage::Format_RGB32))
        << format;
    EXPECT_EQ(pasted.dotsPerMeterX(), 3780) << format;
    EXPECT_EQ(pasted.dotsPerMeterY(), 3780) << format;
  }
}

TEST_F(ExportWindow, ACopyTakesTheOldContentsPlaceInOneGo) {
  QApplication::clipboard()->setText("old");
  int changes = 0;
  const QMetaObject::Connection connection =
      QObject::connect(QApplication::clipboard(), &QClipboard::dataChanged, [&] {
        ++changes;
        EXPECT_FALSE(QApplication::clipboard()->image().isNull());
      });
  m_graph.ChartOptions("copy");
  QTest::qWait(100);
  QObject::disconnect(connection);
  EXPECT_EQ(changes, 1);
  EXPECT_FALSE(clipboard("TARGETS").contains("text/plain"));
}

TEST_F(ExportWindow, TheCopyOfAnEmptyGraphIsBlank) {
  KurvGraph empty;
  resize_plot(empty, {80, 60});
  empty.ChartOptions("copy");
  QImage white(80, 60, QImage::Format_RGB32);
  white.fill(Qt::white);
  EXPECT_EQ(QImage::fromData(clipboard("image/png")).convertToFormat(QImage::Format_RGB32), white);
}

TEST_F(ExportWindow, ThePlotIsPrintedOnOnePageByTheRealDialog) {
  print_into(path("print.pdf"));
  EXPECT_EQ(m_print_dialogs, 1);
  const QByteArray info = output_of("pdfinfo", {path("print.pdf")});
  EXPECT_THAT(info.toStdString(), testing::ContainsRegex("Pages: +1\n"));
  output_of("pdfimages", {"-png", path("print.pdf"), path("image")});
  const QImage picture = QImage(path("image-000.png")).convertToFormat(QImage::Format_RGB32);
  EXPECT_EQ(picture, m_graph.image().convertToFormat(QImage::Format_RGB32))
      << "all pixels, as they are";
  const QImage page = printed(path("print.pdf"));
  EXPECT_GT(page.width(), page.height()) << "a wide picture lies on its side";
}

TEST_F(ExportWindow, ThePrintedFileIsAnnouncedAndACancelledPrintIsNot) {
  QStringList files;
  QObject::connect(&m_graph, &KurvGraph::printed, [&](const QString& file) { files << file; });
  {
    const Answering answering([&](QWidget& dialog) { static_cast<QDialog&>(dialog).reject(); });
    m_graph.ChartOptions("print");
  }
  process_all();
  EXPECT_EQ(files, QStringList());
  print_into(path("print.pdf"));
  process_all();
  EXPECT_EQ(files, QStringList{path("print.pdf")});
}

TEST_F(ExportWindow, AnExistingFileIsReplacedAfterAQuestion) {
  QFile file(path("print.pdf"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("old");
  file.close();
  print_into(path("print.pdf"));
  EXPECT_TRUE(contents(path("print.pdf")).startsWith("%PDF"));
}

TEST_F(ExportWindow, ACancelledPrintPrintsNothing) {
  const Answering answering([&](QWidget& dialog) { static_cast<QDialog&>(dialog).reject(); });
  m_graph.ChartOptions("print");
  EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files).size(), 0);
}

TEST_F(ExportWindow, APrintThatFallsShortNamesItsFileAndLeavesNone) {
  // The limit truncates a write as a full disk does.
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{3000, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &limit);
  std::optional<FileFault> failure;
  try {
    print_into(path("print.pdf"));
  } catch (const FileFault& fault) {
    failure = fault;
  }
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(m_print_dialogs, 1);
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->kind(), FaultKind::kDeviceIoError);
  EXPECT_EQ(failure->path(), path("print.pdf").toStdString());
  EXPECT_TRUE(QDir(m_folder.path()).isEmpty());
}

TEST_F(ExportWindow, AnEmptyGraphPrintsABlankPage) {
  KurvGraph empty;
  const Answering answering([&](QWidget& dialog) {
    if (auto* const print = qobject_cast<QPrintDialog*>(&dialog)) {
      print->findChild<QLineEdit*>("filename")->setText(path("blank.pdf"));
      QTest::keyClick(print, Qt::Key_Return);
    }
  });
  empty.ChartOptions("print");
  const QImage page = printed(path("blank.pdf"));
  for (int y = 0; y < page.height(); ++y) {
    for (int x = 0; x < page.width(); ++x) ASSERT_EQ(page.pixel(x, y), 0xFFFFFFFF);
  }
}

// -- The save dialog ------------------------------------------------------------------------------

TEST_F(ExportWindow, TheSaveDialogHasThreeFiltersAndCompletesANameByTheChosenOne) {
  struct Case {
    int filter;
    const char* written;
    const char* begins;
  };
  for (const Case& expected : {Case{0, "name.gdf", "QXPLOT/V500//"}, Case{1, "name.bmp", "BM"},
                               Case{2, "name.gdf", "QXPLOT/V500//"}}) {
    QFile::remove(path("name.gdf"));
    const Answering answering([&](QWidget& dialog) {
      auto* const save = qobject_cast<QFileDialog*>(&dialog);
      if (!save) return;
      EXPECT_THAT(save->nameFilters(),
                  testing::ElementsAre(QString("KURV graph (*.gdf)"),
                                       QString("Bitmap file (*.bmp)"), QString("All files (*)")));
      auto* const filters = save->findChild<QComboBox*>("fileTypeCombo");
      filters->setFocus();
      QTest::keyClick(filters, Qt::Key_Home);
      for (int i = 0; i < expected.filter; ++i) QTest::keyClick(filters, Qt::Key_Down);
      auto* const name = save->findChild<QLineEdit*>("fileNameEdit");
      name->setFocus();
      name->setText(path("name"));
      QTest::keyClick(name, Qt::Key_Return);
    });
    m_graph.ChartOptions("saveas");
    EXPECT_TRUE(contents(path(expected.written)).startsWith(expected.begins)) << expected.filter;
  }
}

}  // namespace
}  // namespace kurv::test
