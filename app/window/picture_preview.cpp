#include "app/window/picture_preview.h"

#include <KurvGraph/headless.h>
#include <KurvGraph/picture.h>

#include <utility>

#include "app/base/user_error.h"
#include "app/graph/message_recorder.h"
#include "app/window/window_texts.h"

namespace kurv::app {

// A process has a limited number of controls, so one draws all pictures of a size.
struct PicturePreview::Graph {
  Graph(QSize size_of_picture, double ratio_of_picture)
      : size(size_of_picture),
        ratio(ratio_of_picture),
        picture(size, ratio),
        host(picture),
        control(host, shell, picture),
        x_format(control.AxisLabelFormatX()),
        y_format(control.AxisLabelFormatY()) {
    control.first_placement();
    control.show();
  }

  QSize size;
  double ratio;
  Picture picture;
  HeadlessContainer host;
  MessageRecorder shell;
  Control control;
  // Data change them where they do not suit.
  String x_format;
  String y_format;
};

PicturePreview::PicturePreview(QWidget* parent)
    : PictureView([this] { return drawn_graph(); }, parent) {
  setAccessibleName("The graph that is imported");
}

PicturePreview::~PicturePreview() = default;

void PicturePreview::show_graph(const GraphChoice& choice, const std::string& path,
                                const TableData& table) {
  m_shown = Shown{choice, path, table};
  draw_later();
}

void PicturePreview::clear() {
  m_shown.reset();
  show_text("No graph yet");
}

// A control that could not draw a graph is not used again.
QImage PicturePreview::drawn_graph() {
  std::unique_ptr<Graph> graph = std::move(m_graph);
  if (!graph || graph->size != size() || graph->ratio != devicePixelRatioF()) {
    graph.reset();
    graph = std::make_unique<Graph>(size(), devicePixelRatioF());
  }
  Control& control = graph->control;
  control.set_AxisLabelFormatX(graph->x_format);
  control.set_AxisLabelFormatY(graph->y_format);
  plot_table(m_shown->choice, m_shown->path, m_shown->data, control);
  if (!graph->shell.empty()) {
    const QString sentence = QString::fromStdString(graph->shell.sentence());
    throw UserError(capitalised(sentence).toStdString() + '.');
  }
  control.ChartOptions("refresh");
  QImage picture = graph->picture.image();
  m_graph = std::move(graph);
  return picture;
}

}  // namespace kurv::app
