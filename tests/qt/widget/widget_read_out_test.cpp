// What the widget says about the point under the mouse.
#include <gmock/gmock.h>

#include <cstdlib>
#include <new>

#include "tests/qt/widget/read_out_test.h"

namespace {

// While it is set there is no memory for an array of the points.
bool fails_large = false;
constexpr std::size_t kLarge = 100'000;

void* allocated(std::size_t size) {
  if (fails_large && size >= kLarge) throw std::bad_alloc();
  if (void* const memory = std::malloc(size > 0 ? size : 1)) return memory;
  throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) {
  return allocated(size);
}
void* operator new[](std::size_t size) {
  return allocated(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace kurv::test {
namespace {

TEST_F(WidgetReadOut, SaysNothingWhereItIsOff) {
  EXPECT_FALSE(m_graph.readout_enabled());
  const QImage before = m_plot.grab().toImage();
  point(at(2, 4));
  EXPECT_EQ(m_plot.grab().toImage(), before);
  EXPECT_TRUE(m_read_outs.empty());
  EXPECT_TRUE(tip_at(at(2, 4)).startsWith("Double-click to edit the curves"));
  QApplication::setActiveWindow(&m_graph);
  m_plot.focus_on(Region::kFrame);
  key(Qt::Key_Tab);
  EXPECT_FALSE(m_plot.focused_point());
}

TEST_F(WidgetReadOut, SaysWhichPointIsNear) {
  m_graph.set_readout_enabled(true);
  point(at(2, 4) + QPointF(3, -4));
  ASSERT_EQ(m_read_outs.size(), 1u);
  const ReadOut& said = m_read_outs.back();
  EXPECT_EQ(said.nearest, (CurvePoint{"a", false, 1, 2, 2, 4}));
  const QPointF place = *m_graph.data_at(at(2, 4) + QPointF(3, -4) + m_graph.plot_rect().topLeft());
  EXPECT_NEAR(said.place->x(), place.x(), 1e-9);
  EXPECT_NEAR(said.place->y(), place.y(), 1e-9);
  EXPECT_EQ(said.x_text.toDouble(), 2);
  EXPECT_EQ(said.y_text.toDouble(), 4);
  point(at(2, 4) + QPointF(6, -6));
  EXPECT_FALSE(m_read_outs.back().nearest) << "too far";
  EXPECT_TRUE(m_read_outs.back().place);
}

TEST_F(WidgetReadOut, SaysThePlaceWhereNoPointIsNear) {
  m_graph.set_readout_enabled(true);
  point(at(1.5, 4.5));
  ASSERT_EQ(m_read_outs.size(), 1u);
  EXPECT_FALSE(m_read_outs.back().nearest);
  EXPECT_NEAR(m_read_outs.back().x_text.toDouble(), 1.5, 0.01);
  EXPECT_NEAR(m_read_outs.back().y_text.toDouble(), 4.5, 0.02);
  point(at(1.5, 4.5));
  EXPECT_EQ(m_read_outs.size(), 1u) << "nothing has changed";
  point({2, 2});
  EXPECT_EQ(m_read_outs.back(), ReadOut()) << "beside the plot";
}

TEST_F(WidgetReadOut, IsEmptyWhenTheMouseLeaves) {
  m_graph.set_readout_enabled(true);
  point(at(2, 4));
  EXPECT_FALSE(m_plot.ring().isEmpty());
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&m_plot, &leave);
  process_all();
  EXPECT_EQ(m_read_outs.back(), ReadOut());
  EXPECT_TRUE(m_plot.ring().isEmpty());
}

TEST_F(WidgetReadOut, DrawsARingOverThePictureAlone) {
  m_graph.set_readout_enabled(true);
  const QImage picture = m_graph.image();
  const QByteArray svg = m_graph.svg();
  m_listener.redraws_since();
  point(at(2, 4) + QPointF(2, 0));
  EXPECT_TRUE(has_ring(at(2, 4)));
  EXPECT_EQ(m_listener.redraws_since(), 0);
  EXPECT_EQ(m_graph.image(), picture);
  EXPECT_EQ(m_graph.svg(), svg);
  point(at(1.5, 4.5));
  EXPECT_FALSE(has_ring(at(2, 4)));
}

TEST_F(WidgetReadOut, HasAToolTipWithNameAndValues) {
  m_graph.set_readout_enabled(true);
  point(at(2, 4));
  const QString tip = tip_at(at(2, 4));
  EXPECT_TRUE(tip.contains("<b>a</b>")) << tip.toStdString();
  EXPECT_TRUE(tip.contains("x: 2")) << tip.toStdString();
  EXPECT_TRUE(tip.contains("y: 4")) << tip.toStdString();
  point(at(1.5, 4.5));
  EXPECT_TRUE(tip_at(at(1.5, 4.5)).startsWith("Double-click to edit the curves"));
}

TEST_F(WidgetReadOut, ShowsANameWithMarkupAsItIs) {
  m_graph.plot({.title = "t", .x = {1, 2, 3}, .y = {{"<i>p&q</i>", {1, 4, 2}}}});
  m_graph.set_readout_enabled(true);
  point(at(2, 4));
  EXPECT_TRUE(tip_at(at(2, 4)).contains("&lt;i&gt;p&amp;q&lt;/i&gt;"));
}

TEST_F(WidgetReadOut, FollowsTheGraph) {
  m_graph.set_readout_enabled(true);
  point(at(2, 4));
  const QRect ring = m_plot.ring();
  m_graph.set_ymax(20);
  m_graph.build_the_graph();
  EXPECT_NE(m_plot.ring(), ring) << "the point has moved away";
  EXPECT_TRUE(m_plot.ring().isEmpty());
  // The limits are those from before.
  m_graph.plot({.title = "t", .x = {1, 2, 3}, .y = {{"c", {1, 4, 5}}}});
  process_all();
  EXPECT_FALSE(m_plot.ring().isEmpty());
  EXPECT_EQ(said(), "c 2: 2.00 4.0");
}

TEST_F(WidgetReadOut, FindsNoPointUnderTheLegendAndNoneDuringADrag) {
  m_graph.set_readout_enabled(true);
  point(at(2, 4));
  m_mouse.press(at(2, 4));
  process_all();
  EXPECT_EQ(m_read_outs.back(), ReadOut());
  m_mouse.release(at(2, 4));
  process_all();
  EXPECT_TRUE(m_read_outs.back().nearest);
  const QPointF target = at(2, 4);
  Rect& legend = m_graph.layout().picLegend;
  legend.left = static_cast<Single>(target.x() * 15 - legend.width / 2);
  legend.top = static_cast<Single>(target.y() * 15 - legend.height / 2);
  m_graph.build_the_graph();
  process_all();
  EXPECT_FALSE(m_read_outs.back().nearest);
}

TEST_F(WidgetReadOut, ReportsSortedPointsInTheOrderOfTheHost) {
  m_graph.plot({.title = "t", .x = {3, 1, 2}, .y = {{"c", {5, 1, 4}}}});
  m_graph.set_SortXY(true);
  m_graph.build_the_graph();
  m_graph.set_readout_enabled(true);
  point(at(2, 4));
  EXPECT_EQ(m_read_outs.back().nearest->point, 3);
}

TEST_F(WidgetReadOut, WritesXAsTheHostDoes) {
  m_graph.set_x_text([](double value, double resolution) {
    return QStringLiteral("%1 by %2").arg(value).arg(resolution > 0 ? 1 : 0);
  });
  m_graph.set_readout_enabled(true);
  point(at(2, 4));
  EXPECT_EQ(said(), "a 2: 2.00 4.0") << "plain numbers";
  m_graph.set_x_unit(AxisUnit::kYears);
  point(at(2, 4) + QPointF(1, 0));
  EXPECT_EQ(said(), "a 2: 2 by 0 4.0");
  point(at(1.5, 4.5));
  EXPECT_TRUE(m_read_outs.back().x_text.endsWith("by 1"));
}

TEST_F(WidgetReadOut, SurvivesASlotThatDeletesTheWidget) {
  auto* const graph = new OpenGraph;
  const QPointer<OpenGraph> alive = graph;
  graph->plot(small_graph());
  graph->show();
  graph->set_readout_enabled(true);
  process_all();
  QObject::connect(graph, &KurvGraph::pointed, &m_graph, [graph] { delete graph; });
  const QPointF place = *graph->pixel_of(2, 4) - graph->plot_rect().topLeft();
  Mouse(graph->view()).move(place, false);
  EXPECT_TRUE(alive) << "during the event";
  process_all();
  EXPECT_FALSE(alive);
}

TEST_F(WidgetReadOut, FindsNoPointWithoutMemoryForTheSearch) {
  constexpr int kPoints = 32767;
  std::vector<double> x(kPoints), y(kPoints);
  for (std::size_t i = 0; i < x.size(); ++i) {
    x[i] = static_cast<double>(i);
    y[i] = 4;
  }
  m_graph.plot({.title = "t", .x = x, .y = {{"c", y}}});
  m_graph.set_readout_enabled(true);
  const QPointF place = at(x[100], 4);
  fails_large = true;
  point(place);
  fails_large = false;
  EXPECT_FALSE(m_read_outs.back().nearest);
  point(place + QPointF(1, 0));
  EXPECT_TRUE(m_read_outs.back().nearest) << "there is memory again";
}

}  // namespace
}  // namespace kurv::test
