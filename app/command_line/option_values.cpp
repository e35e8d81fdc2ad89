#include "app/command_line/option_values.h"

#include <KurvGraph/fault.h>
#include <KurvGraph/limits.h>
#include <KurvGraph/number_text.h>
#include <KurvGraph/text.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include "app/base/edit_distance.h"
#include "app/base/message_text.h"
#include "app/base/user_error.h"
#include "app/csv/csv_parser.h"

namespace kurv::app {

namespace {

constexpr int kWidest = 7680;
constexpr int kHighest = 4320;
constexpr double kMinScale = 0.5;
constexpr double kMaxScale = 8;
// A graph file holds sizes of fonts that fit into an Integer.
constexpr Single kMaxFontSize = std::numeric_limits<Integer>::max();
static_assert(kMaxFontSize == 32767);  // the message names it
// The message about kMaxPicturePixels names twice these sides.
static_assert(kMaxPicturePixels == 4.0 * kWidest * kHighest);

UserError misuse(const std::string& sentence) {
  return UserError(sentence, kUsageFailure);
}

template <class Number>
std::optional<Number> whole_number(std::string_view text) {
  Number value{};
  const char* end = text.data() + text.size();
  const std::from_chars_result result = std::from_chars(text.data(), end, value);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return value;
}

// The values that the type takes, for a message.
std::string expectation(ValueType type) {
  switch (type) {
    case ValueType::kInteger:
      return "a whole number from -32768 to 32767";
    case ValueType::kBoolean:
      return "True or False";
    case ValueType::kSingle:
      return "a number above 0 and at most 32767";
    case ValueType::kDouble:
      return "a finite number";
    default:
      return "a text";
  }
}

// Throws Fault where the control would, and for three kinds of values that it would take: a
// fraction where a whole number is wanted, because a user who types one does not expect it to be
// rounded; a font size, which is what each Single is, that cannot be drawn or saved; a limit that
// is not finite, with which a graph file does not load.
void convert(ValueType type, const Variant& value) {
  if (type == ValueType::kInteger) {
    if (to_double(value) != to_integer(value)) throw Fault(FaultKind::kTypeMismatch);
  } else if (type == ValueType::kBoolean) {
    static_cast<void>(to_boolean(value));
  } else if (type == ValueType::kSingle) {
    const Single size = to_single(value);
    // Written so that NaN is refused.
    if (!(size > 0 && size <= kMaxFontSize)) throw Fault(FaultKind::kOverflow);
  } else if (type == ValueType::kDouble) {
    if (!std::isfinite(to_double(value))) throw Fault(FaultKind::kOverflow);
  }
}

// Names that contain the text or are almost the same.
std::vector<std::string> similar_properties(std::string_view name) {
  constexpr std::size_t kMaxNameLength = 40;
  std::vector<std::string> result;
  if (name.empty() || name.size() > kMaxNameLength) return result;
  const std::string wanted = to_lower(name);
  for (const Member& property : properties()) {
    const std::string known = to_lower(property.name);
    const bool contained = wanted.size() > 2 && known.find(wanted) != std::string::npos;
    if (contained || levenshtein_distance(wanted, known) <= 2) result.emplace_back(property.name);
  }
  return result;
}

const Member& property_named(std::string_view name) {
  if (const Member* property = find_property(name)) return *property;
  const std::vector<std::string> similar = similar_properties(name);
  throw misuse("there is no property " + in_quotes(name) + "; " +
               (similar.empty() ? "\"kurv render --help\" lists all of them."
                                : "similar ones are " + enumeration(similar, 6) + "."));
}

}  // namespace

QSize parse_size(std::string_view text) {
  const std::size_t cross = text.find_first_of("xX");
  if (cross != std::string_view::npos) {
    const std::optional<int> width = whole_number<int>(text.substr(0, cross));
    const std::optional<int> height = whole_number<int>(text.substr(cross + 1));
    if (width && height && *width >= 1 && *width <= kWidest && *height >= 1 &&
        *height <= kHighest) {
      return {*width, *height};
    }
  }
  throw misuse("--size takes a width and a height such as 1000x700, from 1x1 to 7680x4320, not " +
               in_quotes(text) + ".");
}

double parse_scale(std::string_view text) {
  const std::optional<Double> scale = text_to_number(text);
  if (scale && *scale >= kMinScale && *scale <= kMaxScale) return *scale;
  throw misuse("--scale takes a number from 0.5 to 8, not " + in_quotes(text) + ".");
}

std::size_t parse_every(std::string_view text) {
  const std::optional<std::size_t> every = whole_number<std::size_t>(text);
  if (every && *every >= 1) return *every;
  throw misuse("--every takes a whole number from 1 upwards, not " + in_quotes(text) + ".");
}

bool parse_limits(std::string_view text) {
  if (text == "round") return true;
  if (text == "rule") return false;
  throw misuse("--limits takes round or rule, not " + in_quotes(text) + ".");
}

std::vector<std::string> parse_names(std::string_view text, const std::string& option) {
  std::vector<std::string> names;
  try {
    // A list of names has the syntax of a CSV line.
    const CsvTable table = parse_csv(std::string(text), ',', option);
    for (std::size_t i = 0; table.rows() == 1 && i < table.width(0); ++i) {
      names.emplace_back(trim_whitespace(table.cell(0, i)));
    }
  } catch (const UserError&) {
    // A quotation mark is not closed, which is reported below.
  }
  if (!names.empty()) return names;
  throw misuse(option + " takes " + (option == "--y" ? "the names of columns" : "texts") +
               " with commas between them, not " + in_quotes(text) + ".");
}

Setting parse_setting(std::string_view text) {
  const std::size_t sign = text.find('=');
  if (sign == std::string_view::npos) {
    throw misuse("--set takes a property and its value such as NumTicks=5, not " + in_quotes(text) +
                 ".");
  }
  const Member& property = property_named(trim_whitespace(text.substr(0, sign)));
  const std::string value(text.substr(sign + 1));
  try {
    convert(property.type, Variant(value));
  } catch (const Fault&) {
    throw misuse("the property " + std::string(property.name) + " takes " +
                 expectation(property.type) + ", not " + in_quotes(value) + ".");
  }
  return {&property, value};
}

Derivation parse_derivation(std::string_view text) {
  const std::size_t sign = text.find('=');
  const std::string_view name = trim_whitespace(text.substr(0, sign));
  const std::string_view expression =
      sign == text.npos ? "" : trim_whitespace(text.substr(sign + 1));
  if (name.empty() || expression.empty()) {
    throw misuse("--derive takes a name and an expression, as in 'ratio=up/(1+down)', not " +
                 in_quotes(text) + ".");
  }
  return {std::string(name), std::string(expression)};
}

QLocale parse_locale(const std::string& text) {
  // Without the encoding and the modifier of a name such as "de_DE.UTF-8@euro".
  QString name = QString::fromStdString(text.substr(0, text.find_first_of(".@")));
  name.replace('-', '_');
  const QLocale locale(name);
  // An unknown name gets the neutral locale, and an unknown country that of the language.
  const QStringList parts = name.split('_');
  const bool known = locale != QLocale::c()
                         ? parts.size() == 1 || locale.name().endsWith('_' + parts.back()) ||
                               QLocale::codeToScript(parts.back()) != QLocale::AnyScript
                         : name == "C" || name == "POSIX";
  if (!known) {
    throw misuse("--locale takes the name of a locale such as de_DE, not " + in_quotes(text) + ".");
  }
  if (locale.decimalPoint() != "." && locale.decimalPoint() != ",") {
    throw misuse("the locale " + in_quotes(text) +
                 " has neither a point nor a comma in its numbers; choose one that has.");
  }
  return locale;
}

void check_picture_size(QSize size, double scale) {
  const double width = size.width() * scale;
  const double height = size.height() * scale;
  if (std::max(width, height) > kMaxSide) {
    throw misuse("--size and --scale together ask for more than " + std::to_string(kMaxSide) +
                 " pixels on one side; choose a smaller one.");
  }
  if (width * height <= kMaxPicturePixels) return;
  throw misuse("--size and --scale together ask for more than " + std::to_string(2 * kWidest) +
               "x" + std::to_string(2 * kHighest) + " pixels; choose a smaller one.");
}

}  // namespace kurv::app
