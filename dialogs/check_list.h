// A list of curves with a box before each: clicking a name selects it, clicking its box ticks it.
//
// Names come from hosts and files, so they are shown as they are: never as markup, on one line,
// elided where they are too long, with the whole name in a tool tip.
#pragma once

#include <KurvGraph/values.h>

#include <QColor>
#include <QListWidget>
#include <QString>
#include <optional>
#include <vector>

namespace kurv {

// What fits on a line of it: line breaks and the like are blanks, and there is an end somewhere.
QString on_one_line(const QString& text);
// A name as a tool tip that shows it to the letter.
QString name_tip(const String& name);

class CheckList final : public QListWidget {
 public:
  struct Entry {
    String text;
    bool ticked = false;
    std::optional<QColor> colour = {};  // of the sample of its line, where it has one

    friend bool operator==(const Entry&, const Entry&) = default;
  };

  explicit CheckList(QWidget* parent = nullptr);

  // With the first entry selected.
  void fill(const std::vector<Entry>& entries);
  // Keeps the user's place, and leaves everything alone where nothing has changed.
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
