#include "dialogs/cell_pattern.h"

#include <KurvGraph/number_text.h>

#include <algorithm>
#include <cmath>

namespace kurv {

CellPattern::CellPattern(const QString& text, char decimal_separator)
    : m_text(text.trimmed()), m_decimal_separator(decimal_separator) {
  const std::optional<Double> number = text_to_number(m_text.toStdString(), decimal_separator);
  if (!number || std::isnan(*number)) return;
  m_number = *number;
  m_lowest = m_highest = m_number;
  if (std::isinf(m_number) || m_text.contains(u'e', Qt::CaseInsensitive)) return;
  const qsizetype separator = m_text.indexOf(QLatin1Char(decimal_separator));
  if (separator >= 0) m_decimals = static_cast<std::size_t>(m_text.size() - separator - 1);
  // Of a value that has more decimals, the rest is less than one unit of the last one.
  const Double unit = std::pow(10.0, -static_cast<Double>(m_decimals));
  if (m_text.startsWith(u'-')) {
    m_lowest -= unit;
  } else {
    m_highest += unit;
  }
}

std::optional<Double> CellPattern::number() const {
  if (!is_number() || std::isinf(m_number)) return std::nullopt;
  return m_number;
}

// Whether the value has the number's decimals and then more.
bool CellPattern::begins(Double value) const {
  String shown;
  append_number(shown, value, m_decimal_separator);
  const std::size_t separator = shown.find(m_decimal_separator);
  if (separator == shown.npos || shown.find('E') != shown.npos) return false;
  shown.resize(std::min(shown.size(), separator + 1 + m_decimals));
  return text_to_number(shown, m_decimal_separator) == m_number;
}

}  // namespace kurv
