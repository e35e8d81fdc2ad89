// Widgets of the C interface, in the shared library as a host sees it.
#include <KurvGraph/kurvgraph_c.h>

#include <gtest/gtest.h>

#include <QApplication>
#include <QLayout>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr double kX[] = {1, 2, 3};
constexpr double kY[] = {1, 4, 9};

std::int32_t load_squares(kurv_graph graph) {
  const kurv_text name = {"y", 1};
  kurv_value arguments[] = {kurv_matrix(kY, 1, 3),  kurv_doubles(kX, 3), kurv_integer(3),
                            kurv_integer(1),        kurv_string("T"),    kurv_string("x"),
                            kurv_strings(&name, 1), kurv_integer(0),     kurv_strings(nullptr, 0)};
  return kurv_call(graph, "scatter_graph", arguments, std::size(arguments));
}

void note(kurv_graph, const kurv_event* event, void* user) {
  static_cast<std::vector<std::string>*>(user)->emplace_back(event->name);
}

class Widgets : public testing::Test {
 protected:
  ~Widgets() override { EXPECT_EQ(kurv_living(), 0); }

  kurv_graph create(QWidget* parent) {
    void* widget = nullptr;
    kurv_graph graph = nullptr;
    EXPECT_EQ(kurv_create_widget(parent, &graph, &widget), KURV_OK);
    m_widget = static_cast<QWidget*>(widget);
    return graph;
  }

  QPointer<QWidget> m_widget;
};

TEST_F(Widgets, AreChildrenWithEveryMember) {
  QWidget window;
  const kurv_graph graph = create(&window);
  ASSERT_TRUE(m_widget);
  EXPECT_EQ(m_widget->parentWidget(), &window);
  void* same = nullptr;
  EXPECT_EQ(kurv_get_widget(graph, &same), KURV_OK);
  EXPECT_EQ(same, m_widget.data());
  EXPECT_EQ(load_squares(graph), KURV_OK);
  kurv_value title;
  EXPECT_EQ(kurv_get(graph, "title", &title), KURV_OK);
  EXPECT_STREQ(title.as.text.bytes, "T");
  kurv_value_clear(&title);
  EXPECT_EQ(kurv_add_function(graph, "x^2"), KURV_OK);
  EXPECT_EQ(kurv_add_function(graph, "x^"), KURV_INVALID_CALL);
  EXPECT_EQ(kurv_derive(graph, "twice", "2*y"), KURV_OK);
  const double later[] = {4, 16};
  const kurv_value points = kurv_matrix(later, 2, 1);
  EXPECT_EQ(kurv_append_points(graph, &points), KURV_OK);
  EXPECT_EQ(kurv_press_mouse(graph, 1, 0, 0, 0), KURV_INVALID_CALL);
  EXPECT_EQ(kurv_release_mouse(graph, 1, 0, 0, 0), KURV_INVALID_CALL);
  EXPECT_EQ(kurv_destroy(graph), KURV_OK);
  EXPECT_FALSE(m_widget);
  EXPECT_EQ(kurv_destroy(graph), KURV_INVALID_HANDLE);
}

TEST_F(Widgets, HavePixels) {
  const kurv_graph graph = create(nullptr);
  EXPECT_EQ(kurv_resize(graph, 300, 200, 1), KURV_OK);
  EXPECT_EQ(load_squares(graph), KURV_OK);
  kurv_pixels pixels{};
  pixels.size = sizeof(pixels);
  EXPECT_EQ(kurv_get_pixels(graph, &pixels), KURV_OK);
  EXPECT_EQ(pixels.width, 300);
  EXPECT_EQ(pixels.height, 200);
  EXPECT_EQ(kurv_destroy(graph), KURV_OK);
}

TEST_F(Widgets, EndWithTheirParents) {
  auto window = std::make_unique<QWidget>();
  const kurv_graph graph = create(window.get());
  std::vector<std::string> events;
  EXPECT_EQ(kurv_listen(graph, note, &events), KURV_OK);
  EXPECT_EQ(load_squares(graph), KURV_OK);
  window.reset();
  EXPECT_EQ(events.back(), "destroyed");
  EXPECT_EQ(load_squares(graph), KURV_INVALID_HANDLE);
  EXPECT_EQ(kurv_destroy(graph), KURV_INVALID_HANDLE);
}

TEST_F(Widgets, MayBeLeftToTheirParents) {
  QWidget window;
  const kurv_graph graph = create(&window);
  EXPECT_EQ(kurv_detach(graph), KURV_OK);
  EXPECT_TRUE(m_widget);
  EXPECT_EQ(load_squares(graph), KURV_INVALID_HANDLE);
  EXPECT_EQ(kurv_living(), 0);
  const kurv_graph alone = create(nullptr);
  EXPECT_EQ(kurv_detach(alone), KURV_OK);
  EXPECT_FALSE(m_widget);
}

void click(QWidget& plot) {
  const QPointF at(100, 90);
  for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    const auto buttons = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    QMouseEvent event(type, at, plot.mapToGlobal(at), Qt::LeftButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(&plot, &event);
  }
}

TEST_F(Widgets, ReportTheMouse) {
  const kurv_graph graph = create(nullptr);
  std::vector<std::string> events;
  EXPECT_EQ(kurv_listen(graph, note, &events), KURV_OK);
  EXPECT_EQ(load_squares(graph), KURV_OK);
  m_widget->show();
  events.clear();
  click(*m_widget->findChild<QWidget*>("PicGraph"));
  EXPECT_EQ(events, (std::vector<std::string>{"MouseUp"}));
  EXPECT_EQ(kurv_destroy(graph), KURV_OK);
}

TEST_F(Widgets, MayBeDestroyedByTheirListener) {
  const kurv_graph graph = create(nullptr);
  const auto destroy = [](kurv_graph own, const kurv_event* event, void*) {
    if (event->id != KURV_MOUSE_UP) return;
    EXPECT_EQ(kurv_destroy(own), KURV_OK);
  };
  EXPECT_EQ(load_squares(graph), KURV_OK);
  EXPECT_EQ(kurv_listen(graph, destroy, nullptr), KURV_OK);
  m_widget->show();
  click(*m_widget->findChild<QWidget*>("PicGraph"));
  EXPECT_FALSE(m_widget);
}

TEST_F(Widgets, BelongToTheThreadOfTheApplication) {
  const kurv_graph graph = create(nullptr);
  std::thread([&] {
    kurv_graph other = nullptr;
    EXPECT_EQ(kurv_create_widget(nullptr, &other, nullptr), KURV_WRONG_THREAD);
    EXPECT_EQ(kurv_process_events(0), KURV_WRONG_THREAD);
    EXPECT_EQ(load_squares(graph), KURV_WRONG_THREAD);
    EXPECT_EQ(kurv_destroy(graph), KURV_OK);
  }).join();
  EXPECT_TRUE(m_widget);
  EXPECT_EQ(kurv_process_events(0), KURV_OK);
  EXPECT_FALSE(m_widget);
}

TEST_F(Widgets, FailFilesAsTheControlDoes) {
  const kurv_graph graph = create(nullptr);
  kurv_value path = kurv_string("/nowhere/at/all.gdf");
  EXPECT_EQ(kurv_call(graph, "file_load", &path, 1), KURV_PATH_NOT_FOUND);
  kurv_error error{};
  error.size = sizeof(error);
  EXPECT_EQ(kurv_last_error(&error), KURV_OK);
  EXPECT_STREQ(error.detail.bytes, "/nowhere/at/all.gdf");
  EXPECT_EQ(load_squares(graph), KURV_OK);
  EXPECT_EQ(kurv_save_graph(graph, "/nowhere/at/all.gdf"), KURV_PATH_NOT_FOUND);
  EXPECT_EQ(kurv_save_png(graph, "/nowhere/at/all.png"), KURV_PATH_NOT_FOUND);
  EXPECT_EQ(kurv_destroy(graph), KURV_OK);
}

TEST_F(Widgets, NeedAWindowThatExists) {
  kurv_graph graph = nullptr;
  EXPECT_EQ(kurv_create_in_window(0, 300, 200, &graph, nullptr), KURV_CANNOT_CREATE);
  EXPECT_EQ(kurv_create_in_window(1, 0, 200, &graph, nullptr), KURV_INVALID_CALL);
  EXPECT_EQ(kurv_create_in_window(1, 10, 200, nullptr, nullptr), KURV_INVALID_CALL);
  EXPECT_EQ(graph, nullptr);
}

TEST_F(Widgets, WaitForEventsNoLongerThanTheyAreTold) {
  EXPECT_EQ(kurv_process_events(20), KURV_OK);
  EXPECT_EQ(kurv_process_events(-1), KURV_OK);
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  kurv_graph graph = nullptr;
  if (kurv_create_widget(nullptr, &graph, nullptr) != KURV_NO_APPLICATION ||
      kurv_process_events(0) != KURV_NO_APPLICATION) {
    return 1;
  }
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
