#include "app/csv/column_reference.h"

#include <KurvGraph/text.h>

#include <algorithm>
#include <charconv>
#include <string_view>

#include "app/base/message_text.h"
#include "app/base/user_error.h"
#include "app/csv/unit_text.h"

namespace kurv::app {

namespace {

std::optional<std::size_t> column_number(std::string_view text, std::size_t columns) {
  std::size_t number = 0;
  const char* const end = text.data() + text.size();
  const std::from_chars_result result = std::from_chars(text.data(), end, number);
  if (result.ec != std::errc() || result.ptr != end || number < 1 || number > columns) {
    return std::nullopt;
  }
  return number - 1;
}

std::optional<std::size_t> column_named(const std::vector<std::string>& names,
                                        const std::string& reference) {
  const auto found = std::find(names.begin(), names.end(), reference);
  if (found != names.end()) return static_cast<std::size_t>(found - names.begin());
  std::optional<std::size_t> without_unit;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const NameAndUnit parts = split_unit(names[i]);
    if (parts.unit.empty() || parts.name != reference) continue;
    if (without_unit) return std::nullopt;
    without_unit = i;
  }
  return without_unit;
}

UserError no_column(const std::vector<std::string>& names, const std::string& reference,
                    const std::string& path) {
  return UserError(path + " has no column " + in_quotes(reference) + "; it has " +
                   enumeration(names, kNamesInASentence) + ".");
}

bool is_whole_number(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == text.npos;
}

// A range such as "3-99", of which a bound is no column, or "7-3".
UserError no_range(const std::vector<std::string>& names, const std::string& reference,
                   const std::vector<std::string_view>& bounds, const std::string& path) {
  for (const std::string_view bound : bounds) {
    if (!is_whole_number(bound)) return no_column(names, reference, path);
  }
  for (const std::string_view bound : bounds) {
    if (column_number(bound, names.size())) continue;
    return UserError(path + " has no column " + std::string(bound) + ", which " +
                     in_quotes(reference) + " names; it has " + std::to_string(names.size()) +
                     (names.size() == 1 ? " column." : " columns."));
  }
  return UserError(path + " has no columns " + in_quotes(reference) +
                   ", because the range ends before it begins; write " + std::string(bounds[1]) +
                   '-' + std::string(bounds[0]) + '.');
}

}  // namespace

std::size_t find_column(const std::vector<std::string>& names, const std::string& reference,
                        const std::string& path) {
  if (const std::optional<std::size_t> column = column_named(names, reference)) return *column;
  if (const std::optional<std::size_t> column = column_number(reference, names.size())) {
    return *column;
  }
  throw no_column(names, reference, path);
}

std::vector<std::size_t> find_columns(const std::vector<std::string>& names,
                                      const std::string& reference, const std::string& path) {
  const std::size_t dash = reference.find('-');
  if (dash == std::string::npos || column_named(names, reference)) {
    return {find_column(names, reference, path)};
  }
  const std::string_view text = reference;
  const std::string_view from = trim_blanks(text.substr(0, dash));
  const std::string_view to = trim_blanks(text.substr(dash + 1));
  const std::optional<std::size_t> first = column_number(from, names.size());
  const std::optional<std::size_t> last = column_number(to, names.size());
  if (!first || !last || *first > *last) throw no_range(names, reference, {from, to}, path);
  std::vector<std::size_t> result;
  for (std::size_t column = *first; column <= *last; ++column) result.push_back(column);
  return result;
}

bool is_row_number(const std::vector<std::string>& names, const std::string& reference) {
  return equals_ignoring_case(reference, "row") && !column_named(names, reference);
}

}  // namespace kurv::app
