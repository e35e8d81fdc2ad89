#include "app/csv/growing_table.h"

#include <gmock/gmock.h>

#include <KurvGraph/limits.h>

#include <cmath>

#include "app/base/user_error.h"

namespace kurv::app {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<double> column(const TableData& data, int index) {
  std::vector<double> values;
  for (int i = 1; i <= data.values.upper_point(); ++i) values.push_back(data.values(index, i));
  return values;
}

std::string row(int number) {
  return std::to_string(number) + "," + std::to_string(10 * number) + "\n";
}

std::string rows(int first, int last) {
  std::string text;
  for (int i = first; i <= last; ++i) text += row(i);
  return text;
}

class Growing : public testing::Test {
 protected:
  std::optional<GrowingTable::News> news(std::string_view bytes) {
    table.append(bytes);
    return table.take_news();
  }
  std::string refusal(std::string_view bytes) {
    try {
      table.append(bytes);
    } catch (const UserError& error) {
      return error.what();
    }
    return "";
  }
  TableOptions options;
  GrowingTable table{options, "standard input"};
};

TEST_F(Growing, NothingIsDrawnBeforeTwoRows) {
  EXPECT_FALSE(table.take_news());
  EXPECT_THAT(table.obstacle(), IsEmpty());
  EXPECT_FALSE(news("t,up\n"));
  EXPECT_FALSE(news("1,10\n"));
  EXPECT_THAT(table.obstacle(), HasSubstr("one row"));
  const auto first = news("2,20\n");
  ASSERT_TRUE(first);
  EXPECT_TRUE(first->is_all);
  EXPECT_THAT(column(first->data, 2), ElementsAre(10, 20));
  EXPECT_EQ(first->data.names(2), "up");
}

TEST_F(Growing, OnlyWholeLinesCountUntilTheEnd) {
  ASSERT_TRUE(news("t,up\n1,10\n2,20\n"));
  EXPECT_FALSE(news("3,3"));
  const auto more = news("0\n4,4");
  ASSERT_TRUE(more);
  EXPECT_FALSE(more->is_all);
  EXPECT_THAT(column(more->data, 2), ElementsAre(30));
  table.finish();
  const auto last = table.take_news();
  ASSERT_TRUE(last);
  EXPECT_THAT(column(last->data, 2), ElementsAre(4));
  EXPECT_EQ(table.rows(), 4U);
}

TEST_F(Growing, WhatIsDecidedFromFewRowsIsDecidedAgain) {
  const auto first = news("1,2\n2,3\n");
  ASSERT_TRUE(first);
  // Semicolons, so the commas are decimal commas.
  GrowingTable other({}, "table");
  other.append("a;b\n1;2\n2;3\n");
  ASSERT_TRUE(other.take_news());
  other.append("3;2,5\n");
  const auto again = other.take_news();
  ASSERT_TRUE(again);
  EXPECT_THAT(column(again->data, 2).back(), 2.5);
}

TEST_F(Growing, AnOddRowAfterAHundredChangesNothingAndIsToldOnce) {
  ASSERT_TRUE(news("t,up\n" + rows(1, 120)));
  const auto odd = news("error: sensor lost\n121,bad\n122,worse\n123,1230\n");
  ASSERT_TRUE(odd);
  EXPECT_FALSE(odd->is_all);
  EXPECT_THAT(column(odd->data, 1), ElementsAre(121, 122, 123));
  EXPECT_TRUE(std::isnan(odd->data.values(2, 1)));
  EXPECT_EQ(odd->data.values(2, 3), 1230);
  ASSERT_EQ(odd->data.warnings.size(), 2U);
  EXPECT_THAT(odd->data.warnings[0], HasSubstr("line 122"));
  EXPECT_THAT(odd->data.warnings[1], HasSubstr("\"bad\" in line 123"));
  const auto next = news("nothing\n124,none of it\n125,1\n");
  ASSERT_TRUE(next);
  EXPECT_THAT(next->data.warnings, IsEmpty());
}

TEST_F(Growing, ALongBeginningIsReadAndTheNewestRowsStay) {
  const auto first = news("t,up\n" + rows(1, 50000));
  ASSERT_TRUE(first);
  EXPECT_TRUE(first->is_all);
  EXPECT_EQ(first->data.values.upper_point(), kMaxPoints);
  EXPECT_EQ(first->data.values(1, kMaxPoints), 50000);
  EXPECT_EQ(first->data.values(1, 1), 50000 - kMaxPoints + 1);
  EXPECT_EQ(table.rows(), 50000U);
}

TEST_F(Growing, EachNthRowIsTakenFromTheBeginningOn) {
  options.selection.every = 50;
  GrowingTable every(options, "table");
  every.append("t,up\n" + rows(1, 120));
  const auto first = every.take_news();
  ASSERT_TRUE(first);
  EXPECT_THAT(column(first->data, 1), ElementsAre(1, 51, 101));
  every.append(rows(121, 210));
  const auto more = every.take_news();
  ASSERT_TRUE(more);
  EXPECT_THAT(column(more->data, 1), ElementsAre(151, 201));
}

TEST_F(Growing, DatesKeepTheirUnit) {
  std::string text = "time,up\n";
  for (int i = 0; i < 120; ++i) {
    text += "2026-01-01 00:0" + std::to_string(i / 60) + ":" + (i % 60 < 10 ? "0" : "") +
            std::to_string(i % 60) + "," + std::to_string(i) + "\n";
  }
  const auto first = news(text);
  ASSERT_TRUE(first);
  EXPECT_EQ(first->data.names(1), "time (seconds since 2026-01-01 00:00:00)");
  const auto more = news("2026-01-01 10:00:00,1\n");
  ASSERT_TRUE(more);
  EXPECT_FALSE(more->is_all);
  EXPECT_EQ(more->data.values(1, 1), 36000);
}

TEST_F(Growing, ATextThatBeginsAnewGoesOnWithoutItsHeader) {
  ASSERT_TRUE(news("t,up\n" + rows(1, 120) + "121,12"));
  table.begin_anew();
  const auto more = news("t,up\n1,10\n");
  ASSERT_TRUE(more);
  EXPECT_THAT(column(more->data, 1), ElementsAre(1));
  EXPECT_THAT(more->data.warnings, IsEmpty());
}

TEST_F(Growing, AQuotationMarkThatIsClosedLaterHoldsItsRowBack) {
  ASSERT_TRUE(news("t,up\n" + rows(1, 120)));
  EXPECT_FALSE(news("121,\"12\n"));
  EXPECT_FALSE(news("\n"));
  const auto more = news("\"\n122,5\n");
  ASSERT_TRUE(more);
  EXPECT_EQ(more->data.values.upper_point(), 2);
}

TEST_F(Growing, AQuotationMarkThatIsNeverClosedCostsOneLine) {
  ASSERT_TRUE(news("t,up\n" + rows(1, 120)));
  table.append("\"121,1\n" + rows(122, 20000));
  const auto more = table.take_news();
  ASSERT_TRUE(more);
  EXPECT_EQ(more->data.values.upper_point(), 20000 - 121);
  EXPECT_THAT(more->data.warnings, ElementsAre(HasSubstr("line 122")));
}

TEST_F(Growing, RowNumbersCountOn) {
  std::string text;
  for (int i = 0; i < 120; ++i) text += std::to_string(i % 7) + "\n";
  ASSERT_TRUE(news(text));
  const auto more = news("5\n");
  ASSERT_TRUE(more);
  EXPECT_EQ(more->data.values(1, 1), 121);
}

TEST_F(Growing, Utf16IsReadByLines) {
  const auto wide = [](std::string_view text) {
    std::string bytes;
    for (const char c : text) bytes += {c, '\0'};
    return bytes;
  };
  EXPECT_FALSE(news("\xFF\xFE" + wide("t,up\n1,1")));
  // Half of a character.
  EXPECT_FALSE(news(wide("0\n2,2") + "0"));
  const auto first = news(std::string("\0", 1) + wide("\n"));
  ASSERT_TRUE(first);
  EXPECT_THAT(column(first->data, 2), ElementsAre(10, 20));
}

TEST_F(Growing, WhatIsNoTableOfTextIsRefused) {
  EXPECT_THAT(refusal(std::string("\x7F\x45\x4C\x46\0\0\1\1\0\1\n", 11)), HasSubstr("no text"));
  table = GrowingTable({}, "a");
  EXPECT_THAT(refusal("[{\"a\":1},\n{\"a\":2}]\n"), HasSubstr("JSON"));
  table = GrowingTable({}, "a");
  EXPECT_THAT(refusal("t,up\n" + rows(1, 200) + std::string(1, '\0')), HasSubstr("no text"));
}

TEST_F(Growing, AnEndlessLineIsRefused) {
  const std::string piece(std::size_t{1} << 20, '1');
  std::string message;
  for (int i = 0; i < 66 && message.empty(); ++i) message = refusal(piece);
  EXPECT_THAT(message, HasSubstr("more than 64 MiB"));
}

TEST_F(Growing, ManyLinesWithoutNumbersAreRefused) {
  std::string text;
  for (int i = 0; i < 40000; ++i) text += "word,other\n";
  EXPECT_THAT(refusal(text), HasSubstr("standard input"));
}

TEST(GrowingTable, TimesOfDayGoOnAfterMidnight) {
  GrowingTable table({}, "data.csv");
  const auto row = [](int minute) {
    const int hour = minute / 60 % 24;
    const auto digits = [](int value) {
      return std::string(value < 10 ? "0" : "") + std::to_string(value);
    };
    return digits(hour) + ':' + digits(minute % 60) + ":00,1\n";
  };
  std::string bytes = "t,v\n";
  for (int minute = 1300; minute < 1430; ++minute) bytes += row(minute);
  table.append(bytes);
  ASSERT_TRUE(table.take_news());
  table.append(row(1430) + row(1450) + row(1451));
  const std::optional<GrowingTable::News> news = table.take_news();
  ASSERT_TRUE(news);
  const Matrix<Double>& values = news->data.values;
  EXPECT_LT(values(1, 1), values(1, 2));
  EXPECT_LT(values(1, 2), values(1, 3));
}

}  // namespace
}  // namespace kurv::app
