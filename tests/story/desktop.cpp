#include "tests/story/desktop.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QProcess>
#include <QScreen>
#include <QTest>
#include <algorithm>
#include <utility>
#include <vector>

namespace kurv::test {

namespace {

constexpr int kPatience = 30000;    // ms, for one step
constexpr int kBetweenMoves = 200;  // ms; a drag is no drag to a program that sees one move
constexpr int kTitlesTick = 30;     // ms
constexpr const char* kTool = "xdotool";
// The other one is wrong about the places of windows with frames.
constexpr const char* kPlaceTool = "xwininfo";

// Empty where the tool prints nothing, as while no window has the focus.
QString answer_of(const QStringList& arguments, const char* tool = kTool) {
  QProcess process;
  process.start(tool, arguments);
  if (!process.waitForFinished(kPatience)) return {};
  return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

QString name_of(Button button) {
  return QString::number(static_cast<int>(button));
}

bool is_black(QRgb pixel) {
  return (pixel & 0xFFFFFF) == 0;
}

// The middles of the first and the last of `count` lines of which more than a half is black.
std::pair<int, int> outer_lines(int count, int length,
                                const std::function<QRgb(int line, int place)>& pixel) {
  std::vector<int> lines;
  for (int line = 0; line < count; ++line) {
    int black = 0;
    for (int place = 0; place < length; ++place) black += is_black(pixel(line, place)) ? 1 : 0;
    if (black > length / 2) lines.push_back(line);
  }
  if (lines.empty()) return {0, 0};
  int first_end = lines.front(), last_begin = lines.back();
  while (std::count(lines.begin(), lines.end(), first_end + 1) > 0) ++first_end;
  while (std::count(lines.begin(), lines.end(), last_begin - 1) > 0) --last_begin;
  return {(lines.front() + first_end) / 2, (last_begin + lines.back()) / 2};
}

// The number of a line such as "Width: 12".
int number_in(const QString& text, const QString& name) {
  for (const QString& line : text.split(u'\n')) {
    if (line.trimmed().startsWith(name + u':')) return line.section(u':', 1).toInt();
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
  // The focus may follow later, and keys until then would go to the window before.
  const auto is_in_front = [&] {
    const QString active = answer_of({"getactivewindow"});
    front = answer_of({"getactivewindow", "getwindowname"});
    if (front == title && active == answer_of({"getwindowfocus"})) return true;
    QTest::qWait(kTitlesTick);
    return false;
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

void point_at(QPoint at) {
  answer_of({"mousemove", "--sync", QString::number(at.x()), QString::number(at.y())});
  QTest::qWait(kBetweenMoves);
}

void point_away() {
  point_at({0, 0});
}

void click(QPoint at, Button button) {
  point_at(at);
  answer_of({"click", name_of(button)});
}

void turn_wheel(QPoint at, Button direction) {
  click(at, direction);
  point_away();
}

void drag(QPoint from, QPoint to, Button button, const QString& key) {
  point_at(from);
  if (!key.isEmpty()) answer_of({"keydown", key});
  answer_of({"mousedown", name_of(button)});
  for (int step = 1; step <= 3; ++step) point_at(from + (to - from) * step / 3);
  answer_of({"mouseup", name_of(button)});
  if (!key.isEmpty()) answer_of({"keyup", key});
  point_away();
}

QImage screen_image() {
  return QGuiApplication::primaryScreen()->grabWindow(0).toImage().convertToFormat(
      QImage::Format_RGB32);
}

FrontWindow front_window() {
  const QString id = answer_of({"getactivewindow"});
  const QString geometry = answer_of({"-id", id}, kPlaceTool);
  QScreen* const screen = QGuiApplication::primaryScreen();
  return {
      {number_in(geometry, "Absolute upper-left X"), number_in(geometry, "Absolute upper-left Y")},
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

QRect frame_in(const QImage& paper) {
  const auto [top, bottom] =
      outer_lines(paper.height(), paper.width(), [&](int y, int x) { return paper.pixel(x, y); });
  const auto [left, right] =
      outer_lines(paper.width(), paper.height(), [&](int x, int y) { return paper.pixel(x, y); });
  return {QPoint(left, top), QPoint(right, bottom)};
}

}  // namespace kurv::test
