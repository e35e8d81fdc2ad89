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

namespace kurv {

class frmPropert;

// Each field has a name, by which it is found, and a caption or a description of itself for people
// who do not see where it stands. The functions make it a child of the page; layouts are the
// builder's business.
class PropertPage final : public QWidget {
 public:
  using Work = std::function<void(Control&)>;
  using Shown = std::function<QString(Control&)>;
  using Rule = std::optional<Integer> (*)(std::string_view text, char decimal_separator);

  explicit PropertPage(frmPropert& window) : m_window(window) {}

  // What the fields show now is what the graph says.
  void fill(Control& control);
  // See GraphWindow::handle().
  bool edit(const Work& work);
  // All fields show the graph again, for a change that reaches other fields.
  void refill();
  // `show` runs whenever the window is filled.
  void on_filling(Work show) { m_shows.push_back(std::move(show)); }

  // Has no handler yet.
  QLineEdit* text_box(const char* name, const char* description, Shown shown);
  // On every change of the text, `set` is called with a number that the rule accepts and the graph
  // is drawn; the text is red while the rule refuses it.
  QLineEdit* number_box(const char* name, const char* description, Integer (Control::*get)() const,
                        void (Control::*set)(Integer), Rule rule);
  QCheckBox* check_box(const char* name, const char* caption,
                       std::function<Boolean(Control&)> is_on,
                       std::function<void(Control&, Boolean)> turn);
  // Shows a text that is not among the items too, but does not offer it.
  QComboBox* list_box(const char* name, const char* description, const QStringList& items,
                      Shown shown, std::function<void(Control&, const String&)> choose);
  QPushButton* button(const char* name, const char* caption);
  QLabel* label(const char* name, const char* caption, QWidget* buddy);
  QGroupBox* frame(const char* name, const char* caption);

 private:
  frmPropert& m_window;
  std::vector<Work> m_shows;
};

// What most fields do with a new value.
template <class Value>
auto store_and_draw(void (Control::*set)(Value)) {
  return [set](Control& control, Value value) {
    (control.*set)(value);
    control.build_the_graph();
  };
}

// As the graph's user writes it.
QString shown_number(const Control& control, Double value);
// Leaves the cursor alone where the text is there already.
void show_text(QLineEdit& box, const QString& text);
std::string text_of(const QLineEdit& box);

}  // namespace kurv
