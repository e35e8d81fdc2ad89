// The fields of the import window that say what to draw of a table.
#pragma once

#include <QWidget>
#include <functional>
#include <map>
#include <optional>

#include "app/graph/graph_choice.h"
#include "app/window/table_reader.h"

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QLineEdit;
class QListWidget;
class QPushButton;
class QSpinBox;

namespace kurv::app {

// Controls by name: cboX, lstCurves, cmdAll, cmdNone, cboRows, spnEvery, chkSort, cboStyle,
// txtTitle.
class DrawingFields final : public QWidget {
 public:
  explicit DrawingFields(const QString& title, QWidget* parent = nullptr);

  // Offers the columns of a table; nullptr where there is none. What the user has chosen stays
  // where the table has columns of these names.
  void show_table(ReadTable* read);

  // Whether x goes back and forth: markers are offered then, lines otherwise, unless the user has
  // chosen the style.
  void show_order(bool is_unsorted);

  // Called when other data are to be drawn, and when only title or style changes.
  void on_selection(std::function<void()> changed) { m_selection_changed = std::move(changed); }
  void on_title_or_style(std::function<void()> changed) {
    m_title_or_style_changed = std::move(changed);
  }

  Selection selection() const;
  // Whether there is a curve to tick.
  bool offers_curves() const;
  void write_title_and_style(GraphChoice& choice) const;
  void focus_first();

 private:
  QBoxLayout* make_x_column();
  QBoxLayout* make_curve_column();
  void connect_fields();
  void keep_choice();
  void fill_columns(ReadTable& read);
  void fill_rows(std::size_t rows);
  void select_x(ReadTable& read);
  void hide_x_among_curves();
  void check_all(Qt::CheckState state);
  void restore_checks();
  void select_changed();
  void select_style();

  // Of the table that is shown.
  std::vector<std::string> m_names;
  // What the user has chosen, by names.
  std::optional<std::string> m_chosen_x;
  bool m_has_chosen_rows = false;
  std::map<std::string, bool> m_chosen_curves;
  bool m_has_chosen_every = false;
  bool m_has_chosen_style = false;
  bool m_is_unsorted = false;
  bool m_is_filling = false;
  std::function<void()> m_selection_changed;
  std::function<void()> m_title_or_style_changed;

  QComboBox* m_x;
  QListWidget* m_curves;
  QPushButton* m_all;
  QPushButton* m_none;
  QComboBox* m_rows;
  QSpinBox* m_every;
  QCheckBox* m_sort;
  QComboBox* m_style;
  QLineEdit* m_title;
};

}  // namespace kurv::app
