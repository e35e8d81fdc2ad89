// A list of values of an option, of which the first is "Automatic".
#pragma once

#include <QComboBox>
#include <functional>
#include <optional>

namespace kurv::app {

// Where it is editable, another value than those of the list can be typed.
class OptionBox final : public QComboBox {
 public:
  OptionBox(const char* name, bool is_editable, QWidget* parent = nullptr);

  void add(const QString& text, int value) { addItem(text, value); }
  // Removes all values but "Automatic", which is chosen then.
  void clear_values();
  // What automatic means for this table; empty where that is not known.
  void set_automatic_meaning(const QString& meaning);

  bool is_automatic() const { return !value() && typed().isEmpty(); }
  // The chosen value of the list; nothing where it is automatic or typed.
  std::optional<int> value() const;
  // The text that was typed, unless it is one of the list.
  QString typed() const;

  void choose_automatic();
  void choose(int value);
  void type(const QString& text);

  // Called when the user or one of the functions above has chosen something else.
  void on_change(std::function<void()> changed);

 private:
  // The row of the list that is chosen; -1 where something else is typed.
  int row() const;
  void leave_list();
};

}  // namespace kurv::app
