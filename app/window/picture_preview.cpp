#include "app/window/picture_preview.h"

#include <KurvGraph/fault.h>
#include <KurvGraph/headless.h>
#include <KurvGraph/picture.h>

#include <QElapsedTimer>
#include <QPainter>
#include <algorithm>
#include <new>

#include "app/base/fault_words.h"
#include "app/graph/message_recorder.h"
#include "app/window/window_texts.h"

namespace kurv::app {

namespace {

// Drawing takes at most a third of the time while changes go on.
constexpr int kLeastDelay = 50;   // ms
constexpr int kMostDelay = 1000;  // ms

}  // namespace

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

PicturePreview::PicturePreview(QWidget* parent) : QWidget(parent) {
  setAccessibleName("The graph that is imported");
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  m_delay.setSingleShot(true);
  m_delay.setInterval(kLeastDelay);
  connect(&m_delay, &QTimer::timeout, this, [this] { draw(); });
}

PicturePreview::~PicturePreview() = default;

QSize PicturePreview::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 60, fontMetrics().height() * 16};
}

QSize PicturePreview::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * 30, fontMetrics().height() * 8};
}

void PicturePreview::show_graph(const GraphChoice& choice, const std::string& path,
                                const TableData& table) {
  m_shown = Shown{choice, path, table};
  m_delay.start();
}

void PicturePreview::clear() {
  m_shown.reset();
  m_delay.stop();
  show_text("No graph yet");
}

void PicturePreview::show_text(const QString& text) {
  m_picture = {};
  m_text = text;
  setAccessibleDescription(text);
  update();
}

void PicturePreview::draw() {
  m_delay.stop();
  if (!m_shown || size().isEmpty()) return;
  try {
    QElapsedTimer timer;
    timer.start();
    draw_graph();
    const auto longest = static_cast<qint64>(kMostDelay);
    const qint64 delay = std::min(2 * timer.elapsed(), longest);
    m_delay.setInterval(std::max(kLeastDelay, static_cast<int>(delay)));
    return;
  } catch (const Fault& fault) {
    show_text("This" + QString::fromStdString(fault_clause(Attempt::kDraw, fault.kind())));
  } catch (const std::bad_alloc&) {
    show_text("There is not enough memory for the picture.");
  }
  m_graph.reset();
}

void PicturePreview::draw_graph() {
  if (!m_graph || m_graph->size != size() || m_graph->ratio != devicePixelRatioF()) {
    m_graph.reset();
    m_graph = std::make_unique<Graph>(size(), devicePixelRatioF());
  }
  Control& control = m_graph->control;
  control.set_AxisLabelFormatX(m_graph->x_format);
  control.set_AxisLabelFormatY(m_graph->y_format);
  plot_table(m_shown->choice, m_shown->path, m_shown->data, control);
  if (!m_graph->shell.empty()) {
    show_text(capitalised(QString::fromStdString(m_graph->shell.sentence())) + '.');
    m_graph.reset();
    return;
  }
  control.ChartOptions("refresh");
  m_picture = m_graph->picture.image();
  m_text.clear();
  setAccessibleDescription({});
  update();
}

void PicturePreview::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  // Until the graph has been drawn in a new size, the last picture keeps its own.
  if (!m_picture.isNull()) return painter.drawImage(0, 0, m_picture);
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  painter.setPen(palette().color(QPalette::WindowText));
  const QRect inside = rect().adjusted(8, 8, -8, -8);
  painter.drawText(inside, Qt::AlignCenter | Qt::TextWordWrap, m_text);
}

void PicturePreview::resizeEvent(QResizeEvent*) {
  if (m_shown) m_delay.start();
}

}  // namespace kurv::app
