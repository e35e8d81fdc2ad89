// Differences between two states of a graph, for undo.
#pragma once

#include <memory>

namespace kurv {

struct ControlState;

// Values of some fields of a graph: of its document, without the file that it belongs to, of the
// places of titles and legend, and of what is known about its columns. Columns of data are shared
// with the graph until one of the two is written, so the values of a whole graph take little
// memory, and a change of a cell takes that of one column.
class GraphChanges {
 public:
  // The values of all fields.
  explicit GraphChanges(const ControlState& state);
  ~GraphChanges();
  GraphChanges(GraphChanges&& other) noexcept;
  GraphChanges& operator=(GraphChanges&& other) noexcept;

  // Keeps only the values that the graph does not have.
  void keep_differences(const ControlState& state);
  // Keeps the values of `earlier`, and those of this for the fields that it has none of.
  void merge_into(GraphChanges& earlier);
  bool is_empty() const;
  // Whether there are values of data.
  bool has_data() const;
  // Whether the graph has all of these values. Missing values are equal.
  bool agrees_with(const ControlState& state) const;

  // Exchanges the values with those of the graph, so that a second call undoes the first. What
  // follows from data, such as their sorted copy, is made anew. Does not redraw.
  void exchange_with(ControlState& state);

 private:
  struct Fields;
  std::unique_ptr<Fields> m_fields;
};

}  // namespace kurv
