#include "dialogs/frm_curves.h"

#include <algorithm>

#include "control/control_state.h"
#include "control/curve_edits.h"
#include "dialogs/single_line_delegate.h"
#include "model/palette.h"
#include "render/curves.h"

namespace kurv {

namespace {

std::vector<CheckList::Entry> scatter_entries(const GraphDocument& document) {
  std::vector<CheckList::Entry> entries;
  for (const ListedCurve& curve : listed_curves(document)) {
    const QColor colour(static_cast<QRgb>(palette_rgb(curve_colour(curve.number))));
    entries.push_back({curve.text, curve.visible, colour});
  }
  return entries;
}

// Without a line sample, because every function is drawn in black.
std::vector<CheckList::Entry> function_entries(const GraphDocument& document) {
  std::vector<CheckList::Entry> entries;
  for (const ListedCurve& function : listed_functions(document)) {
    entries.push_back({function.text, function.visible});
  }
  return entries;
}

}  // namespace

// -- Filling --------------------------------------------------------------------------------------

const GraphDocument& frmCurves::document() const {
  return client()->control().state().document;
}

void frmCurves::fill() {
  fill_x_list();
  m_lstScatters->update_to(scatter_entries(document()));
  m_lstFuncs->update_to(function_entries(document()));
  update_actions();
}

void frmCurves::fill_x_list() {
  std::vector<String> names = x_choices(document());
  if (names != m_x_names) {
    m_x_names = std::move(names);
    m_cmbX->clear();
    while (m_cmbX->count() < static_cast<int>(m_x_names.size())) {
      m_cmbX->addItem({});
      set_x_item(m_cmbX->count() - 1);
    }
  }
  m_cmbX->setCurrentIndex(m_x_names.empty() ? -1 : 0);
}

void frmCurves::set_x_item(int index) {
  const String& name = m_x_names[static_cast<std::size_t>(index)];
  m_cmbX->setItemData(index, name_tip(name), Qt::ToolTipRole);
  m_cmbX->setItemText(index, on_one_line(name));
}

void frmCurves::fill_scatter_list() {
  m_lstScatters->fill(scatter_entries(document()));
  update_actions();
}

void frmCurves::fill_function_list() {
  m_lstFuncs->fill(function_entries(document()));
  update_actions();
}

void frmCurves::update_actions() {
  const bool has_curves = document().NumY > 0;
  m_cmbX->setEnabled(m_cmbX->count() > 0);
  m_cmdYTitle->setEnabled(m_lstScatters->currentRow() >= 0);
  m_cmdAddScatter->setEnabled(document().NumY < kMaxCurves);
  m_cmdHideAllCurves->setEnabled(has_curves);
  m_cmdShowAllCurves->setEnabled(has_curves);
  m_cmdEditFunc->setEnabled(m_lstFuncs->currentRow() >= 0);
}

// -- Handlers -------------------------------------------------------------------------------------

// cmbX keeps its order: if the new x moved to the front, the arrow keys would go back and forth
// between two columns.
void frmCurves::choose_x(int index) {
  const String name = m_x_names[static_cast<std::size_t>(index)];
  if (!handle([&name](Control& control) { kurv::choose_x(control.state(), name); })) return;
  fill_quietly([this] { fill_scatter_list(); });
}

// Qt does not select the row whose check box is clicked.
void frmCurves::tick_scatter(QListWidgetItem* item) {
  if (is_filling()) return;
  m_lstScatters->setCurrentItem(item);
  const int curve = m_lstScatters->row(item) + 1;
  const bool visible = item->checkState() == Qt::Checked;
  handle([=](Control& control) { set_curve_visible(control.state(), curve, visible); });
}

void frmCurves::tick_function(QListWidgetItem* item) {
  if (is_filling()) return;
  m_lstFuncs->setCurrentItem(item);
  const int slot = m_lstFuncs->row(item) + 1;
  const bool visible = item->checkState() == Qt::Checked;
  handle([=](Control& control) { set_function_visible(control.state(), slot, visible); });
}

void frmCurves::tick_all_scatters(bool visible) {
  if (!handle([=](Control& control) { set_all_curves_visible(control.state(), visible); })) return;
  fill_quietly([this, visible] {
    m_lstScatters->tick_all(visible);
    m_lstScatters->setCurrentRow(0);
  });
}

void frmCurves::rename() {
  const int curve = m_lstScatters->currentRow() + 1;
  String old_name;
  const auto ask = [&old_name, curve](Control& control) {
    old_name = curve_name(control.state().document, curve);
    rename_curve(control.state(), curve);
  };
  if (!handle(ask)) return;
  const String name = curve_name(document(), curve);
  if (name == old_name) return;
  fill_quietly([&] {
    rename_x_item(old_name, name);
    fill_scatter_list();
  });
}

// Renames the first item of that name, as choose_x() takes the first column of a name.
void frmCurves::rename_x_item(const String& old_name, const String& name) {
  const auto choice = std::find(m_x_names.begin(), m_x_names.end(), old_name);
  if (choice == m_x_names.end()) return;
  const auto index = static_cast<int>(choice - m_x_names.begin());
  *choice = name;
  set_x_item(index);
}

void frmCurves::edit_x_title() {
  if (!handle([](Control& control) { control.prompt(PromptedSetting::kXAxisTitle); })) return;
  fill_quietly([this] { fill_x_list(); });
}

// A new curve can be x as well.
void frmCurves::add_scatter() {
  if (!handle([](Control& control) { control.add_derived_curve(); })) return;
  fill_quietly([this] {
    fill_x_list();
    fill_scatter_list();
  });
}

void frmCurves::add_function() {
  if (!handle([](Control& control) { control.add_function(); })) return;
  fill_quietly([this] { fill_function_list(); });
}

void frmCurves::edit_function() {
  const String selected = m_lstFuncs->selected_text();
  if (!handle([&selected](Control& control) { control.edit_function(selected); })) return;
  fill_quietly([this] { fill_function_list(); });
}

}  // namespace kurv
