#include "app/sources/number_format_kind.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace kurv::app {
namespace {

TEST(NumberFormatKind, IsReadFromTheCode) {
  using enum FormatKind;
  const std::vector<std::pair<const char*, FormatKind>> codes = {
      {"General", kNumber},
      {"0.00", kNumber},
      {"#,##0.00\\ \"days\"", kNumber},
      {"0.00E+00", kNumber},
      {"# ?/?", kNumber},
      {"[Red]-0.0", kNumber},
      {"[$\xE2\x82\xAC-407]\\ 0.00", kNumber},
      {"@", kNumber},
      {"", kNumber},
      {"0;yyyy", kNumber},
      {"0\" %\"", kNumber},
      {"0%", kPercent},
      {"[Blue]0.00%;[Red]-0.00%", kPercent},
      {"yyyy-mm-dd", kDate},
      {"dd\\/mm\\/yyyy", kDate},
      {"[$-F800]dddd\\,\\ mmmm\\ dd\\,\\ yyyy", kDate},
      {"mmm", kDate},
      {"D.M.YY", kDate},
      {"dd/mm/yyyy hh:mm", kDateTime},
      {"yyyy-mm-dd\\Thh:mm:ss.000", kDateTime},
      {"m/d/yy h:mm AM/PM", kDateTime},
      {"h:mm", kTime},
      {"h AM/PM", kTime},
      {"mm:ss.0", kTime},
      {"[h]:mm:ss", kDuration},
      {"[mm]:ss", kDuration},
      {"[ss]", kDuration},
      {"\"unclosed", kNumber},
      {"[unclosed", kNumber},
      {"\\", kNumber},
      {"[]", kNumber},
  };
  for (const auto& [code, kind] : codes) EXPECT_EQ(kind_of_format(code), kind) << code;
}

TEST(NumberFormatKind, OfBuiltInFormats) {
  using enum FormatKind;
  const std::vector<std::pair<unsigned, FormatKind>> formats = {
      {0, kNumber}, {1, kNumber},    {4, kNumber}, {9, kPercent}, {10, kPercent},  {11, kNumber},
      {14, kDate},  {17, kDate},     {18, kTime},  {21, kTime},   {22, kDateTime}, {37, kNumber},
      {45, kTime},  {46, kDuration}, {47, kTime},  {48, kNumber}, {49, kNumber},   {164, kNumber}};
  for (const auto& [id, kind] : formats) EXPECT_EQ(kind_of_built_in_format(id), kind) << id;
}

}  // namespace
}  // namespace kurv::app
