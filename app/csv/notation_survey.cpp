#include "app/csv/notation_survey.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include <KurvGraph/text.h>

#include "app/base/message_text.h"
#include "app/csv/characters.h"
#include "app/csv/date_text.h"
#include "app/csv/line_fields.h"

namespace kurv::app {

namespace {

// The kinds of characters in a cell, as bits.
enum Characters : std::uint8_t {
  kDigit = 1,
  kSignOrExponent = 2,
  kPoint = 4,
  kComma = 8,
  kBlank = 16,
  kApostrophe = 32,
  kOther = 64
};

constexpr std::array<std::uint8_t, 256> character_kinds() {
  std::array<std::uint8_t, 256> kinds{};
  for (std::uint8_t& kind : kinds) kind = kOther;
  for (int c = '0'; c <= '9'; ++c) kinds[static_cast<std::size_t>(c)] = kDigit;
  for (const char c : {'-', '+', 'e', 'E'}) kinds[static_cast<unsigned char>(c)] = kSignOrExponent;
  kinds['.'] = kPoint;
  kinds[','] = kComma;
  kinds[' '] = kBlank;
  kinds['\''] = kApostrophe;
  return kinds;
}

constexpr std::array<std::uint8_t, 256> kKinds = character_kinds();

// Cells that say something, or could.
struct Evidence {
  std::uint32_t count = 0;
  std::uint32_t row = 0;
  std::uint32_t column = 0;

  void add(std::size_t in_row, std::size_t in_column) {
    if (count++ > 0) return;
    row = static_cast<std::uint32_t>(in_row);
    column = static_cast<std::uint32_t>(in_column);
  }
};

// The meanings of a sign in numbers.
struct SignEvidence {
  Evidence decimal;
  Evidence thousands;
  Evidence either;
};

// A number as the signs in it have it.
struct Shape {
  std::size_t points = 0;
  std::size_t commas = 0;
  std::size_t blanks = 0;
  std::size_t apostrophes = 0;
  std::size_t first_group = 0;
  // The digits after the last sign.
  std::size_t last_group = 0;
  bool groups_of_three = true;  // between the signs
  bool begins_with_zero = false;
  char last_sign = 0;
};

// "km/h", "€/t", "m/s2" and "m2" after a number. Two digits may be those of a year.
bool is_compound_unit(std::string_view text) {
  while (const std::size_t length = blank_length(text)) text.remove_prefix(length);
  return std::count_if(text.begin(), text.end(), is_digit) < 2 && is_unit_of_cell(text);
}

// The number in a cell, as far as its characters show: from its first digit or sign on, up to what
// belongs to no number.
std::optional<Shape> shape_of(std::string_view text) {
  std::size_t at = 0;
  take_currency(text);
  while (at < text.size() && !is_digit(text[at]) && text[at] != '.' && text[at] != ',') {
    // A word with a number after it is a name or a date.
    if (to_lower(text[at]) >= 'a' && to_lower(text[at]) <= 'z') return std::nullopt;
    ++at;
  }
  Shape shape;
  std::size_t group = 0;
  bool is_first = true;
  shape.begins_with_zero = at < text.size() && text[at] == '0';
  const auto end_group = [&](char sign) {
    if (is_first) {
      shape.first_group = group;
    } else if (group != 3) {
      shape.groups_of_three = false;
    }
    is_first = false;
    group = 0;
    shape.last_sign = sign;
  };
  while (at < text.size()) {
    const std::string_view rest = text.substr(at);
    if (is_digit(rest.front())) {
      ++group;
      ++at;
    } else if (rest.front() == '.') {
      end_group('.');
      ++shape.points;
      ++at;
    } else if (rest.front() == ',') {
      end_group(',');
      ++shape.commas;
      ++at;
    } else {
      const std::size_t blank = blank_length(rest);
      const std::size_t length = blank + apostrophe_length(rest);
      const bool in_number = group > 0 && at + length < text.size() && is_digit(text[at + length]);
      if (length == 0 || !in_number) break;
      end_group(blank > 0 ? ' ' : '\'');
      ++(blank > 0 ? shape.blanks : shape.apostrophes);
      at += length;
    }
  }
  shape.last_group = group;
  if (is_first) shape.first_group = group;
  // What goes on with digits is an exponent, or it is no number.
  std::string_view rest = text.substr(at);
  if (rest.starts_with('e') || rest.starts_with('E')) rest = {};
  const bool goes_on = rest.find_first_of("0123456789:/") != rest.npos && !is_compound_unit(rest);
  if (goes_on || (shape.first_group == 0 && shape.last_group == 0)) return std::nullopt;
  return shape;
}

bool has_currency(std::string_view text) {
  if (!take_currency(text).empty()) return true;
  std::string_view after = text.substr(text.find_last_of("0123456789") + 1);
  while (const std::size_t length = blank_length(after)) after.remove_prefix(length);
  return !take_currency(after).empty();
}

// What the dates of a column say about their order.
struct DateEvidence {
  bool sorted_with_day_first = true;
  bool sorted_with_month_first = true;
  int last_with_day_first = 0;
  int last_with_month_first = 0;
};

class Survey {
 public:
  explicit Survey(const CsvTable& table) : m_table(table) {
    for (std::size_t row = 0; row < table.rows(); ++row) {
      const std::size_t width = table.width(row);
      for (std::size_t column = 0; column < width; ++column) {
        add(table.cell(row, column), row, column);
      }
    }
  }

  Notation decide(const TableOptions& options) {
    // What the user says is not guessed, so that there are no notes about it.
    m_notation.numbers.decimal = options.decimal ? *options.decimal : decimal(options);
    m_notation.numbers.thousands = options.thousands ? *options.thousands : thousands(options);
    m_notation.dates = options.dates ? *options.dates : date_order();
    return m_notation;
  }

 private:
  void add(std::string_view text, std::size_t row, std::size_t column) {
    std::uint8_t kinds = 0;
    for (const char c : text) kinds |= kKinds[static_cast<unsigned char>(c)];
    // Most cells are digits alone, or none of them is one.
    if ((kinds & kDigit) == 0 || (kinds & ~(kDigit | kSignOrExponent)) == 0) {
      // A date such as 31-12-2012 has no other characters than a number.
      if ((kinds & kSignOrExponent) != 0 && (kinds & kDigit) != 0) add_date(text, row, column);
      return;
    }
    if ((kinds & ~(kDigit | kSignOrExponent)) == kPoint && add_pointed(text, row, column)) return;
    if (kinds != (kDigit | kPoint)) add_date(text, row, column);
    add_number(text, row, column);
  }

  // The usual number with a decimal point; false for all others.
  bool add_pointed(std::string_view text, std::size_t row, std::size_t column) {
    const std::size_t point = text.find('.');
    if (text.find_first_not_of("0123456789", point + 1) != text.npos) return false;
    const std::size_t after = text.size() - point - 1;
    if (after == 3) return false;
    m_points.decimal.add(row, column);
    return true;
  }

  void add_number(std::string_view text, std::size_t row, std::size_t column) {
    constexpr std::size_t kLongest = 60;
    if (text.size() > kLongest) return;
    const std::optional<Shape> shape = shape_of(text);
    if (!shape) return;
    const bool is_grouped = shape->groups_of_three && shape->first_group >= 1 &&
                            shape->first_group <= 3 && !shape->begins_with_zero;
    if (shape->blanks > 0 && is_grouped) m_blanks.add(row, column);
    if (shape->apostrophes > 0 && is_grouped) m_apostrophes.add(row, column);
    if (shape->points > 0 && shape->commas > 0) return add_both(*shape, is_grouped, row, column);
    if (shape->points == 0 && shape->commas == 0) return;
    SignEvidence& sign = shape->points > 0 ? m_points : m_commas;
    const std::size_t count = shape->points + shape->commas;
    const bool last_of_three = shape->last_group == 3 && is_grouped;
    if (count > 1) {
      if (last_of_three) sign.thousands.add(row, column);
    } else if (!last_of_three || shape->blanks + shape->apostrophes > 0) {
      sign.decimal.add(row, column);
    } else {
      sign.either.add(row, column);
      if (!m_has_ambiguous_amounts) m_has_ambiguous_amounts = has_currency(text);
    }
  }

  // "1.234,5" or "1,234.5".
  void add_both(const Shape& shape, bool is_grouped, std::size_t row, std::size_t column) {
    if (!is_grouped) return;
    if (shape.last_sign == ',' && shape.commas == 1) {
      m_commas.decimal.add(row, column);
      m_points.thousands.add(row, column);
    } else if (shape.last_sign == '.' && shape.points == 1) {
      m_points.decimal.add(row, column);
      m_commas.thousands.add(row, column);
    }
  }

  void add_date(std::string_view text, std::size_t row, std::size_t column) {
    const std::optional<NumericDate> date = numeric_date(text);
    if (!date || date->separator == '.') return;
    const auto possible = [](int day, int month) {
      return day >= 1 && day <= 31 && month >= 1 && month <= 12;
    };
    const bool day_first = possible(date->first, date->second);
    const bool month_first = possible(date->second, date->first);
    if (day_first && !month_first) m_day_first.add(row, column);
    if (month_first && !day_first) m_month_first.add(row, column);
    if (!day_first && !month_first) return;
    if (day_first && month_first && date->first != date->second) m_either_first.add(row, column);
    if (m_dates.size() <= column) m_dates.resize(column + 1);
    DateEvidence& evidence = m_dates[column];
    const auto follow = [&](int month, int day, int& last, bool& sorted) {
      const int number = (date->year * 100 + month) * 100 + day;
      sorted = sorted && number >= last;
      last = number;
    };
    follow(date->second, date->first, evidence.last_with_day_first, evidence.sorted_with_day_first);
    follow(date->first, date->second, evidence.last_with_month_first,
           evidence.sorted_with_month_first);
  }

  void note(const Evidence& evidence, const std::string& reading, const std::string& reason,
            const std::string& option) {
    const std::string_view top = trim_whitespace(m_table.cell(0, evidence.column));
    const bool named = evidence.row > 0 && !top.empty() && !looks_like_value(top);
    const std::string column =
        named ? "column " + in_quotes(top) : "column " + std::to_string(evidence.column + 1);
    m_notation.notes.push_back(in_quotes(m_table.cell(evidence.row, evidence.column)) + " in " +
                               column + ", line " + std::to_string(m_table.line(evidence.row)) +
                               ", is read as " + reading + ", " + reason + "; " + option +
                               " changes that.");
  }

  // Whether the column of a number such as "1.001" has whole numbers of three digits, and none of
  // more, so that its values are near a thousand.
  bool looks_grouped(const Evidence& evidence, char sign) const {
    bool has_hundreds = false;
    for (std::size_t row = 0; row < m_table.rows(); ++row) {
      std::string_view text = m_table.cell(row, evidence.column);
      if (text.starts_with('-')) text.remove_prefix(1);
      if (text.empty() || !std::all_of(text.begin(), text.end(), is_digit)) {
        if (text.starts_with('0') && text.find(sign) == 1) return false;
        continue;
      }
      if (text.size() > 3) return false;
      has_hundreds = has_hundreds || text.size() == 3;
    }
    return has_hundreds;
  }

  char decimal(const TableOptions& options) {
    if (options.thousands == '.') return ',';
    if (options.thousands == ',') return '.';
    const std::uint32_t comma = m_commas.decimal.count + m_points.thousands.count;
    const std::uint32_t point = m_points.decimal.count + m_commas.thousands.count;
    if (comma != point) return comma > point ? ',' : '.';
    if (comma > 0) return '.';
    // Nothing but numbers such as "1.001" and "1,001".
    const bool grouped_points = m_points.either.count > 0 && m_table.separator() != ',' &&
                                looks_grouped(m_points.either, '.');
    if (grouped_points) return ',';
    if (m_commas.either.count == 0 || m_points.either.count > 0) return '.';
    return m_table.separator() == ',' || looks_grouped(m_commas.either, ',') ? '.' : ',';
  }

  char thousands(const TableOptions& options) {
    const bool comma = m_notation.numbers.decimal == ',';
    const SignEvidence& other = comma ? m_points : m_commas;
    const SignEvidence& decimals = comma ? m_commas : m_points;
    const char sign = comma ? '.' : ',';
    const std::uint32_t signs = other.thousands.count + other.either.count;
    const std::string name = sign == '.' ? "point" : "comma";
    if (signs > 0 && other.thousands.count == 0 && !options.decimal) {
      const bool by_others = decimals.decimal.count > 0;
      note(other.either, "a number with a thousands " + name,
           by_others ? "because the table has decimal " + std::string(comma ? "commas" : "points")
                     : "because its column has numbers below a thousand as well",
           "--decimal");
    }
    // Between commas, a decimal point is the rule, but amounts of money seldom have thousandths.
    const bool is_usual = !comma && m_table.separator() == ',' && !m_has_ambiguous_amounts;
    if (decimals.either.count > 0 && decimals.decimal.count == 0 && other.thousands.count == 0 &&
        !options.decimal && !is_usual) {
      note(decimals.either, "a number with a decimal " + std::string(comma ? "comma" : "point"),
           "although it could be a thousands sign", "--thousands");
    }
    const std::uint32_t most = std::max({signs, m_blanks.count, m_apostrophes.count});
    if (most == 0) return '\0';
    if (signs == most) return sign;
    return m_blanks.count == most ? ' ' : '\'';
  }

  DateOrder date_order() {
    if (m_day_first.count + m_month_first.count > 0) {
      return m_month_first.count > m_day_first.count ? DateOrder::kMonthFirst
                                                     : DateOrder::kDayFirst;
    }
    if (m_either_first.count == 0) return DateOrder::kDayFirst;
    const DateEvidence& evidence = m_dates[m_either_first.column];
    bool month_first = m_notation.numbers.decimal == '.';
    std::string reason = "although it could be otherwise";
    if (evidence.sorted_with_day_first != evidence.sorted_with_month_first) {
      month_first = evidence.sorted_with_month_first;
      reason = "because the dates are then in order";
    }
    note(m_either_first, month_first ? "a date with the month first" : "a date with the day first",
         reason, "--dates");
    return month_first ? DateOrder::kMonthFirst : DateOrder::kDayFirst;
  }

  const CsvTable& m_table;
  SignEvidence m_points;
  SignEvidence m_commas;
  bool m_has_ambiguous_amounts = false;
  Evidence m_blanks;
  Evidence m_apostrophes;
  Evidence m_day_first;
  Evidence m_month_first;
  Evidence m_either_first;
  std::vector<DateEvidence> m_dates;
  Notation m_notation;
};

}  // namespace

Notation find_notation(const CsvTable& table, const TableOptions& options) {
  return Survey(table).decide(options);
}

}  // namespace kurv::app
