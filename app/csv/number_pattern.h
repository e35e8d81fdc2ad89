// Numbers that are dates: of eight digits, and counts of seconds since 1970.
#pragma once

#include <KurvGraph/values.h>

#include <cstddef>
#include <optional>
#include <string_view>

#include "app/csv/column_survey.h"

namespace kurv::app {

// What the numbers of a column have in common.
class NumberPattern {
 public:
  void add(Double value) {
    // Most columns drop out at their first number.
    if (m_any_pattern) check(value);
    m_any = true;
  }

  // Which dates the numbers are. Dates of eight digits, or of fourteen with the time, where each of
  // them is one and they are not all the same, or the column has a name of times; seconds since
  // 1970 where they are between 2000 and 2040, ascend or descend except for one step in five, and
  // the column has such a name. What is chosen counts where `is_counted` and is not guessed.
  DateSurvey::Digits dates(std::optional<DateOrder> chosen, std::string_view name,
                           bool is_counted) const;

 private:
  void check(Double value);
  bool is_in_order() const;

  bool m_any = false;
  bool m_any_pattern = true;
  bool m_days = true;
  bool m_seconds = true;
  bool m_milliseconds = true;
  bool m_instants = true;
  std::size_t m_ups = 0;
  std::size_t m_downs = 0;
  Double m_last = 0;
};

// Days since the beginning of 1970; NaN for NaN.
Double days_of_number(Double value, DateSurvey::Digits digits);

}  // namespace kurv::app
