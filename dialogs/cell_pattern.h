// What a search in the table looks for.
#pragma once

#include <KurvGraph/values.h>

#include <QString>
#include <optional>

namespace kurv {

// A number is found in the cells that show it, also with more decimals than it has: 12 finds 12 and
// 12.5, and 0.33 finds 0.3333. Any text is found in the texts that it is part of, whatever the case
// of its letters.
class CellPattern {
 public:
  // The text without outer blanks.
  CellPattern(const QString& text, char decimal_separator);

  // Whether it is found in any value; "Inf" is a number here.
  bool is_number() const { return m_lowest <= m_highest; }
  // Nothing where the text is not a finite number.
  std::optional<Double> number() const;

  // Of a cell that shows a value. Costs little for the values that do not match.
  bool matches(Double value) const {
    return value >= m_lowest && value <= m_highest && (value == m_number || begins(value));
  }
  // Of a cell that shows a text.
  bool matches(const QString& text) const { return text.contains(m_text, Qt::CaseInsensitive); }

 private:
  bool begins(Double value) const;

  QString m_text;
  char m_decimal_separator;
  std::size_t m_decimals = 0;  // digits after the separator
  // No value is between these where the text is not a number.
  Double m_number = 0;
  Double m_lowest = 1;
  Double m_highest = 0;
};

}  // namespace kurv
