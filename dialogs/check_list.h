// A list of curves with check boxes: clicking a name selects it, clicking its box ticks it, and a
// double click on a name is whatever the window makes of it.
#pragma once

#include <KurvGraph/values.h>

#include <QColor>
#include <QListWidget>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace kurv {

class CheckList final : public QListWidget {
 public:
  struct Entry {
    String text;
    bool ticked = false;
    std::optional<QColor> colour = {};  // of the sample of its line, where it has one

    friend bool operator==(const Entry&, const Entry&) = default;
  };

  explicit CheckList(QWidget* parent = nullptr);

  // Replaces the entries and selects the first.
  void fill(const std::vector<Entry>& entries);
  // Replaces the entries and keeps the selected row. Does nothing where the entries are the same.
  void update_to(const std::vector<Entry>& entries);
  void tick_all(bool ticked);

  // Called after a double click on a row, but not on its box, which that ticks twice.
  void on_double_click(std::function<void()> clicked) { m_double_clicked = std::move(clicked); }

  // Byte for byte what it was filled with; the empty text where nothing is selected.
  String selected_text() const;

 protected:
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  bool is_on_box(QPoint place) const;
  std::vector<Entry> shown_entries() const;
  void set_entries(const std::vector<Entry>& entries);
  QIcon line_sample(const QColor& colour) const;

  std::vector<Entry> m_entries;  // as they were filled in
  std::function<void()> m_double_clicked;
};

}  // namespace kurv
