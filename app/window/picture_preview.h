// The graph that an import would draw, as a picture in the size of the view.
#pragma once

#include <QImage>
#include <QTimer>
#include <QWidget>
#include <memory>
#include <optional>
#include <string>

#include "app/graph/graph_intake.h"

namespace kurv::app {

// Draws a little after the last change of the graph or of the size, so that several changes in a
// row are drawn once. Data that the graph refuses show its reason in place of the picture.
class PicturePreview final : public QWidget {
 public:
  explicit PicturePreview(QWidget* parent = nullptr);
  ~PicturePreview() override;

  void show_graph(const GraphChoice& choice, const std::string& path, const TableData& table);
  // Shows that there is nothing to draw.
  void clear();

  // What is shown; null before anything has been drawn.
  const QImage& picture() const { return m_picture; }
  // Whether the picture is that of the last change.
  bool is_current() const { return !m_delay.isActive(); }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Graph;
  struct Shown {
    GraphChoice choice;
    std::string path;
    TableData data;
  };

  void draw();
  void draw_graph();
  void show_text(const QString& text);

  std::optional<Shown> m_shown;
  std::unique_ptr<Graph> m_graph;
  QImage m_picture;
  QString m_text;
  QTimer m_delay;
};

}  // namespace kurv::app
