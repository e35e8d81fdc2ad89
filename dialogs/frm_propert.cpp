#include "dialogs/frm_propert.h"

#include <KurvGraph/screen_fit.h>
#include <KurvGraph/wheel_guard.h>

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "control/control_state.h"
#include "control/property_pages.h"
#include "dialogs/propert_pages.h"

namespace kurv {

namespace {

// Of both sides together; the frame is unknown before the window is shown.
constexpr int kWidestFrame = 16;

int tab_of(Integer page) {
  switch (page) {
    case kTitlesPage:
      return 1;
    case kAxesPage:
      return 2;
    case kLinesPage:
      return 3;
    default:
      return 0;
  }
}

QPushButton* new_button(QHBoxLayout& row, const char* name, const char* caption) {
  auto* const button = new QPushButton(QString::fromUtf8(caption));
  button->setObjectName(QLatin1String(name));
  // Return in a text box must not press anything.
  button->setAutoDefault(false);
  row.addWidget(button);
  return button;
}

}  // namespace

frmPropert::frmPropert(QWidget* parent) : GraphWindow(parent), m_tabs(new QTabWidget) {
  setObjectName(QStringLiteral("frmPropert"));
  setWindowTitle(QStringLiteral("Graph Properties"));
  m_tabs->setObjectName(QStringLiteral("tabCurves"));
  m_tabs->setAccessibleName(QStringLiteral("Groups of properties"));
  auto* const rows = new QVBoxLayout(this);
  rows->addWidget(m_tabs);
  add_page("&General", build_general_page);
  add_page("&Titles and Fonts", build_titles_page);
  add_page("A&xes", build_axes_page);
  add_page("&Lines and Markers", build_lines_page);

  auto* const row = new QHBoxLayout;
  rows->addLayout(row);
  QPushButton* const restore = new_button(*row, "cmdRestoreXY", "&Restore Limits and Margins");
  restore->setToolTip(
      QStringLiteral("Sets the limits from the data, and the default margins and marker size"));
  row->addStretch();
  QPushButton* const apply = new_button(*row, "cmdApply", "&Apply");
  apply->setToolTip(QStringLiteral("Redraws the graph"));
  QPushButton* const close = new_button(*row, "cmdClose", "&Close");

  connect(restore, &QPushButton::clicked, this, &frmPropert::restore);
  connect(apply, &QPushButton::clicked, this,
          [this] { handle([](Control& control) { control.build_the_graph(); }); });
  connect(close, &QPushButton::clicked, this, &frmPropert::reject);
  // On a narrow screen the buttons need two rows.
  if (minimumSizeHint().width() > screen()->availableSize().width() - kWidestFrame) {
    row->removeWidget(restore);
    rows->insertWidget(rows->count() - 1, restore);
  }
  guard_wheel(*this);
  // With large fonts the window may be larger than Qt's default limit, two thirds of the screen.
  resize(sizeHint().boundedTo(screen()->availableSize()));
}

// Hidden while it is whole, because the focus that leaves a field fills the window again.
frmPropert::~frmPropert() {
  set_client(nullptr);
  hide();
}

void frmPropert::add_page(const char* caption, void (*build)(PropertPage&)) {
  auto* const page = new PropertPage(*this);
  build(*page);
  m_pages.push_back(page);
  m_tabs->addTab(new_scroller(page), QString::fromUtf8(caption));
}

// Text that is being typed must not be applied over the limits and margins that are restored.
void frmPropert::restore() {
  if (!handle([](Control& control) { control.Restore_Grf(); })) return;
  for (QLineEdit* box : findChildren<QLineEdit*>()) box->setModified(false);
  refill();
}

void frmPropert::end_merging() {
  if (client()) client()->control().state().history.end_merging();
}

char frmPropert::decimal_separator() const {
  return client() ? client()->control().decimal_separator() : '.';
}

void frmPropert::fill() {
  for (PropertPage* page : m_pages) page->fill(client()->control());
}

void frmPropert::show_page(Integer page) {
  m_tabs->setCurrentIndex(tab_of(page));
  m_tabs->currentWidget()->setFocus();
}

void frmPropert::done(int result) {
  const QPointer<frmPropert> alive(this);
  if (QWidget* const field = focusWidget()) field->clearFocus();
  // A margin's queued slot runs now, because a closed window has no client to apply it to.
  QCoreApplication::sendPostedEvents(m_pages.front(), QEvent::MetaCall);
  if (alive) GraphWindow::done(result);
}

void frmPropert::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
    GraphWindow::keyPressEvent(event);
  } else if (auto* const button = qobject_cast<QPushButton*>(focusWidget())) {
    button->click();
  }
}

}  // namespace kurv
