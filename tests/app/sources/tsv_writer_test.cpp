#include "app/sources/tsv_writer.h"

#include <gmock/gmock.h>

#include <string>

#include "app/base/user_error.h"

namespace kurv::app {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST(TsvWriter, WritesALineForEachRowOfTheSheet) {
  TsvWriter table("file");
  table.add(1, 2, "x");
  table.add(1, 3, "y");
  table.add(3, 2, "1");
  table.add(3, 3, "2");
  EXPECT_EQ(table.take(), "\nx\ty\n\n1\t2\n");
}

TEST(TsvWriter, FillsShortRowsUp) {
  TsvWriter table("file");
  table.add(0, 1, "a");
  table.add(0, 2, "b");
  table.add(1, 0, "1");
  table.add(2, 3, "2");
  EXPECT_EQ(table.take(), "\ta\tb\t\n1\t\t\t\n\t\t\t2\n");
}

TEST(TsvWriter, AFarCellMakesItsOwnRowLongAlone) {
  TsvWriter table("file");
  for (std::size_t row = 0; row < 1000; ++row) table.add(row, 0, "1");
  table.add(1000, 16383, "2");
  EXPECT_EQ(table.take().size(), 1000U * 2 + 16383 + 2);
}

TEST(TsvWriter, AnEmptyTextIsNoCell) {
  TsvWriter table("file");
  table.add(5, 5, "");
  EXPECT_TRUE(table.is_empty());
  EXPECT_EQ(table.take(), "");
}

TEST(TsvWriter, QuotesWhatWouldBeReadOtherwise) {
  TsvWriter table("file");
  table.add(0, 0, "#1");
  table.add(0, 1, "#2");
  table.add(0, 2, "a\tb");
  table.add(0, 3, "a\nb");
  table.add(0, 4, "5\" pipe");
  table.add(0, 5, " a, b ");
  EXPECT_EQ(table.take(), "\"#1\"\t#2\t\"a\tb\"\t\"a\nb\"\t\"5\"\" pipe\"\t a, b \n");
}

std::string refusal_of(std::size_t row, std::size_t column) {
  TsvWriter table("file");
  table.add(1, 1, "x");
  try {
    table.add(row, column, "y");
  } catch (const UserError& error) {
    return error.what();
  }
  return "nothing was refused";
}

TEST(TsvWriter, RefusesCellsThatAreOutOfOrder) {
  EXPECT_THAT(refusal_of(0, 2), StartsWith("file is damaged"));
  EXPECT_THAT(refusal_of(1, 0), StartsWith("file is damaged"));
  EXPECT_THAT(refusal_of(1, 1), StartsWith("file is damaged"));
  EXPECT_EQ(refusal_of(2, 0), "nothing was refused");
}

TEST(TsvWriter, RefusesMoreThan64MillionCells) {
  EXPECT_THAT(refusal_of(1, std::size_t{70} << 20), HasSubstr("too large"));
  EXPECT_THAT(refusal_of(std::size_t{70} << 20, 0), HasSubstr("too large"));
}

}  // namespace
}  // namespace kurv::app
