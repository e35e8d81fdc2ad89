#include "app/sources/json_rows.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "app/base/message_text.h"
#include "app/base/user_error.h"
#include "app/sources/json_parser.h"
#include "app/sources/json_path.h"
#include "app/sources/text_list.h"
#include "app/sources/tsv_writer.h"

namespace kurv::app {

namespace {

// The names of the columns, numbered in the order in which they come first.
class ColumnNames {
 public:
  explicit ColumnNames(std::string file_path) : m_file_path(std::move(file_path)) {}

  // `guess` is tried first, because rows mostly have the same keys in the same order.
  std::size_t number_of(const std::string& name, std::size_t guess = 0) {
    if (guess < m_names.size() && m_names[guess] == name) return guess;
    const auto [found, is_new] = m_numbers.try_emplace(name, m_names.size());
    if (is_new) add(name);
    return found->second;
  }
  std::size_t size() const { return m_names.size(); }
  const std::vector<std::string>& all() const { return m_names; }

 private:
  void add(const std::string& name) {
    constexpr std::size_t kMaxColumns = 16'384;
    if (m_names.size() == kMaxColumns) {
      throw UserError(m_file_path +
                      " has more than 16384 columns; save the table that you need as a CSV file.");
    }
    m_names.push_back(name);
  }

  std::string m_file_path;
  std::vector<std::string> m_names;
  std::unordered_map<std::string, std::size_t> m_numbers;
};

// The keys that come again in the same object.
class RepeatedKeys {
 public:
  void add(const std::string& key) {
    if (m_first.empty()) m_first = key;
    m_several = m_several || key != m_first;
  }
  // "The key "a" comes twice", and how that ends.
  void note(const std::string& where, const std::string& what_counts,
            std::vector<std::string>& notes) const {
    if (m_first.empty()) return;
    notes.push_back("The key " + in_quotes(m_first) +
                    (m_several ? " and others come twice" : " comes twice") + where + "; " +
                    what_counts + " counts.");
  }

 private:
  std::string m_first;
  bool m_several = false;
};

// The cells of one row, which come in any order.
class RowCells {
 public:
  // False where the column has been set, so that its text is replaced.
  bool set(std::size_t column, std::string_view text) {
    if (column >= m_cells.size()) m_cells.resize(column + 1);
    const bool is_new = !m_cells[column].is_set;
    if (is_new) m_columns.push_back(column);
    m_cells[column].is_set = true;
    m_cells[column].text = text;
    return is_new;
  }

  void write(TsvWriter& table, std::size_t row) {
    if (!std::is_sorted(m_columns.begin(), m_columns.end())) {
      std::sort(m_columns.begin(), m_columns.end());
    }
    for (const std::size_t column : m_columns) {
      table.add(row, column, m_cells[column].text);
      m_cells[column].is_set = false;
    }
    m_columns.clear();
  }

 private:
  struct Cell {
    std::string text;
    bool is_set = false;
  };

  std::vector<Cell> m_cells;
  std::vector<std::size_t> m_columns;  // those that are set
};

// A table whose rows are values of the file or elements of an array.
class RowHandler final : public JsonHandler {
 public:
  RowHandler(const JsonShape& shape, const std::string& file_path)
      : m_shape(shape),
        m_is_in_table(shape.kind == JsonShape::Kind::kValues),
        m_names(file_path),
        m_table(file_path) {}

  void begin_object() override { begin(false); }
  void begin_array() override { begin(true); }
  void end_object() override { end(); }
  void end_array() override { end(); }
  void key(std::string_view name) override { (is_in_row() ? m_row_path : m_path).set_name(name); }

  void scalar(std::string_view text) override {
    if (is_in_row()) {
      m_row_path.begin_value();
      set_cell(m_row_path.text(), text);
    } else if (m_is_in_table) {
      set_cell("value", text);
      end_row();
    }
  }

  JsonRows take() {
    std::vector<std::string> notes;
    m_repeated.note(" in a row", "the last value", notes);
    if (m_has_names) return {m_table.take(m_names.all()), true, std::move(notes)};
    std::string text = m_table.take();
    if (!text.empty()) text.erase(0, 1);  // the line of the names
    return {std::move(text), false, std::move(notes)};
  }

 private:
  bool is_in_row() const { return m_row_path.depth() > 0; }

  void begin(bool is_array) {
    if (m_is_in_table) {
      m_row_path.begin_value();
      m_row_path.enter(is_array);
      m_has_names = m_has_names || !is_array;
      return;
    }
    m_path.begin_value();
    m_is_in_table = is_array && m_path.arrays() == 0 && m_path.text() == m_shape.path;
    m_path.enter(is_array);
  }

  void end() {
    if (is_in_row()) {
      m_row_path.leave();
      if (!is_in_row()) end_row();
      return;
    }
    m_is_in_table = false;
    m_path.leave();
  }

  void set_cell(const std::string& name, std::string_view text) {
    const std::size_t column = m_names.number_of(name, m_next_column);
    if (!m_row.set(column, text)) m_repeated.add(name);
    m_next_column = column + 1;
  }

  // The names have the line before the first row.
  void end_row() {
    m_row.write(m_table, ++m_rows);
    m_next_column = 0;
  }

  const JsonShape& m_shape;
  bool m_is_in_table;
  JsonPath m_path;      // outside the table
  JsonPath m_row_path;  // from the row on
  ColumnNames m_names;
  bool m_has_names = false;
  std::size_t m_next_column = 0;
  RowCells m_row;
  RepeatedKeys m_repeated;
  std::size_t m_rows = 0;
  TsvWriter m_table;
};

// A table whose columns are the arrays in an object.
class ColumnHandler final : public JsonHandler {
 public:
  ColumnHandler(const JsonShape& shape, const std::string& file_path)
      : m_shape(shape), m_names(file_path), m_table(file_path) {}

  void begin_object() override {
    m_path.begin_value();
    const bool is_table = m_path.arrays() == 0 && m_path.text() == m_shape.path;
    m_path.enter(false);
    if (is_table && m_depth == 0) m_depth = m_path.depth();
  }
  void end_object() override {
    m_path.leave();
    if (m_path.depth() < m_depth) m_depth = 0;
  }
  void key(std::string_view name) override {
    m_path.set_name(name);
    if (m_path.depth() == m_depth) m_key = name;
  }
  void begin_array() override {
    m_path.begin_value();
    if (m_depth > 0 && m_path.depth() == m_depth) {
      m_column = m_names.number_of(m_key);
      if (m_column < m_columns.size()) m_repeated.add(m_key);
      m_columns.resize(m_names.size());
      m_columns[m_column] = {};
    }
    m_path.enter(true);
  }
  void end_array() override { m_path.leave(); }
  void scalar(std::string_view text) override {
    const bool is_cell = m_depth > 0 && m_path.arrays() == 1 && m_path.depth() == m_depth + 1;
    if (is_cell) m_columns[m_column].add(text);
  }

  JsonRows take() {
    std::size_t rows = 0;
    for (const TextList& column : m_columns) rows = std::max(rows, column.size());
    std::vector<std::string> notes;
    m_repeated.note("", "the last array", notes);
    note_short_columns(rows, notes);
    for (std::size_t row = 0; row < rows; ++row) {
      for (std::size_t i = 0; i < m_columns.size(); ++i) {
        if (row < m_columns[i].size()) m_table.add(row + 1, i, m_columns[i][row]);
      }
    }
    m_columns = {};
    return {m_table.take(m_names.all()), true, std::move(notes)};
  }

 private:
  void note_short_columns(std::size_t rows, std::vector<std::string>& notes) const {
    std::size_t count = 0;
    std::size_t first = 0;
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
      if (m_columns[i].size() < rows && count++ == 0) first = i;
    }
    if (count == 0) return;
    notes.push_back(std::to_string(count) + (count == 1 ? " column is" : " columns are") +
                    " shorter than the longest one, which has " + std::to_string(rows) +
                    " values (first " + in_quotes(m_names.all()[first]) + " with " +
                    std::to_string(m_columns[first].size()) +
                    "); the values that are not there count as missing.");
  }

  const JsonShape& m_shape;
  JsonPath m_path;
  std::size_t m_depth = 0;  // in the object of the table; 0 outside
  std::string m_key;
  ColumnNames m_names;
  std::vector<TextList> m_columns;
  RepeatedKeys m_repeated;
  std::size_t m_column = 0;
  TsvWriter m_table;
};

template <typename Handler>
JsonRows read_with(Handler handler, std::string_view text, const std::string& file_path) {
  parse_json(text, file_path, handler);
  return handler.take();
}

}  // namespace

JsonRows read_json_rows(std::string_view text, const JsonShape& shape,
                        const std::string& file_path) {
  text = text.substr(0, shape.complete_size);
  if (shape.kind == JsonShape::Kind::kColumns) {
    return read_with(ColumnHandler(shape, file_path), text, file_path);
  }
  return read_with(RowHandler(shape, file_path), text, file_path);
}

}  // namespace kurv::app
