// The table as a real window, with a real keyboard and a clipboard that other programs see.
#include <gmock/gmock.h>

#include <QEventLoop>
#include <QHeaderView>
#include <QProcess>
#include <QPushButton>
#include <QTimer>

#include "tests/dialogs/table_support.h"

namespace kurv::test {
namespace {

using testing::ElementsAre;

// The tool needs this process to answer, so an event loop runs meanwhile.
std::string output_of(const QString& program, const QStringList& arguments,
                      const std::string& input = {}) {
  QProcess process;
  QEventLoop loop;
  QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
  QObject::connect(&process, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
  QTimer::singleShot(20000, &loop, &QEventLoop::quit);
  process.setStandardErrorFile(QProcess::nullDevice());
  // The tool that keeps a clipboard stays behind with whatever it was given to write to.
  if (!input.empty()) process.setStandardOutputFile(QProcess::nullDevice());
  process.start(program, arguments);
  process.write(QByteArray::fromStdString(input));
  process.closeWriteChannel();
  loop.exec();
  EXPECT_EQ(process.state(), QProcess::NotRunning) << program.toStdString();
  return input.empty() ? process.readAllStandardOutput().toStdString() : std::string();
}

const QStringList kClipboard = {"-selection", "clipboard"};

struct TableWindow : testing::Test {
  void SetUp() override {
    ASSERT_EQ(QGuiApplication::platformName(), "xcb") << "this test needs a real window";
    ASSERT_TRUE(QTest::qWaitForWindowActive(&table.window));
    table.grid->setFocus();
    table.select(1, 1);
  }
  void press(const QStringList& keys) {
    output_of("xdotool", QStringList{"key", "--delay", "30"} + keys);
    QTest::qWait(100);
  }
  void write(const QString& text) {
    output_of("xdotool", {"type", "--delay", "30", text});
    QTest::qWait(100);
  }

  Table table;
};

TEST_F(TableWindow, AnotherProgramGetsTheBlockThatWasCopied) {
  press({"Right", "shift+Right", "shift+Down", "ctrl+c"});
  EXPECT_EQ(output_of("xclip", kClipboard + QStringList{"-out"}), "30\t-3\r\n10\t-1");
}

TEST_F(TableWindow, TextOfAnotherProgramIsPasted) {
  output_of("xclip", kClipboard + QStringList{"-in"}, "7\t70\n8\t80\n9\tµ\n");
  press({"ctrl+v"});
  EXPECT_THAT(table.column_of_host(1), ElementsAre(7, 8, 9));
  EXPECT_THAT(table.column_of_host(2), ElementsAre(70, 80, 20));
  EXPECT_EQ(table.cell(3, 2), "µ");
  EXPECT_EQ(table.messages(),
            std::vector<std::string>{"Invalid numerical data cells were detected."});
}

TEST_F(TableWindow, CutsAndDeletesByKeyboard) {
  press({"Right", "ctrl+x"});
  EXPECT_EQ(output_of("xclip", kClipboard + QStringList{"-out"}), "30");
  press({"Down", "Delete"});
  EXPECT_EQ(table.cell(1, 2), "");
  EXPECT_EQ(table.cell(2, 2), "");
  EXPECT_EQ(table.cell(3, 2), "20");
}

TEST_F(TableWindow, TypesNumbersIntoTheGraph) {
  press({"Down", "Right"});
  write("12.5");
  press({"Return"});
  EXPECT_EQ(table.document().xyArrUnsorted(2, 2), 12.5);
  EXPECT_TRUE(table.window.isVisible());
  press({"F2"});
  write("9");
  press({"Escape"});
  EXPECT_EQ(table.document().xyArrUnsorted(2, 2), 12.5);
  EXPECT_TRUE(table.window.isVisible());
}

TEST_F(TableWindow, ItsMenusOpenByMnemonic) {
  press({"alt+e", "t"});
  EXPECT_EQ(output_of("xclip", kClipboard + QStringList{"-out"}), "3");
  EXPECT_EQ(table.cell(1, 1), "");
  press({"alt+f", "t"});
  EXPECT_EQ(table.shell().save_dialogs.size(), 1u);
  press({"alt+f", "s"});
  EXPECT_EQ(table.client.commands, std::vector<std::string>{"save"});
  press({"alt+c"});
  EXPECT_FALSE(table.window.isVisible());
}

TEST_F(TableWindow, AMouseSelectsABlockAndTheGridGrowsWithTheWindow) {
  const QRect first = table.grid->visualRect(table.at(1, 1));
  const QRect last = table.grid->visualRect(table.at(3, 2));
  const auto global = [&](const QRect& cell) {
    const QPoint at = table.grid->viewport()->mapToGlobal(cell.center());
    return QStringList{"mousemove", QString::number(at.x()), QString::number(at.y())};
  };
  const QRect middle = table.grid->visualRect(table.at(2, 1));
  output_of("xdotool", global(first) + QStringList{"mousedown", "1", "sleep", "0.2"} +
                           global(middle) + QStringList{"sleep", "0.2"} + global(last) +
                           QStringList{"sleep", "0.2", "mouseup", "1"});
  press({"ctrl+c"});
  EXPECT_EQ(output_of("xclip", kClipboard + QStringList{"-out"}), "3\t30\r\n1\t10\r\n2\t20");
  const int before = table.grid->width();
  table.window.resize(table.window.width() + 200, table.window.height());
  EXPECT_TRUE(QTest::qWaitFor([&] { return table.grid->width() == before + 200; }));
}

}  // namespace
}  // namespace kurv::test
