#include "dialogs/table_block.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <map>
#include <utility>

#include <KurvGraph/fault.h>

namespace kurv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

using Place = std::pair<int, int>;

// What a text puts into a grid of 4 rows and 3 columns.
struct Paste {
  explicit Paste(std::string_view text, int row = 1, int column = 1) {
    left_out = paste_text(text, row, column, 4, 3, [&](int r, int c, std::string_view cell) {
      EXPECT_TRUE(cells.emplace(Place(r, c), cell).second) << "no cell is set twice";
    });
  }
  std::map<Place, std::string> cells;
  bool left_out;
};

void append_place(String& text, int row, int column) {
  text += std::to_string(row) + '.' + std::to_string(column);
}

TEST(BlockText, HasTabsBetweenColumnsAndLineEndsBetweenRows) {
  EXPECT_EQ(block_text({1, 2, 3, 3}, append_place), "1.2\t1.3\r\n2.2\t2.3\r\n3.2\t3.3");
}

TEST(BlockText, OfOneCellIsItsText) {
  EXPECT_EQ(block_text({2, 2, 2, 2}, append_place), "2.2");
}

TEST(BlockText, OfNothingIsEmpty) {
  EXPECT_EQ(block_text({}, append_place), "");
}

TEST(PutText, EveryLineEndPartsRows) {
  for (const char* text : {"1\t2\r\n3\t4", "1\t2\n3\t4", "1\t2\r3\t4"}) {
    const Paste paste(text);
    EXPECT_THAT(paste.cells, ElementsAre(Pair(Place(1, 1), "1"), Pair(Place(1, 2), "2"),
                                         Pair(Place(2, 1), "3"), Pair(Place(2, 2), "4")));
    EXPECT_FALSE(paste.left_out);
  }
}

TEST(PutText, LineEndsMayBeMixed) {
  const Paste paste("1\n2\r3\r\n4");
  EXPECT_THAT(paste.cells, ElementsAre(Pair(Place(1, 1), "1"), Pair(Place(2, 1), "2"),
                                       Pair(Place(3, 1), "3"), Pair(Place(4, 1), "4")));
}

TEST(PutText, AFinalLineEndBeginsNoRow) {
  for (const char* text : {"1\r\n", "1\n", "1\r"}) {
    EXPECT_THAT(Paste(text).cells, ElementsAre(Pair(Place(1, 1), "1"))) << text;
  }
}

TEST(PutText, AnEmptyLineIsARowWithAnEmptyCell) {
  EXPECT_THAT(Paste("1\n\n3").cells,
              ElementsAre(Pair(Place(1, 1), "1"), Pair(Place(2, 1), ""), Pair(Place(3, 1), "3")));
  EXPECT_THAT(Paste("1\n\r2").cells,
              ElementsAre(Pair(Place(1, 1), "1"), Pair(Place(2, 1), ""), Pair(Place(3, 1), "2")))
      << "a CR after an LF is one more line end";
}

TEST(PutText, AnEmptyTextIsOneEmptyCell) {
  EXPECT_THAT(Paste("", 2, 3).cells, ElementsAre(Pair(Place(2, 3), "")));
}

TEST(PutText, RowsMayBeRaggedAndBeginInTheFirstCellsColumn) {
  const Paste paste("1\n2\t3\n\t4", 2, 2);
  EXPECT_THAT(paste.cells,
              ElementsAre(Pair(Place(2, 2), "1"), Pair(Place(3, 2), "2"), Pair(Place(3, 3), "3"),
                          Pair(Place(4, 2), ""), Pair(Place(4, 3), "4")));
}

TEST(PutText, ATabAtTheEndIsOneMoreEmptyCell) {
  EXPECT_THAT(Paste("1\t").cells, ElementsAre(Pair(Place(1, 1), "1"), Pair(Place(1, 2), "")));
}

TEST(PutText, CellsLoseTheirOuterBlanks) {
  EXPECT_THAT(Paste("  1 2  \t   ").cells,
              ElementsAre(Pair(Place(1, 1), "1 2"), Pair(Place(1, 2), "")));
}

TEST(PutText, WhatFallsOutsideIsLeftOut) {
  const Paste right("1\t2\n3\t4", 1, 3);
  EXPECT_THAT(right.cells, ElementsAre(Pair(Place(1, 3), "1"), Pair(Place(2, 3), "3")));
  EXPECT_TRUE(right.left_out);
  const Paste below("1\n2", 4, 1);
  EXPECT_THAT(below.cells, ElementsAre(Pair(Place(4, 1), "1")));
  EXPECT_TRUE(below.left_out);
  EXPECT_TRUE(Paste("1\tx", 1, 3).left_out) << "whether or not it is a number";
}

TEST(PutText, NothingIsLostWithAnEmptyCellOutside) {
  EXPECT_FALSE(Paste("1\t\n2\t", 1, 3).left_out);
  EXPECT_FALSE(Paste("1\n\n", 4, 1).left_out);
}

TEST(PutText, ANulByteIsPartOfItsCell) {
  EXPECT_THAT(Paste(std::string_view("1\0002\t3", 5)).cells,
              ElementsAre(Pair(Place(1, 1), std::string("1\0002", 3)), Pair(Place(1, 2), "3")));
}

TEST(PutText, AHugeTextIsReadToItsEnd) {
  std::string text;
  for (int i = 0; i < 1000000; ++i) text += "1\t2\t3\t4\r\n";
  const Paste paste(text);
  EXPECT_EQ(paste.cells.size(), 12u);
  EXPECT_TRUE(paste.left_out);
  const std::string cell(10000000, 'x');
  EXPECT_EQ(Paste(cell).cells[Place(1, 1)].size(), cell.size());
}

TEST(PutText, ReadsBackWhatACopyMade) {
  const String copied = block_text({1, 1, 4, 3}, append_place);
  const Paste paste(copied);
  EXPECT_EQ(paste.cells.size(), 12u);
  for (const auto& [place, text] : paste.cells) {
    String expected;
    append_place(expected, place.first, place.second);
    EXPECT_EQ(text, expected);
  }
}

TEST(PutEmpty, EmptiesEveryCellOfTheBlock) {
  std::vector<Place> places;
  clear_block({2, 1, 3, 2}, [&](int row, int column, std::string_view text) {
    EXPECT_EQ(text, "");
    places.emplace_back(row, column);
  });
  EXPECT_THAT(places, ElementsAre(Place(2, 1), Place(2, 2), Place(3, 1), Place(3, 2)));
  clear_block({}, [](int, int, std::string_view) { ADD_FAILURE(); });
}

std::string bytes_of(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(SaveTable, EndsEveryFieldWithACommaAndEveryLineWithCrLf) {
  const std::string path = testing::TempDir() + "table.txt";
  std::ofstream(path) << "something longer that was here before the table was saved";
  save_table(path, 2, 2, append_place);
  EXPECT_EQ(bytes_of(path), "0.1,0.2,\r\n1.1,1.2,\r\n2.1,2.2,\r\n");
  save_table(path, 0, 0, append_place);
  EXPECT_EQ(bytes_of(path), "\r\n") << "a heading without names";
}

TEST(SaveTable, AFileThatCannotBeOpenedIsAFault) {
  EXPECT_THROW(save_table(testing::TempDir() + "no/such/folder/t.txt", 1, 1, append_place), Fault);
  EXPECT_THROW(save_table(testing::TempDir(), 1, 1, append_place), Fault);
}

}  // namespace
}  // namespace kurv
