// The window in which the user manages the curves of one graph: which column is x, which curves are
// shown, what they are called, and which functions and derived curves are added.
//
// Row i of a list changes curve or function i, counted from 1. A curve with an empty name has no
// row, so the rows after it change the curve before the one that they show; hosts therefore have to
// give every curve a name. Rows are numbered, not named,
// because names need not be unique.
#pragma once

#include <QComboBox>
#include <QPushButton>
#include <vector>

#include "dialogs/check_list.h"
#include "dialogs/graph_window.h"

namespace kurv {

struct GraphDocument;

class frmCurves final : public GraphWindow {
  Q_OBJECT

 public:
  explicit frmCurves(QWidget* parent);

 protected:
  void fill() override;

 private:
  // -- Building, in frm_curves_layout.cpp ------------------------------------------------------
  QWidget* new_x_group();
  QWidget* new_scatter_page();
  QWidget* new_function_page();
  QPushButton* new_button(const char* name, const char* caption, void (frmCurves::*clicked)());
  CheckList* new_list(const char* name, const char* accessible_name,
                      void (frmCurves::*ticked)(QListWidgetItem*));

  // -- Filling ----------------------------------------------------------------------------------
  const GraphDocument& document() const;
  void fill_x_list();
  void set_x_item(int index);
  void fill_scatter_list();
  void fill_function_list();
  void rename_x_item(const String& old_name, const String& name);
  void update_actions();

  // -- Handlers ---------------------------------------------------------------------------------
  void choose_x(int index);
  void tick_scatter(QListWidgetItem* item);
  void tick_function(QListWidgetItem* item);
  void tick_all_scatters(bool visible);
  void hide_all() { tick_all_scatters(false); }
  void show_all() { tick_all_scatters(true); }
  void rename();
  void edit_x_title();
  void add_scatter();
  void add_function();
  void edit_function();
  void close_window() { close(); }

  QComboBox* m_cmbX = nullptr;
  std::vector<String> m_x_names;  // those of cmbX, byte for byte
  CheckList* m_lstScatters = nullptr;
  CheckList* m_lstFuncs = nullptr;
  QPushButton* m_cmdYTitle = nullptr;
  QPushButton* m_cmdAddScatter = nullptr;
  QPushButton* m_cmdHideAllCurves = nullptr;
  QPushButton* m_cmdShowAllCurves = nullptr;
  QPushButton* m_cmdEditFunc = nullptr;
};

}  // namespace kurv
