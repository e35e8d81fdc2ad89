#include "app/window/main_window.h"

#include <KurvGraph/screen_fit.h>

#include <QClipboard>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QMenuBar>
#include <QStackedLayout>
#include <QStatusBar>
#include <QUndoStack>
#include <QVBoxLayout>
#include <algorithm>
#include <filesystem>

#include "app/base/absolute_path.h"
#include "app/csv/table_survey.h"
#include "app/window/main_menu.h"
#include "app/window/main_window_graph.h"
#include "app/window/notice_bar.h"
#include "app/window/read_out_label.h"
#include "app/window/recent_files.h"
#include "app/window/settings_text.h"
#include "app/window/transferred_table.h"
#include "app/window/window_icon.h"
#include "app/window/window_message.h"
#include "app/window/window_texts.h"

namespace kurv::app {

namespace {

// Comparing the content with the saved one goes over all data. The delay makes a series of redraws
// cost one comparison, and grows with the time that a comparison takes, so that large data leave
// most of the time to the user.
constexpr int kShortestDelay = 150;  // ms
constexpr int kDelayPerTime = 8;

// Dark grey on any desktop, because the graph below it is white on any desktop.
QLabel* new_hint() {
  auto* const hint = new QLabel;
  hint->setObjectName("lblHint");
  hint->setTextFormat(Qt::PlainText);
  hint->setAlignment(Qt::AlignCenter);
  hint->setWordWrap(true);
  hint->setMargin(24);
  // Also where it is hidden, a long file name in it would make the window as wide as that.
  hint->setMinimumWidth(1);
  hint->setAttribute(Qt::WA_TransparentForMouseEvents);
  QPalette colours = hint->palette();
  colours.setColor(QPalette::WindowText, QColor(0x50, 0x50, 0x50));
  hint->setPalette(colours);
  return hint;
}

bool is_regular_file(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::is_regular_file(path, ignored);
}

IgnoredFields ignored_fields(const KurvGraph& graph, bool is_following) {
  const bool limits_follow = is_following && graph.Autoscale();
  return {is_following, limits_follow, limits_follow && graph.round_limits(),
          graph.has_items_in_fitted_places()};
}

}  // namespace

MainWindow::MainWindow(std::optional<QLocale> locale, Report report)
    : m_locale(std::move(locale)),
      m_report(std::move(report)),
      m_notices(new NoticeBar),
      m_centre(new QWidget),
      m_layout(new QStackedLayout),
      m_hint(new_hint()),
      m_read_out(new ReadOutLabel) {
  setAttribute(Qt::WA_DeleteOnClose);
  setAcceptDrops(true);
  setWindowIcon(window_icon());
  make_menu();
  make_status_bar();
  // Messages go beside it.
  statusBar()->addPermanentWidget(m_read_out);

  auto* const centre = new QWidget;
  auto* const rows = new QVBoxLayout(centre);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(m_notices);
  rows->addWidget(m_centre, 1);
  m_notices->on_close([this] { show_notices({}); });
  m_centre->setLayout(m_layout);
  m_layout->setStackingMode(QStackedLayout::StackAll);
  m_layout->addWidget(m_hint);
  setCentralWidget(centre);
  m_modified_timer.setSingleShot(true);
  connect(&m_modified_timer, &QTimer::timeout, this, [this] { update_modified(); });

  connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, [this] { update_paste(); });

  m_graph = new_graph();
  connect_graph(m_graph);
  fit_to_screen(*this);
  resize_to_plot(kDefaultSize);
  update_actions();
  update_paste();
}

MainWindow::~MainWindow() = default;

QByteArray MainWindow::content_hash(const KurvGraph& graph) const {
  const TextSource text = [&graph](const auto& sink) { graph.graph_text(sink); };
  const QByteArray hash = fingerprint(settings_text(text, ignored_fields(graph, m_is_following)));
  if (!m_is_following || hash.isEmpty()) return hash;
  return hash + QByteArray::number(graph.cell_edits());
}

// Below the graph that is shown. It has that size at once, because a graph file may change it.
KurvGraph* MainWindow::new_graph() {
  auto* const graph = new MainWindowGraph(*this);
  graph->setObjectName("graph");
  graph->setAccessibleName("Graph");
  // The menu has the same keys.
  graph->setProperty("shortcuts_enabled", false);
  graph->setProperty("toolbar_visible", m_has_toolbar);
  graph->set_readout_enabled(true);
  if (m_locale) set_locale(*graph, *m_locale);
  m_layout->addWidget(graph);
  if (m_graph) {
    graph->resize(m_graph->size());
    graph->show();
  }
  return graph;
}

void MainWindow::connect_graph(KurvGraph* graph) {
  connect(graph, &KurvGraph::redrawn, this, [this] { update_actions(); });
  connect(graph, &KurvGraph::filed, this, [this] { graph_filed(); });
  connect(
      graph, &KurvGraph::changed, this, [this] { graph_changed(); }, Qt::QueuedConnection);
  connect(graph, &KurvGraph::printed, this, [this](const QString& file) {
    if (file.isEmpty()) return show_note("Printed");
    show_file_note("Printed", QFile::encodeName(file).toStdString());
  });
  connect(graph, &KurvGraph::pointed, this,
          [this](const ReadOut& read_out) { m_read_out->show_read_out(read_out); });
  connect(graph, &KurvGraph::runTimeError, this, [this](int number, const QString& text) {
    // One box at a time: resizing the window with the mouse would open one for each size.
    if (m_showing_error) return;
    m_showing_error = true;
    const QPointer<MainWindow> alive(this);
    show_error(run_time_error(number, text, m_path));
    if (alive) m_showing_error = false;
  });
}

// A graph file that was loaded is the clean state: what the command line changes is not saved.
void MainWindow::show_graph(const GraphChoice& choice, const GraphSource& source) {
  // Showing a graph puts its titles in their default places, so it comes before a graph file moves
  // them.
  show();
  if (choice.size) resize_to_plot(*choice.size);
  const QPointer<KurvGraph> graph = new_graph();
  const QPointer<MainWindow> alive(this);
  QByteArray saved;
  const QMetaObject::Connection filed = connect(
      graph, &KurvGraph::filed, this, [this, &saved, graph] { saved = content_hash(*graph); });
  try {
    if (source.data) graph->set_x_text(date_texts(*source.data));
    fill(choice, source, *graph);
    if (!alive) return;
    apply_settings(choice, source, *graph, *graph);
  } catch (...) {
    delete graph;
    throw;
  }
  disconnect(filed);
  replace_graph(graph, saved.isNull() ? content_hash(*graph) : saved, source.path);
  m_table = source.data && !m_is_following && is_regular_file(source.path) ? source.path : "";
  std::vector<std::string> notices;
  if (source.data) notices = source.data->warnings;
  if (const auto warning = legend_warning(graph->unlisted_curves())) notices.push_back(*warning);
  show_notices(notices);
  if (choice.size) {
    resize_to_plot(*choice.size);
  } else if (!source.data) {
    resize_to_graph();
  }
}

void MainWindow::replace_graph(KurvGraph* graph, const QByteArray& saved, const std::string& path) {
  // This window has asked about unsaved changes.
  m_graph->set_QueryForSave(false);
  m_graph->disconnect(this);
  m_graph->hide();
  m_graph->deleteLater();
  m_graph = graph;
  m_read_out->show_read_out({});
  connect_graph(graph);
  // From here on, so that nothing that has made the graph can be undone.
  m_undo.addStack(graph->undo_stack());
  m_undo.setActiveStack(graph->undo_stack());
  graph->set_zoom_enabled(true);
  m_path = path;
  if (graph->FileName().empty() && is_regular_file(path)) {
    graph->set_proposed_file(
        absolute_path(std::filesystem::path(path).replace_extension(".gdf").string()));
  }
  m_accepted_changes.clear();
  // Messages about the graph before; while one grows, the bar says what is read.
  if (!m_is_following) {
    end_note();
    show_status({});
  }
  // A pasted table is in no file, so it is unsaved as it is; no content has an empty fingerprint.
  m_clean_state.set_clean(path.empty() ? QByteArray("") : saved);
  if (!path.empty()) RecentFiles().add(path);
  update_actions();
  update_modified();
  graph->setFocus();
}

// -- Data that grow -------------------------------------------------------------------------------

void MainWindow::show_empty(std::optional<QSize> size) {
  show();
  if (size) resize_to_plot(*size);
}

void MainWindow::set_waiting_hint(const QString& text) {
  m_waiting_hint = text;
  update_actions();
}

void MainWindow::begin_following() {
  m_is_following = true;
}

void MainWindow::end_following() {
  const bool was_saved = is_saved();
  m_is_following = false;
  if (was_saved) m_clean_state.set_clean(content_hash(*m_graph));
  update_modified();
}

void MainWindow::change_unnoticed(const std::function<void(KurvGraph&)>& work) {
  const bool was_saved = is_saved();
  work(*m_graph);
  if (was_saved) m_clean_state.set_clean(content_hash(*m_graph));
}

// -- Size -----------------------------------------------------------------------------------------

// A graph that has loaded a file has the size from that file; the window is resized to fit it.
void MainWindow::resize_to_graph() {
  resize_on_screen(*this, size() + m_graph->size() - m_centre->size());
  m_graph->resize(m_centre->size());
}

// A picture has the size of the plot, without the menu, the toolbar, the notes and the status bar.
void MainWindow::resize_to_plot(QSize plot) {
  ensurePolished();
  activate_layouts();
  m_graph->resize(m_centre->size());
  resize_on_screen(*this, size() + plot - m_graph->plot_rect().size());
  activate_layouts();
}

void MainWindow::activate_layouts() {
  layout()->activate();
  centralWidget()->layout()->activate();
}

// The window becomes higher or lower by the bar, so that the plot keeps its size.
void MainWindow::show_notices(const std::vector<std::string>& warnings) {
  QStringList notes;
  for (const std::string& warning : warnings) {
    notes << capitalised(QString::fromStdString(
        in_dialog_words(m_table.empty() ? without_advice(warning) : warning)));
  }
  m_notices->on_change(m_table.empty() ? std::function<void()>()
                                       : [this] { open(std::string(m_table)); });
  const bool was_visible = !m_notices->isHidden();
  const bool had_focus = m_notices->isAncestorOf(focusWidget());
  m_notices->set_notes(notes);
  if (was_visible == !notes.isEmpty()) return;
  if (had_focus) m_graph->setFocus();
  const int height = m_notices->sizeHint().height();
  m_notices->setVisible(!was_visible);
  resize_on_screen(*this, size() + QSize(0, was_visible ? -height : height));
  activate_layouts();
}

// -- State ----------------------------------------------------------------------------------------

bool MainWindow::has_data() const {
  return m_graph->has_graph() || !m_graph->FileName().empty();
}

bool MainWindow::is_saved() const {
  return !has_data() || m_clean_state.is_clean(content_hash(*m_graph));
}

// Updates the actions, the hint and the title, which cost little.
void MainWindow::update_actions() {
  const bool has_graph = m_graph->has_graph();
  m_menu->enable(has_data(), has_graph);
  m_menu->check_round_limits(m_graph->round_limits());
  m_menu->enable_show_all(has_graph && m_graph->is_zoomed());
  // The graph's context menu has entries that need data.
  m_graph->setContextMenuPolicy(has_data() ? Qt::DefaultContextMenu : Qt::PreventContextMenu);
  m_hint->setVisible(!has_graph);
  m_hint->setText(has_data()                  ? refused_data_hint(m_path)
                  : !m_waiting_hint.isEmpty() ? m_waiting_hint
                                              : empty_window_hint());
  m_hint->raise();
  setWindowTitle(window_title(m_path, has_data()));
  schedule_update_modified();
}

void MainWindow::schedule_update_modified() {
  if (!m_modified_timer.isActive())
    m_modified_timer.start(std::max(kShortestDelay, m_modified_timer.interval()));
}

void MainWindow::update_modified() {
  QElapsedTimer clock;
  clock.start();
  setWindowModified(!is_saved());
  m_modified_timer.setInterval(static_cast<int>(clock.elapsed()) * kDelayPerTime);
}

// Not every change causes a redraw. Data that could not be plotted are tried again after each one.
void MainWindow::graph_changed() {
  schedule_update_modified();
  if (has_data() && !m_graph->has_graph()) run_guarded([this] { m_graph->show_mended_data(); });
}

// The graph is still saving or loading, so what may resize it or open a box is done later.
void MainWindow::graph_filed() {
  ++m_times_filed;
  m_clean_state.set_clean(content_hash(*m_graph));
  m_path = m_graph->FileName();
  RecentFiles().add(m_path);
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (m_graph->size() != m_centre->size()) resize_to_graph();
        update_actions();
        update_modified();
      },
      Qt::QueuedConnection);
}

// Not with each redraw, because the clipboard's owner may be another program.
void MainWindow::update_paste() {
  const QMimeData* const mime = QGuiApplication::clipboard()->mimeData();
  m_menu->enable_paste(mime && (has_table_text(*mime) || !files_in(*mime).empty()));
}

// Some desktops tell only the active window what is on the clipboard.
void MainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) update_paste();
}

}  // namespace kurv::app
