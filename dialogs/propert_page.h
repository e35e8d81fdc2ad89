// A page of the properties: fields that show the graph, and change it when the user changes them.
#pragma once

#include <KurvGraph/control.h>

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "control/history.h"

namespace kurv {

class frmPropert;

// Each field has an object name, and a caption or an accessible description for screen readers. The
// functions make it a child of the page; the builder of the page adds it to a layout.
class PropertPage final : public QWidget {
 public:
  using Work = std::function<void(Control&)>;
  using Shown = std::function<QString(Control&)>;
  using Rule = std::optional<Integer> (*)(std::string_view text, char decimal_separator);

  explicit PropertPage(frmPropert& window) : m_window(window) {}

  // Sets all fields from the graph, except one that is being typed in.
  void fill(Control& control);
  // Runs an action that is no change of the graph or is recorded elsewhere, and a change of the
  // graph as one step; see GraphWindow.
  bool handle(const Work& work);
  bool edit(const StepLabel& label, const Work& work);
  // Sets all fields of the window again, after a change that affects other fields.
  void refill();
  // `show` is called whenever the window is filled.
  void on_filling(Work show) { m_shows.push_back(std::move(show)); }

  // Without a handler; the caller connects one. The first is not filled either. Here and below
  // `step` is what a change by the user is called; what is typed into a field is one step.
  QLineEdit* text_box(const char* name, const char* description);
  QLineEdit* text_box(const char* name, const char* description, Shown shown);
  // On every change of the text, `set` is called with a number that the rule accepts and the graph
  // is drawn; the text is red while the rule refuses it.
  QLineEdit* number_box(const char* name, const char* description, const char* step,
                        Integer (Control::*get)() const, std::function<void(Control&, Integer)> set,
                        Rule rule);
  QCheckBox* check_box(const char* name, const char* caption, const char* step,
                       std::function<Boolean(Control&)> is_on,
                       std::function<void(Control&, Boolean)> turn);
  // Shows a text that is not among the items too, but does not offer it.
  QComboBox* list_box(const char* name, const char* description, const char* step,
                      const QStringList& items, Shown shown,
                      std::function<void(Control&, const String&)> choose);
  QPushButton* button(const char* name, const char* caption);
  // In the field, which is `line` or contains it, the keys of undo take back steps of the graph
  // while its text is stored; see undo_keys.h.
  void undo_by_keys(QWidget& field, QLineEdit& line, std::function<bool()> is_stored);
  // Legible on any desktop, also while it is disabled.
  QLabel* label(const char* name, const char* caption, QWidget* buddy);
  QGroupBox* frame(const char* name, const char* caption);
  // What is said beside a field, empty at first. It always has the space for one line as wide as
  // the text `widest`.
  QLabel* note(const char* name, const char* widest);
  // Millimetres, or inches where those are usual, beside a field of twips, as they are typed.
  // `refusal` says why a length is not accepted, and is empty where it is.
  QLabel* length_note(const char* name, const char* widest, QLineEdit& box,
                      std::function<QString(std::string_view text, char separator)> refusal);
  // What is typed from here on is a step of its own.
  void end_merging();

 private:
  frmPropert& m_window;
  std::vector<Work> m_shows;
};

// The handler of most fields: stores the new value and redraws.
template <class Value>
auto store_and_draw(void (Control::*set)(Value)) {
  return [set](Control& control, Value value) {
    (control.*set)(value);
    control.build_the_graph();
  };
}

// The number with the graph's decimal separator.
QString shown_number(const Control& control, Double value);
// Whether the user has typed a text that is not stored in the graph yet. Such a box is not filled,
// or a host that redraws repeatedly would overwrite the text before it is finished.
bool is_being_typed(const QLineEdit& box);
// Marks the text as stored where it is the same as `shown`, the stored value as text.
void finish_text(QLineEdit& box, const QString& shown);
// Keeps the cursor where the text is the same, and does nothing where it is being typed.
void show_text(QLineEdit& box, const QString& text);
// Shows the text in black where it is accepted, in red where it is not.
void show_validity(QLineEdit& box, bool accepted);
std::string text_of(const QLineEdit& box);
// Shows the text beside the field, and gives it to screen readers as the field's description.
void show_note(QLabel& note, QWidget& field, const QString& text);
// The label of what is typed into the field `name`.
StepLabel typing(const char* name, const char* step);

}  // namespace kurv
