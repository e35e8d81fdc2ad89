// The graph that an import would draw, as a picture in the size of the view.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "app/graph/graph_intake.h"
#include "app/window/picture_view.h"

namespace kurv::app {

// Data that the graph refuses show its reason in place of the picture.
class PicturePreview final : public PictureView {
 public:
  explicit PicturePreview(QWidget* parent = nullptr);
  ~PicturePreview() override;

  void show_graph(const GraphChoice& choice, const std::string& path, const TableData& table);
  // Shows that there is nothing to draw.
  void clear();

 private:
  struct Graph;
  struct Shown {
    GraphChoice choice;
    std::string path;
    TableData data;
  };

  QImage drawn_graph();

  std::optional<Shown> m_shown;
  std::unique_ptr<Graph> m_graph;
};

}  // namespace kurv::app
