#include "tests/story/desktop.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QTest>

namespace kurv::test {

namespace {

constexpr int kPatience = 15000;    // ms, for one step
constexpr int kBetweenMoves = 200;  // ms; a drag is no drag to a program that sees one move
constexpr int kTitlesTick = 30;     // ms
constexpr const char* kTool = "xdotool";

// Empty where the tool prints nothing, as while no window has the focus.
QString answer_of(const QStringList& arguments) {
  QProcess process;
  process.start(kTool, arguments);
  if (!process.waitForFinished(kPatience)) return {};
  return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

void point_at(QPoint at) {
  answer_of({"mousemove", "--sync", QString::number(at.x()), QString::number(at.y())});
  QTest::qWait(kBetweenMoves);
}

// The number of a line such as "X=12".
int number_in(const QString& text, const QString& name) {
  for (const QString& line : text.split(u'\n')) {
    if (line.startsWith(name + u'=')) return line.section(u'=', 1).toInt();
  }
  ADD_FAILURE() << "there is no " << name.toStdString() << " in: " << text.toStdString();
  return 0;
}

}  // namespace

QString printed_by(const QString& program, const QStringList& arguments) {
  QProcess process;
  process.start(program, arguments);
  const QString what = program + u' ' + arguments.join(u' ');
  EXPECT_TRUE(process.waitForFinished(kPatience)) << what.toStdString();
  EXPECT_EQ(process.exitCode(), 0)
      << what.toStdString() << ": " << process.readAllStandardError().toStdString();
  return QString::fromUtf8(process.readAllStandardOutput());
}

testing::AssertionResult comes_true(const QString& what, const std::function<bool()>& condition) {
  if (QTest::qWaitFor(condition, kPatience)) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "waited in vain until " << what.toStdString();
}

testing::AssertionResult comes_to_front(const QString& title) {
  QString front;
  const auto is_in_front = [&] {
    front = answer_of({"getactivewindow", "getwindowname"});
    if (front != title) QTest::qWait(kTitlesTick);
    return front == title;
  };
  return comes_true('"' + title + "\" is in front", is_in_front)
         << "; last seen: \"" << front.toStdString() << '"';
}

void press(const QStringList& keys) {
  answer_of(QStringList{"key", "--delay", "30"} + keys);
}

void type(const QString& text) {
  answer_of({"type", "--delay", "12", "--", text});
}

void drag(QPoint from, QPoint to) {
  point_at(from);
  answer_of({"mousedown", "1"});
  for (int step = 1; step <= 3; ++step) point_at(from + (to - from) * step / 3);
  answer_of({"mouseup", "1"});
  point_at({0, 0});
}

FrontWindow front_window() {
  const QString id = answer_of({"getactivewindow"});
  const QString geometry = answer_of({"getwindowgeometry", "--shell", id});
  QScreen* const screen = QGuiApplication::primaryScreen();
  return {{number_in(geometry, "X"), number_in(geometry, "Y")},
          screen->grabWindow(id.toULongLong()).toImage().convertToFormat(QImage::Format_RGB32)};
}

QRect paper_in(const QImage& window) {
  const auto is_paper = [&](int y) { return window.pixelColor(0, y) == Qt::white; };
  int top = 0;
  while (top < window.height() && !is_paper(top)) ++top;
  int end = top;
  while (end < window.height() && is_paper(end)) ++end;
  return {0, top, window.width(), end - top};
}

}  // namespace kurv::test
