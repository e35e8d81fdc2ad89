// The words of the import window.
#include "app/csv/table_survey.h"

#include <gtest/gtest.h>

namespace kurv::app {
namespace {

TEST(DialogWords, EachOptionHasItsField) {
  const std::pair<const char*, const char*> cases[] = {
      {"sheet \"A\" is read; --sheet chooses another one.",
       "sheet \"A\" is read; \"Worksheet\" chooses another one."},
      {"--header and --skip change that.", "\"Header\" and \"Lines to skip\" change that."},
      {"1; --decimal changes that.", "1; \"Decimal sign\" changes that."},
      {"1; --thousands changes that.", "1; \"Thousands sign\" changes that."},
      {"1; --encoding changes that.", "1; \"Encoding\" changes that."},
      {"--separator, --comment", "\"Separator\", \"Comments\""},
      {"--missing, --dates", "\"Missing values\", \"Dates\""},
      {"; --markers shows its points.", "; \"Draw a marker at each point\" shows its points."},
      {"--every 3, --y", "\"Take every\" 3, \"Curves\""},
  };
  for (const auto& [sentence, words] : cases) EXPECT_EQ(in_dialog_words(sentence), words);
}

TEST(DialogWords, AColumnIsNamedWithoutItsNumber) {
  EXPECT_EQ(in_dialog_words("x is the row number; --x 12 takes the dates of \"day\"."),
            "x is the row number; \"X axis\" takes the dates of \"day\".");
}

}  // namespace
}  // namespace kurv::app
