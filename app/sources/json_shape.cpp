#include "app/sources/json_shape.h"

#include <cstddef>
#include <vector>

#include "app/base/message_text.h"
#include "app/base/user_error.h"
#include "app/sources/json_parser.h"
#include "app/sources/json_path.h"

namespace kurv::app {

namespace {

// Collects what could be the table, outside of all arrays.
class Survey final : public JsonHandler {
 public:
  void begin_object() override { begin(false); }
  void key(std::string_view name) override { m_path.set_name(name); }
  void end_object() override {
    const Container object = leave();
    if (m_path.arrays() == 0 && object.has_columns) m_columns.push_back(m_path.text());
  }
  void begin_array() override { begin(true); }
  void end_array() override {
    const Container array = leave();
    if (m_path.arrays() > 0 || m_open.empty()) return;
    if (array.has_containers) {
      m_rows.push_back(m_path.text());
    } else if (array.has_scalars) {
      m_open.back().has_columns = true;
    }
  }
  void scalar(std::string_view) override {
    begin_value();
    if (!m_open.empty()) m_open.back().has_scalars = true;
  }

  JsonShape shape(const std::string& file_path) const {
    using Kind = JsonShape::Kind;
    if (m_values > 1) return {};
    if (m_is_array) return {Kind::kRows, "", 0};
    if (!m_rows.empty()) return {Kind::kRows, the_only(m_rows, file_path), 0};
    if (m_columns.empty()) return {};
    // That of the outermost object is the last one.
    if (m_columns.back().empty()) return {Kind::kColumns, "", 0};
    return {Kind::kColumns, the_only(m_columns, file_path), 0};
  }

 private:
  struct Container {
    bool has_scalars = false;
    bool has_containers = false;
    bool has_columns = false;  // arrays of scalars
  };

  void begin_value() {
    if (m_open.empty()) ++m_values;
    m_path.begin_value();
  }

  void begin(bool is_array) {
    if (m_open.empty()) m_is_array = is_array;
    begin_value();
    if (!m_open.empty()) m_open.back().has_containers = true;
    m_path.enter(is_array);
    m_open.push_back({});
  }

  Container leave() {
    const Container container = m_open.back();
    m_open.pop_back();
    m_path.leave();
    return container;
  }

  static std::string the_only(const std::vector<std::string>& paths, const std::string& file_path) {
    if (paths.size() == 1) return paths.front();
    constexpr std::size_t kNamesInMessage = 5;
    throw UserError(file_path + " holds several tables, " + enumeration(paths, kNamesInMessage) +
                    "; save one of them as a file of its own.");
  }

  JsonPath m_path;
  std::vector<Container> m_open;
  std::size_t m_values = 0;
  bool m_is_array = false;
  std::vector<std::string> m_rows;
  std::vector<std::string> m_columns;
};

}  // namespace

JsonShape find_json_table(std::string_view text, const std::string& file_path) {
  Survey survey;
  const std::size_t complete_size = parse_json(text, file_path, survey);
  JsonShape shape = survey.shape(file_path);
  shape.complete_size = complete_size;
  return shape;
}

}  // namespace kurv::app
