// A graph in the main window that grows with its table.
#include "app/window/follower.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

#include <KurvGraph/limits.h>

#include <QStatusBar>

#include "app/base/user_error.h"
#include "tests/app/window/window_fixture.h"

namespace kurv::app {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class Following : public Windows {
 protected:
  ~Following() override {
    if (m_writer >= 0) ::close(m_writer);
  }

  // Follows a pipe that write() writes to.
  MainWindow* follow_pipe(const GraphChoice& choice = {}) {
    const std::string fifo = path("fifo");
    EXPECT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    MainWindow* const kurv = follow(fifo, choice);
    m_writer = ::open(fifo.c_str(), O_WRONLY);
    return kurv;
  }

  // Limits that are no round numbers say which rows have come.
  MainWindow* follow(const std::string& file, GraphChoice choice = {}) {
    choice.round_limits = false;
    auto* const kurv =
        new MainWindow(std::nullopt, [this](const std::string& text) { said.push_back(text); });
    auto* const follower = new Follower(*kurv, choice, file,
                                        [this](const std::string& text) { said.push_back(text); });
    follower->failed = [this] { m_has_failed = true; };
    follower->start();
    return kurv;
  }

  void write(const std::string& text) {
    ASSERT_EQ(::write(m_writer, text.data(), text.size()), static_cast<ssize_t>(text.size()));
  }
  void end() { ::close(std::exchange(m_writer, -1)); }

  static std::string rows(int first, int last) {
    std::string text;
    for (int i = first; i <= last; ++i) {
      text += std::to_string(i) + ',' + std::to_string(i * 10) + ',' + std::to_string(-i) + '\n';
    }
    return text;
  }

  template <class Check>
  static bool becomes(const Check& check) {
    return QTest::qWaitFor(check, 5000);
  }
  static QString status(MainWindow* window) { return window->statusBar()->currentMessage(); }
  static QString hint(MainWindow* window) {
    const auto* const label = window->findChild<QLabel*>("lblHint");
    return label->isVisible() ? label->text() : QString();
  }

  int m_writer = -1;
  bool m_has_failed = false;
};

TEST_F(Following, TheGraphGrowsAndTheEndIsSaid) {
  MainWindow* const kurv = follow_pipe();
  EXPECT_EQ(hint(kurv), QStringLiteral("Waiting for rows\u2026"));
  write("t,up,down\n1,10,5\n");
  QTest::qWait(100);
  EXPECT_FALSE(kurv->graph().has_graph());
  write("2,20,3\n");
  EXPECT_TRUE(becomes([&] { return kurv->graph().has_graph(); }));
  EXPECT_EQ(hint(kurv), "");
  write(rows(3, 500));
  EXPECT_TRUE(becomes([&] { return kurv->graph().xmax() == 500; }));
  write("501,1,1");
  end();
  EXPECT_TRUE(becomes([&] { return kurv->graph().xmax() == 501; }));
  EXPECT_EQ(status(kurv), "fifo has ended after 501 rows.");
  EXPECT_THAT(said, IsEmpty());
  EXPECT_TRUE(kurv->is_saved());
  EXPECT_TRUE(kurv->close());
}

TEST_F(Following, WhatTheUserHasSetStaysAndAloneIsUnsavedWork) {
  MainWindow* const kurv = follow_pipe();
  write("t,up,down\n" + rows(1, 50));
  EXPECT_TRUE(becomes([&] { return kurv->graph().has_graph(); }));
  write(rows(51, 200));
  EXPECT_TRUE(becomes([&] { return kurv->graph().xmax() == 200; }));
  EXPECT_TRUE(kurv->is_saved());
  KurvGraph& graph = kurv->graph();
  graph.set_Title("Mine");
  EXPECT_FALSE(kurv->is_saved());
  graph.set_Autoscale(false);
  graph.set_ymax(123);
  graph.set_FontSize(14);
  EXPECT_EQ(graph.add_function("x^2"), std::nullopt);
  write(rows(201, 300));
  QTest::qWait(300);
  EXPECT_EQ(graph.Title(), "Mine");
  EXPECT_EQ(graph.ymax(), 123);
  EXPECT_EQ(graph.xmax(), 200);
  EXPECT_EQ(graph.FontSize(), 14);
  EXPECT_EQ(graph.functions().size(), 1U);
  EXPECT_FALSE(kurv->is_saved());
  graph.set_Title("fifo");
  answer<QMessageBox>([](QMessageBox& box) { box.reject(); });
  EXPECT_FALSE(kurv->close());
}

TEST_F(Following, AColumnThatTurnsOutToHaveNumbersIsAdded) {
  MainWindow* const kurv = follow_pipe();
  write("t,up,down\n1,10,\n2,20,\n");
  EXPECT_TRUE(becomes([&] { return kurv->graph().has_graph(); }));
  kurv->graph().set_SubTitle("kept");
  write("3,30,7\n4,40,9000\n");
  EXPECT_TRUE(becomes([&] { return kurv->graph().ymax() >= 9000; }));
  EXPECT_EQ(kurv->graph().SubTitle(), "kept");
}

TEST_F(Following, MoreRowsThanAGraphHoldsAreToldOnce) {
  const std::string file =
      written(path("long.csv"), QByteArray::fromStdString("t,up,down\n" + rows(1, 40000)));
  MainWindow* const kurv = follow(file);
  EXPECT_TRUE(becomes([&] { return kurv->graph().xmax() == 40000; }));
  EXPECT_EQ(kurv->graph().xmin(), 40000 - kMaxPoints + 1);
  EXPECT_THAT(said, ElementsAre(HasSubstr("the newest are kept")));
  EXPECT_TRUE(kurv->findChild<QWidget*>("barNotices")->isVisible());
}

TEST_F(Following, TheBarSaysWhatIsLeftOut) {
  MainWindow* const kurv = follow_pipe();
  auto* const bar = kurv->findChild<QWidget*>("barNotices");
  write("t,up,state\n1,10,on\n2,20,off\n");
  EXPECT_TRUE(becomes([&] { return kurv->graph().has_graph(); }));
  EXPECT_TRUE(bar->isVisible());
  EXPECT_THAT(said, ElementsAre(HasSubstr("column \"state\" holds words")));
}

TEST_F(Following, AFileIsReadOnAfterItWasTruncatedOrReplaced) {
  const std::string file = written(
      path("log.csv"), QByteArray::fromStdString("t,up,down\n" + rows(1, 150) + "half a li"));
  MainWindow* const kurv = follow(file);
  EXPECT_TRUE(becomes([&] { return kurv->graph().xmax() == 150; }));
  written(file, "t,up,down\n200,1,1\n");
  EXPECT_TRUE(becomes([&] { return kurv->graph().xmax() == 200; }));
  EXPECT_EQ(status(kurv), "log.csv has become shorter; it is read from its beginning.");
  ASSERT_EQ(::rename(file.c_str(), path("log.old").c_str()), 0);
  EXPECT_TRUE(becomes([&] { return status(kurv).contains("not there any more"); }));
  written(file, "t,up,down\n300,1,1\n");
  EXPECT_TRUE(becomes([&] { return kurv->graph().xmax() == 300; }));
  EXPECT_EQ(status(kurv), "log.csv is a new file; it is read from its beginning.");
  EXPECT_THAT(said, IsEmpty());
  EXPECT_FALSE(m_has_failed);
}

TEST_F(Following, TheWindowSaysWhatCannotBeRead) {
  MainWindow* const kurv = follow_pipe();
  write(std::string("\x7F\x45\x4C\x46\0\0\0\0\n", 9));
  EXPECT_TRUE(becomes([&] { return m_has_failed; }));
  EXPECT_THAT(hint(kurv).toStdString(), HasSubstr("is no text"));
  EXPECT_EQ(said.size(), 1U);
}

TEST_F(Following, ClosingTheWindowEndsTheReading) {
  MainWindow* const kurv = follow_pipe();
  write("t,up,down\n" + rows(1, 10));
  EXPECT_TRUE(becomes([&] { return kurv->graph().has_graph(); }));
  EXPECT_TRUE(kurv->close());
  QTest::qWait(50);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  ::signal(SIGPIPE, SIG_IGN);
  EXPECT_EQ(::write(m_writer, "x", 1), -1);
  EXPECT_EQ(errno, EPIPE);
}

TEST_F(Following, AnotherFileOpensInAWindowOfItsOwn) {
  MainWindow* const kurv = follow_pipe();
  write("t,up,down\n" + rows(1, 10));
  EXPECT_TRUE(becomes([&] { return kurv->graph().has_graph(); }));
  EXPECT_TRUE(kurv->open(graph_file()));
  EXPECT_EQ(all().size(), 2U);
}

TEST_F(Following, AFileThatCannotBeOpenedIsAnError) {
  auto* const kurv = window();
  EXPECT_THROW(Follower(*kurv, {}, path("none.csv"), {}), UserError);
}

TEST_F(Following, NotesComeWithTheFirstPicture) {
  MainWindow* const kurv = follow_pipe();
  write("t,v,state\n1,10,on\n2,20,off\n");
  const auto* const bar = kurv->findChild<QWidget*>("barNotices");
  ASSERT_TRUE(becomes([&] { return kurv->graph().has_graph(); }));
  EXPECT_TRUE(bar->isVisible());
  ASSERT_EQ(said.size(), 1u);
  EXPECT_THAT(said[0], HasSubstr("warning: column \"state\" holds words"));
  write("3,30,on\n");
  ASSERT_TRUE(becomes([&] { return kurv->graph().xmax() == 3; }));
  end();
  ASSERT_TRUE(becomes([&] { return status(kurv).contains("has ended"); }));
  EXPECT_EQ(said.size(), 1u) << "each is said once";
  EXPECT_TRUE(bar->isVisible());
}

}  // namespace
}  // namespace kurv::app
