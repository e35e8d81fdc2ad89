#include "app/window/main_window.h"

#include <QCloseEvent>
#include <QElapsedTimer>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QStackedLayout>
#include <QStatusBar>
#include <algorithm>

#include "app/window/main_menu.h"
#include "app/window/recent_files.h"
#include "app/window/window_graph.h"
#include "app/window/window_icon.h"
#include "app/window/window_message.h"
#include "app/window/window_texts.h"

namespace kurv::app {

namespace {

// Judging goes over the whole data. It waits a little, so that a stroke of redraws is judged once,
// and takes but a part of the time where the data are large.
constexpr int kShortestWait = 150;  // ms
constexpr int kShareOfTime = 8;

QByteArray text_of(const KurvGraph& graph) {
  return fingerprint([&graph](const auto& sink) { graph.graph_text(sink); });
}

// It lies over the surface of a graph, which is white on every desktop.
QLabel* new_hint() {
  auto* const hint = new QLabel;
  hint->setObjectName("lblHint");
  hint->setTextFormat(Qt::PlainText);
  hint->setAlignment(Qt::AlignCenter);
  hint->setWordWrap(true);
  hint->setMargin(24);
  hint->setAttribute(Qt::WA_TransparentForMouseEvents);
  QPalette colours = hint->palette();
  colours.setColor(QPalette::WindowText, QColor(0x50, 0x50, 0x50));
  hint->setPalette(colours);
  return hint;
}

}  // namespace

MainWindow::MainWindow(std::optional<QLocale> locale, Say say)
    : m_locale(std::move(locale)),
      m_say(std::move(say)),
      m_layout(new QStackedLayout),
      m_hint(new_hint()) {
  setAttribute(Qt::WA_DeleteOnClose);
  setAcceptDrops(true);
  setWindowIcon(window_icon());
  make_menu();
  statusBar()->setObjectName("barStatus");

  auto* const centre = new QWidget;
  centre->setLayout(m_layout);
  m_layout->setStackingMode(QStackedLayout::StackAll);
  m_layout->addWidget(m_hint);
  setCentralWidget(centre);
  m_judgement.setSingleShot(true);
  connect(&m_judgement, &QTimer::timeout, this, [this] { judge(); });

  m_graph = new_graph();
  listen(m_graph);
  fit_to_plot(kUsualSize);
  look();
}

MainWindow::~MainWindow() = default;

// Under what is shown. It has its place at once, because a graph file may change its size.
KurvGraph* MainWindow::new_graph() {
  auto* const graph = new WindowGraph(*this);
  graph->setObjectName("graph");
  graph->setAccessibleName("Graph");
  // The menu has the same keys.
  graph->setProperty("shortcuts_enabled", false);
  graph->setProperty("toolbar_visible", m_has_toolbar);
  if (m_locale) set_locale(*graph, *m_locale);
  m_layout->addWidget(graph);
  if (m_graph) {
    graph->resize(m_graph->size());
    graph->show();
  }
  return graph;
}

void MainWindow::listen(KurvGraph* graph) {
  connect(graph, &KurvGraph::redrawn, this, [this] { look(); });
  connect(graph, &KurvGraph::filed, this, [this] { graph_filed(); });
  connect(
      graph, &KurvGraph::changed, this, [this] { graph_changed(); }, Qt::QueuedConnection);
  connect(graph, &KurvGraph::runTimeError, this, [this](int, const QString& text) {
    // One box at a time: dragging a window's edge would open one for every size on the way.
    if (m_telling) return;
    m_telling = true;
    const QPointer<MainWindow> alive(this);
    tell((m_path.empty() ? QString("The graph") : file_label(m_path)) + ": " + text + '.');
    if (alive) m_telling = false;
  });
}

// What is on the disk is what a graph file said before the command line changed anything about it.
void MainWindow::put(const GraphChoice& choice, const GraphSource& source) {
  // Showing a graph puts its titles in their usual places, so it comes before they get their own.
  show();
  if (choice.size) fit_to_plot(*choice.size);
  const QPointer<KurvGraph> graph = new_graph();
  const QPointer<MainWindow> alive(this);
  QByteArray saved;
  const QMetaObject::Connection filed =
      connect(graph, &KurvGraph::filed, this, [&saved, graph] { saved = text_of(*graph); });
  try {
    fill(choice, source, *graph);
    if (!alive) return;
    finish_looks(choice, source, *graph, *graph);
  } catch (...) {
    delete graph;
    throw;
  }
  disconnect(filed);
  adopt(graph, saved.isNull() ? text_of(*graph) : saved, source.path);
  if (choice.size) {
    fit_to_plot(*choice.size);
  } else if (!source.data) {
    fit_to_graph();
  }
}

void MainWindow::adopt(KurvGraph* graph, const QByteArray& saved, const std::string& path) {
  // It asks nobody: this window has.
  m_graph->set_QueryForSave(false);
  m_graph->disconnect(this);
  m_graph->hide();
  m_graph->deleteLater();
  m_graph = graph;
  listen(graph);
  m_path = path;
  m_warned.clear();
  m_saved.mark(saved);
  RecentFiles().add(path);
  look();
  judge();
  graph->setFocus();
}

// -- Size -----------------------------------------------------------------------------------------

// A graph that has loaded a file has the size that was kept there; the window follows it.
void MainWindow::fit_to_graph() {
  const QSize change = m_graph->size() - centralWidget()->size();
  const bool free = !isMaximized() && !isFullScreen();
  if (free) resize((size() + change).boundedTo(screen()->availableSize()));
  m_graph->resize(centralWidget()->size());
}

// The size of a picture is that of the plot, without whatever stands around it.
void MainWindow::fit_to_plot(QSize plot) {
  ensurePolished();
  layout()->activate();
  m_graph->resize(centralWidget()->size());
  const QImage picture = m_graph->image();
  const QSizeF now = QSizeF(picture.size()) / picture.devicePixelRatio();
  resize(size() + plot - now.toSize());
  layout()->activate();
}

// -- State ----------------------------------------------------------------------------------------

bool MainWindow::has_data() const {
  return m_graph->has_graph() || !m_graph->FileName().empty();
}

bool MainWindow::is_saved() const {
  return !has_data() || m_saved.is_saved(text_of(*m_graph));
}

// Everything that can be told at a glance.
void MainWindow::look() {
  const bool has_graph = m_graph->has_graph();
  m_menu->enable(has_data(), has_graph);
  // The graph's own has entries for everything, and there is nothing yet.
  m_graph->setContextMenuPolicy(has_data() ? Qt::DefaultContextMenu : Qt::PreventContextMenu);
  m_hint->setVisible(!has_graph);
  m_hint->setText(has_data() ? refused_data_hint(m_path) : empty_window_hint());
  m_hint->raise();
  setWindowTitle(window_title(m_path));
  judge_soon();
}

void MainWindow::judge_soon() {
  if (!m_judgement.isActive()) m_judgement.start(std::max(kShortestWait, m_judgement.interval()));
}

void MainWindow::judge() {
  QElapsedTimer clock;
  clock.start();
  setWindowModified(!is_saved());
  m_judgement.setInterval(static_cast<int>(clock.elapsed()) * kShareOfTime);
}

// Many changes are not drawn at once, and of refused data nothing is drawn until they are mended.
void MainWindow::graph_changed() {
  judge_soon();
  if (has_data() && !m_graph->has_graph()) attempt([this] { m_graph->show_mended_data(); });
}

// The graph is still at work, so only what looks is done here.
void MainWindow::graph_filed() {
  m_saved.mark(text_of(*m_graph));
  m_path = m_graph->FileName();
  RecentFiles().add(m_path);
  for (const QString& function : m_graph->functions()) {
    if (m_warned.contains(function)) continue;
    warn_of_commas({function.toStdString()}, [&](const std::string& warning) {
      m_warned.insert(function);
      m_warnings.push_back(warning);
    });
  }
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (m_graph->size() != centralWidget()->size()) fit_to_graph();
        look();
        judge();
        tell_warnings();
      },
      Qt::QueuedConnection);
}

void MainWindow::tell_warnings() {
  QStringList lines;
  for (const std::string& warning : std::exchange(m_warnings, {})) {
    m_say("warning: " + warning);
    lines << QString::fromStdString(warning);
  }
  if (lines.isEmpty()) return;
  show_message(this, QMessageBox::Warning, "kurv", capitalised(lines.join('\n')));
}

}  // namespace kurv::app
