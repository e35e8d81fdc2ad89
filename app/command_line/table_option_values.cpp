#include "app/command_line/table_option_values.h"

#include <KurvGraph/text.h>

#include <array>
#include <charconv>
#include <string_view>
#include <utility>

#include "app/base/message_text.h"
#include "app/base/user_error.h"
#include "app/command_line/option_values.h"

namespace kurv::app {

namespace {

template <class Value, std::size_t kCount>
using Words = std::array<std::pair<std::string_view, Value>, kCount>;

UserError wrong_value(const std::string& option, const std::string& wanted, std::string_view text) {
  return UserError(option + " takes " + wanted + ", not " + in_quotes(text) + ".", kUsageFailure);
}

template <class Value, std::size_t kCount>
Value value_of_word(const Words<Value, kCount>& words, const std::string& option,
                    const std::string& wanted, std::string_view text) {
  for (const auto& [word, value] : words) {
    if (equals_ignoring_case(text, word)) return value;
  }
  throw wrong_value(option, wanted, text);
}

char parse_separator(std::string_view text) {
  constexpr std::string_view kNoSeparators = "\"\r\n0123456789";
  constexpr Words<char, 9> kWords{{{"tab", '\t'},
                                   {"\\t", '\t'},
                                   {"comma", ','},
                                   {"semicolon", ';'},
                                   {"blanks", kBlanks},
                                   {"blank", kBlanks},
                                   {"space", kBlanks},
                                   {"fixed", kFixedWidth},
                                   {"fixed width", kFixedWidth}}};
  const bool is_character = text.size() == 1 && static_cast<unsigned char>(text.front()) < 0x80;
  if (is_character && kNoSeparators.find(text.front()) == kNoSeparators.npos) return text.front();
  return value_of_word(kWords, "--separator",
                       "a character such as ; or one of tab, blanks and fixed", text);
}

char parse_decimal(std::string_view text) {
  constexpr Words<char, 4> kWords{{{".", '.'}, {",", ','}, {"point", '.'}, {"comma", ','}}};
  return value_of_word(kWords, "--decimal", "a point or a comma", text);
}

char parse_thousands(std::string_view text) {
  constexpr Words<char, 11> kWords{{{".", '.'},
                                    {",", ','},
                                    {"'", '\''},
                                    {" ", ' '},
                                    {"point", '.'},
                                    {"comma", ','},
                                    {"apostrophe", '\''},
                                    {"blank", ' '},
                                    {"space", ' '},
                                    {"none", '\0'},
                                    {"", '\0'}}};
  return value_of_word(kWords, "--thousands", "a point, a comma, an apostrophe, blank or none",
                       text);
}

HeaderChoice parse_header(std::string_view text) {
  constexpr Words<HeaderChoice, 6> kWords{{{"no", HeaderChoice::kNone},
                                           {"none", HeaderChoice::kNone},
                                           {"0", HeaderChoice::kNone},
                                           {"yes", HeaderChoice::kNames},
                                           {"1", HeaderChoice::kNames},
                                           {"units", HeaderChoice::kNamesAndUnits}}};
  return value_of_word(kWords, "--header", "yes, no, or units where units are in a second row",
                       text);
}

std::size_t parse_skip(std::string_view text) {
  std::size_t value = 0;
  const char* const end = text.data() + text.size();
  const std::from_chars_result result = std::from_chars(text.data(), end, value);
  if (result.ec == std::errc() && result.ptr == end) return value;
  throw wrong_value("--skip", "a number of lines", text);
}

// "dmy" of "dd.mm.yyyy": each letter once.
std::string order_of_letters(std::string_view text) {
  std::string order;
  for (const char c : to_lower(text)) {
    const bool is_letter = c >= 'a' && c <= 'z';
    if (is_letter && (order.empty() || order.back() != c)) order.push_back(c);
  }
  return order;
}

DateOrder parse_dates(std::string_view text) {
  constexpr Words<DateOrder, 5> kWords{{{"unix", DateOrder::kUnixSeconds},
                                        {"unix-s", DateOrder::kUnixSeconds},
                                        {"unix-ms", DateOrder::kUnixMilliseconds},
                                        {"iso", DateOrder::kYearFirst},
                                        {"none", DateOrder::kNone}}};
  const std::string order = order_of_letters(text);
  if (order == "dmy") return DateOrder::kDayFirst;
  if (order == "mdy") return DateOrder::kMonthFirst;
  if (order == "ymd") return DateOrder::kYearFirst;
  return value_of_word(kWords, "--dates", "dmy, mdy, ymd, unix, unix-ms or none", text);
}

Encoding parse_encoding(std::string_view text) {
  const std::optional<Encoding> encoding = encoding_named(text);
  if (encoding) return *encoding;
  throw wrong_value("--encoding",
                    "UTF-8, UTF-16LE, UTF-16BE, UTF-32LE, UTF-32BE, cp1252 or Latin-1", text);
}

}  // namespace

void add_table_options(CLI::App& command, TableOptionTexts& texts) {
  const auto add = [&](const char* name, std::optional<std::string>& text, const char* type,
                       const char* meaning) {
    command.add_option(name, text, meaning)->type_name(type)->group("Options about a table");
  };
  add("--sheet", texts.sheet, "NAME", "The sheet of a workbook: its name, or its number");
  add("--separator", texts.separator, "CHARACTER",
      "What separates its fields: a character, tab, blanks or fixed");
  add("--decimal", texts.decimal, "SIGN", "The decimal sign of its numbers: . or ,");
  add("--thousands", texts.thousands, "SIGN",
      "The sign between groups of digits: . , ' blank or none");
  add("--header", texts.header, "yes|no|units",
      "Whether its first row has names, and the second one units");
  add("--skip", texts.skip, "N", "Leave out the first N lines");
  add("--comment", texts.comment, "TEXT", "What comment lines begin with, or none");
  add("--missing", texts.missing, "TEXT,...", "The texts that stand for no value");
  add("--encoding", texts.encoding, "NAME", "Such as UTF-8, UTF-16LE or cp1252");
  add("--dates", texts.dates, "ORDER", "dmy, mdy, ymd, unix, unix-ms, or none");
}

void parse_table_options(const TableOptionTexts& texts, TableOptions& options) {
  if (texts.sheet) options.sheet = *texts.sheet;
  if (texts.separator) options.separator = parse_separator(*texts.separator);
  if (texts.decimal) options.decimal = parse_decimal(*texts.decimal);
  if (texts.thousands) options.thousands = parse_thousands(*texts.thousands);
  if (texts.header) options.header = parse_header(*texts.header);
  if (texts.skip) options.skip = parse_skip(*texts.skip);
  if (texts.comment) {
    options.comment = equals_ignoring_case(*texts.comment, "none") ? "" : *texts.comment;
  }
  if (texts.missing) options.missing = parse_names(*texts.missing, "--missing");
  if (texts.encoding) options.encoding = parse_encoding(*texts.encoding);
  if (texts.dates) options.dates = parse_dates(*texts.dates);
  if (!options.decimal || options.decimal != options.thousands) return;
  throw UserError("--decimal and --thousands name the same sign; choose different ones.",
                  kUsageFailure);
}

}  // namespace kurv::app
