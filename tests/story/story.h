// What the stories share: the program under the user's hands, its graph file, and steps that every
// user takes.
#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QPoint>
#include <QProcess>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <string>

namespace kurv::test {

// Lines of a graph file, counted from 1.
inline constexpr int kTitle = 2, kLegendTop = 19, kLegendLeft = 20;
inline constexpr int kLimits = 23, kColumns = 48;

inline constexpr int kTwipsPerPixel = 15;

QStringList lines_of(const QString& path);

// For the messages of failures.
std::string text_of(const QStringList& lines);

// The plot in the window in front.
struct Plot {
  QPoint place;  // on the screen
  QImage image;
  QRect frame;  // in the image
};

class Story : public testing::Test {
 protected:
  // The graph file that the story saves, by its name.
  explicit Story(const QString& graph);
  void SetUp() override;
  void TearDown() override;

  QString path(const QString& name) const { return m_folder.filePath(name); }
  const QString& graph() const { return m_graph; }
  void write(const QString& name, const QByteArray& bytes) const;

  void start(const QStringList& files);
  // Without a question and without an error message.
  void expect_its_end();

  // The title of the window with the graph file, as it was saved or with changes.
  QString saved_title() const { return m_name + " \u2013 kurv"; }
  QString changed_title() const { return m_name + "* \u2013 kurv"; }
  // The first save proposes the name and the folder of the table.
  void save_as_proposed();
  void save();

  // Opens the Edit menu, sees there which step can be undone or done again, and leaves the menu.
  void expect_to_undo(const QString& step);
  void expect_to_redo(const QString& step);
  // Undoes this step, which is the only one since the graph was saved.
  void take_back(const QString& step);

  QStringList saved_lines() const { return lines_of(m_graph); }
  // A length of the graph file.
  int pixels(int line) const;
  // Where the legend can be grabbed.
  QPoint legend_in(const Plot& plot) const;
  // Where a point is, by the limits in the graph file.
  QPoint point_in(const Plot& plot, double x, double y) const;

  // The plot, once the window in front shows what the program draws of the graph file without a
  // window.
  void find_plot(Plot& plot) const;
  // What the program draws of a file, with its options, without a window.
  QImage drawn_from(const QStringList& file) const;

 private:
  void expect_entry(const QString& text);

  QTemporaryDir m_folder;
  const QString m_name;
  const QString m_graph = path(m_name);
  QProcess m_kurv;
};

// As it is now.
Plot plot_in_front();

// Waits until the plot in front does not look like this any more.
testing::AssertionResult comes_to_differ(const Plot& before);

}  // namespace kurv::test
