// A list of curves with check boxes: clicking a name selects it, clicking its box ticks it.
#pragma once

#include <KurvGraph/values.h>

#include <QColor>
#include <QListWidget>
#include <optional>
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

  // Byte for byte what it was filled with; the empty text where nothing is selected.
  String selected_text() const;

 private:
  std::vector<Entry> shown_entries() const;
  void set_entries(const std::vector<Entry>& entries);
  QIcon line_sample(const QColor& colour) const;

  std::vector<Entry> m_entries;  // as they were filled in
};

}  // namespace kurv
