// The layout of the curves window. Each mnemonic is unique among its visible controls, on
// either tab.
#include <KurvGraph/limits.h>
#include <KurvGraph/screen_fit.h>
#include <KurvGraph/wheel_guard.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>
#include <QVBoxLayout>

#include "dialogs/frm_curves.h"
#include "dialogs/single_line_delegate.h"

namespace kurv {

namespace {

// Sizes in characters and lines of the window's font.
constexpr int kXChars = 16;
constexpr int kWindowChars = 72;
constexpr int kWindowLines = 28;
constexpr int kListChars = 12;
constexpr int kListLines = 4;

template <class Widget>
Widget* named(Widget* widget, const char* name) {
  widget->setObjectName(QLatin1String(name));
  return widget;
}

// A list under its caption, beside the buttons that work on it.
QWidget* new_page(const char* caption, CheckList* list, const std::vector<QPushButton*>& buttons) {
  auto* const page = new QWidget;
  auto* const label = new QLabel(QString::fromUtf8(caption));
  label->setBuddy(list);
  const QFontMetrics metrics = list->fontMetrics();
  list->setMinimumSize(metrics.averageCharWidth() * kListChars, metrics.height() * kListLines);
  auto* const column = new QVBoxLayout;
  for (QPushButton* button : buttons) column->addWidget(button);
  column->addStretch();
  auto* const grid = new QGridLayout(page);
  grid->addWidget(label, 0, 0, 1, 2);
  grid->addWidget(list, 1, 0);
  grid->addLayout(column, 1, 1);
  grid->setColumnStretch(0, 1);
  return page;
}

// A double click on a row is F2, which presses the button.
void click_on_f2(CheckList* list, QPushButton* button) {
  list->on_double_click([button] { button->click(); });
  auto* const shortcut = new QShortcut(Qt::Key_F2, list, nullptr, nullptr, Qt::WidgetShortcut);
  QObject::connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
}

}  // namespace

frmCurves::frmCurves(QWidget* parent) : GraphWindow(parent) {
  setObjectName(QStringLiteral("frmCurves"));
  setWindowTitle(QStringLiteral("Curves"));
  setSizeGripEnabled(true);

  auto* const tabs = named(new QTabWidget, "tabCurves");
  tabs->setAccessibleName(QStringLiteral("Kinds of curves"));
  auto* const page = new QWidget;
  auto* const fields = new QVBoxLayout(page);
  fields->setContentsMargins(0, 0, 0, 0);
  fields->addWidget(new_x_group());
  fields->addWidget(tabs, 1);
  tabs->addTab(new_scatter_page(), QStringLiteral("&Data Curves"));
  tabs->addTab(new_function_page(), QStringLiteral("&Functions"));
  auto* const column = new QVBoxLayout(this);
  column->addWidget(new_scroller(page), 1);
  column->addWidget(new_button("cmdClose", "&Close", &frmCurves::close_window), 0, Qt::AlignRight);

  guard_wheel(*this);
  const QFontMetrics metrics = fontMetrics();
  resize(metrics.averageCharWidth() * kWindowChars, metrics.height() * kWindowLines);
  // Not the first control: there the arrow keys would choose another x.
  m_lstScatters->setFocus();
}

// No button is a default button, so the Enter key in another control presses none.
QPushButton* frmCurves::new_button(const char* name, const char* caption,
                                   void (frmCurves::*clicked)()) {
  auto* const button = named(new QPushButton(QString::fromUtf8(caption)), name);
  button->setAutoDefault(false);
  if (clicked) connect(button, &QPushButton::clicked, this, clicked);
  return button;
}

CheckList* frmCurves::new_list(const char* name, const char* accessible_name,
                               void (frmCurves::*ticked)(QListWidgetItem*)) {
  auto* const list = named(new CheckList, name);
  list->setAccessibleName(QString::fromUtf8(accessible_name));
  connect(list, &QListWidget::itemChanged, this, ticked);
  return list;
}

QWidget* frmCurves::new_x_group() {
  auto* const group = named(new QGroupBox(QStringLiteral("X axis")), "fra");
  m_cmbX = named(new QComboBox, "cmbX");
  m_cmbX->setAccessibleName(QStringLiteral("X variable"));
  m_cmbX->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  m_cmbX->setMinimumContentsLength(kXChars);
  m_cmbX->setItemDelegate(new SingleLineDelegate(m_cmbX));
  m_cmbX->view()->setTextElideMode(Qt::ElideMiddle);
  auto* const label = named(new QLabel(QStringLiteral("&X variable:")), "Label1");
  label->setBuddy(m_cmbX);
  connect(m_cmbX, &QComboBox::activated, this, &frmCurves::choose_x);
  connect(m_cmbX, &QComboBox::currentTextChanged, m_cmbX,
          [this] { m_cmbX->setToolTip(m_cmbX->currentData(Qt::ToolTipRole).toString()); });

  auto* const row = new QHBoxLayout(group);
  row->addWidget(label);
  row->addWidget(m_cmbX, 1);
  row->addWidget(new_button("cmdXLabel", "&Title…", &frmCurves::edit_x_title));
  return group;
}

QWidget* frmCurves::new_scatter_page() {
  m_lstScatters = new_list("lstScatters", "Data curves", &frmCurves::tick_scatter);
  m_cmdYTitle = new_button("cmdYTitle", "&Rename…", &frmCurves::rename);
  m_cmdAddScatter = new_button("cmdAddScatter", "Add Deri&ved…", &frmCurves::add_scatter);
  m_cmdHideAllCurves = new_button("cmdHideAllCurves", "&Hide All", &frmCurves::hide_all);
  m_cmdShowAllCurves = new_button("cmdShowAllCurves", "&Show All", &frmCurves::show_all);
  m_cmdYTitle->setToolTip(
      QStringLiteral("Give the selected curve another name (F2, or a double click on it)"));
  static_assert(kMaxCurves == 149);
  m_cmdAddScatter->setToolTip(
      QStringLiteral("Compute a new curve from the others; a graph holds up to 149"));
  click_on_f2(m_lstScatters, m_cmdYTitle);
  return new_page("Dra&wn where ticked:", m_lstScatters,
                  {m_cmdYTitle, m_cmdAddScatter, m_cmdHideAllCurves, m_cmdShowAllCurves});
}

QWidget* frmCurves::new_function_page() {
  m_lstFuncs = new_list("lstFuncs", "Functions", &frmCurves::tick_function);
  QPushButton* const add = new_button("cmdAddFunc", "&Add…", &frmCurves::add_function);
  m_cmdEditFunc = new_button("cmdEditFunc", "&Edit…", &frmCurves::edit_function);
  QPushButton* const label = new_button("cmdFuncLabel", "&Label…", nullptr);
  QPushButton* const colour = new_button("cmdFuncColor", "C&olour…", nullptr);
  add->setToolTip(QStringLiteral("Draw an expression of x"));
  m_cmdEditFunc->setToolTip(
      QStringLiteral("Change the selected expression (F2, or a double click on it)"));
  // Disabled, with tool tips that say why: users look for these settings here.
  label->setEnabled(false);
  label->setToolTip(QStringLiteral("A function is named by its expression"));
  colour->setEnabled(false);
  colour->setToolTip(QStringLiteral("Functions are always drawn in black"));
  click_on_f2(m_lstFuncs, m_cmdEditFunc);
  return new_page("Draw&n where ticked:", m_lstFuncs, {add, m_cmdEditFunc, label, colour});
}

}  // namespace kurv
