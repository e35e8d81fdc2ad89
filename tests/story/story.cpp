#include "tests/story/story.h"

#include <QFile>
#include <QProcessEnvironment>
#include <cmath>

#include "tests/story/desktop.h"
#include "tests/story/screen_text.h"

namespace kurv::test {

QStringList lines_of(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return QString::fromUtf8(file.readAll()).split("\r\n");
}

std::string text_of(const QStringList& lines) {
  return lines.join(u'\n').toStdString();
}

Story::Story(const QString& graph) : m_name(graph) {}

void Story::SetUp() {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("XDG_CONFIG_HOME", m_folder.path());
  m_kurv.setProcessEnvironment(environment);
}

void Story::TearDown() {
  m_kurv.kill();
  m_kurv.waitForFinished();
}

void Story::write(const QString& name, const QByteArray& bytes) const {
  QFile file(path(name));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(bytes);
}

void Story::start(const QStringList& files) {
  m_kurv.start(KURV_PROGRAM, files);
}

void Story::expect_its_end() {
  ASSERT_TRUE(
      comes_true("the program has ended", [&] { return m_kurv.state() == QProcess::NotRunning; }));
  EXPECT_EQ(m_kurv.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(m_kurv.exitCode(), 0);
  EXPECT_EQ(m_kurv.readAllStandardError(), "");
}

void Story::save_as_proposed() {
  press({"ctrl+s"});
  ASSERT_TRUE(comes_to_front("Save As"));
  press({"Return"});
  ASSERT_TRUE(comes_to_front(saved_title()));
  ASSERT_TRUE(QFile::exists(m_graph));
}

void Story::save() {
  press({"ctrl+s"});
  ASSERT_TRUE(comes_to_front(saved_title()));
}

void Story::expect_entry(const QString& text) {
  press({"alt+e"});
  EXPECT_TRUE(comes_to_show(text));
  // One for the menu, one for the menu bar.
  press({"Escape", "Escape"});
}

void Story::expect_to_undo(const QString& step) {
  expect_entry("&Undo " + step);
}

void Story::expect_to_redo(const QString& step) {
  expect_entry("&Redo " + step);
}

void Story::take_back(const QString& step) {
  ASSERT_TRUE(comes_to_front(changed_title()));
  expect_to_undo(step);
  press({"ctrl+z"});
  ASSERT_TRUE(comes_to_front(saved_title()));
}

int Story::pixels(int line) const {
  return saved_lines().value(line - 1).trimmed().toInt() / kTwipsPerPixel;
}

QPoint Story::legend_in(const Plot& plot) const {
  return plot.place + QPoint(pixels(kLegendLeft), pixels(kLegendTop)) + QPoint(12, 12);
}

QPoint Story::point_in(const Plot& plot, double x, double y) const {
  const QStringList lines = saved_lines();
  const auto limit = [&](int number) { return lines.value(kLimits - 1 + number).toDouble(); };
  const auto part = [&](double value, int min, int max) {
    return (value - limit(min)) / (limit(max) - limit(min));
  };
  const QRect& frame = plot.frame;
  const double across = part(x, 2, 3) * (frame.right() - frame.left());
  const double up = part(y, 0, 1) * (frame.bottom() - frame.top());
  return plot.place +
         QPoint(frame.left() + int(std::lround(across)), frame.bottom() - int(std::lround(up)));
}

void Story::find_plot(Plot& plot) const {
  QSize drawn_size;
  QImage drawn;
  ASSERT_TRUE(comes_true("the window shows what is in the graph file", [&] {
    plot = plot_in_front();
    const QSize size = plot.image.size();
    if (size.isEmpty()) return false;
    if (size != drawn_size) {
      drawn_size = size;
      drawn =
          drawn_from({m_graph, "--size", QString("%1x%2").arg(size.width()).arg(size.height())});
    }
    return plot.image == drawn;
  }));
}

QImage Story::drawn_from(const QStringList& file) const {
  const QString picture = path("drawn.png");
  printed_by(KURV_PROGRAM, QStringList{"render", "-o", picture} + file);
  return QImage(picture).convertToFormat(QImage::Format_RGB32);
}

Plot plot_in_front() {
  const FrontWindow window = front_window();
  const QRect paper = paper_in(window.image);
  const QImage image = window.image.copy(paper);
  return {window.place + paper.topLeft(), image, frame_in(image)};
}

testing::AssertionResult comes_to_differ(const Plot& before) {
  return comes_true("the plot has changed", [&] {
    const Plot now = plot_in_front();
    return !now.image.isNull() && now.image != before.image;
  });
}

}  // namespace kurv::test
