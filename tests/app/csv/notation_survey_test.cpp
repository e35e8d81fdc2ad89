#include "app/csv/notation_survey.h"

#include <gmock/gmock.h>

#include <string>

#include "app/csv/csv_reader.h"

namespace kurv::app {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

Notation notation_of(const std::string& bytes, const TableOptions& options = {}) {
  return find_notation(parse_csv(bytes, "data.csv"), options);
}

// The decimal sign and the thousands sign.
std::string signs_of(const std::string& bytes) {
  const NumberNotation numbers = notation_of(bytes).numbers;
  return {numbers.decimal, numbers.thousands == '\0' ? '0' : numbers.thousands};
}

TEST(NotationSurvey, MoreNumbersDecideAboutTheDecimalSign) {
  EXPECT_EQ(signs_of("x;y\n1,5;2\n"), ",0");
  EXPECT_EQ(signs_of("x;y\n1,5;2.5\n"), ".0");
  EXPECT_EQ(signs_of("x;y\n1;2\n"), ".0");
  EXPECT_EQ(signs_of("x,y\n\"1,5\",2\n\"2,5\",3\n"), ",0");
}

TEST(NotationSurvey, ANumberWithBothSignsSaysWhatTheyMean) {
  EXPECT_EQ(signs_of("x;y\n1;1.234,5\n"), ",.");
  EXPECT_EQ(signs_of("x;y\n1;1,234.5\n"), ".,");
  EXPECT_EQ(signs_of("x;y\n1;1.234.567\n"), ",.");
  EXPECT_EQ(signs_of("x;y\n1;1,234,567\n"), ".,");
  EXPECT_EQ(signs_of("x;y\n1;1'234.5\n"), ".'");
  EXPECT_EQ(signs_of("x;y\n1;1 234,5\n"), ", ");
  EXPECT_EQ(signs_of("x;y\n1;1\u202F"
                     "234,5\n"),
            ", ");
}

TEST(NotationSurvey, OtherColumnsDecideAboutWhatCouldBeEither) {
  const Notation notation = notation_of("p;t\n980;1,5\n1.001;2,5\n");
  EXPECT_EQ(notation.numbers.decimal, ',');
  EXPECT_EQ(notation.numbers.thousands, '.');
  EXPECT_THAT(notation.notes, ElementsAre(AllOf(HasSubstr("\"1.001\" in column \"p\", line 3"),
                                                HasSubstr("thousands point"), HasSubstr("--"))));
}

TEST(NotationSurvey, AColumnAroundAThousandHasGroups) {
  EXPECT_EQ(signs_of("p;q\n980;1\n987;2\n994;3\n1.001;4\n"), ",.");
  EXPECT_EQ(signs_of("p;q\n980;1\n987;2\n994;3\n1,001;4\n"), ".,");
  // Whole numbers of four digits have no groups, and thousandths have three digits, too.
  EXPECT_EQ(signs_of("p;q\n980;1\n1987;2\n1.001;4\n"), ".0");
  const Notation thousandths = notation_of("p;q\n1.234;1\n2.345;2\n");
  EXPECT_EQ(thousandths.numbers.decimal, '.');
  EXPECT_THAT(thousandths.notes, ElementsAre(HasSubstr("--thousands changes that")));
  EXPECT_THAT(notation_of("p,q\n1.234,1\n2.345,2\n").notes, IsEmpty());
}

TEST(NotationSurvey, AmountsOfThreeDecimalsAreReportedBetweenCommasToo) {
  for (const char* bytes : {"n,v\n1,$1.234\n2,$2.345\n", "n,v\n1,1.234 \u20AC\n2,2.345 \u20AC\n"}) {
    EXPECT_THAT(notation_of(bytes).notes, ElementsAre(HasSubstr("--thousands changes that")));
  }
  EXPECT_THAT(notation_of("n,v\n1,$1.234\n2,$2.5\n").notes, IsEmpty());
}

TEST(NotationSurvey, ALeadingZeroIsNoGroup) {
  EXPECT_EQ(signs_of("p;q\n0.123;100\n1.234;200\n"), ".0");
  EXPECT_THAT(notation_of("p;q\n0.123;100\n1.234;200\n").notes, IsEmpty());
}

TEST(NotationSurvey, WordsAndDatesSayNothing) {
  EXPECT_EQ(signs_of("d;v\n31.12.2020;1.5\n01.01.2021;2.5\n"), ".0");
  EXPECT_EQ(signs_of("d;v\n\"Jan 5, 2021\";1.5\n\"Jan 6, 2021\";2\n\"Jan 7, 2021\";3\n"), ".0");
}

TEST(NotationSurvey, ADayAboveTwelveDecidesAboutTheOrderOfDates) {
  EXPECT_EQ(notation_of("d,v\n01/02/2020,1\n13/02/2020,2\n").dates, DateOrder::kDayFirst);
  EXPECT_EQ(notation_of("d,v\n01/02/2020,1\n02/13/2020,2\n").dates, DateOrder::kMonthFirst);
  const Notation sorted = notation_of("d,v\n01/02/2020,1\n01/03/2020,2\n02/01/2020,3\n");
  EXPECT_EQ(sorted.dates, DateOrder::kMonthFirst);
  EXPECT_THAT(sorted.notes, ElementsAre(AllOf(HasSubstr("in order"), HasSubstr("--dates"))));
}

TEST(NotationSurvey, AUnitWithASlashOrAnExponentHidesNoDecimalComma) {
  EXPECT_EQ(signs_of("t;v\n1;12,5 km/h\n2;13,5 km/h\n"), ",0");
  EXPECT_EQ(signs_of("t;v\n1;12,5 \u20AC/t\n2;13,5 \u20AC/t\n"), ",0");
  EXPECT_EQ(signs_of("t;v\n1;12,5 kg/m3\n2;13,5 m/s2\n"), ",0");
  EXPECT_EQ(signs_of("t;v\n1;12,5km/h\n2;13,5km/h\n"), ",0");
  // Dates are no numbers with units.
  EXPECT_EQ(signs_of("d;v\n1.Jan2012;2\n2.Jan2012;3\n3.Jan2012;1,5\n"), ",0");
}

TEST(NotationSurvey, WhatAnOptionDecidesIsNotTold) {
  const std::string dates = "d,v\n01/02/2020,1\n01/03/2020,2\n02/01/2020,3\n";
  for (const DateOrder order : {DateOrder::kDayFirst, DateOrder::kNone, DateOrder::kUnixSeconds}) {
    TableOptions options;
    options.dates = order;
    EXPECT_THAT(notation_of(dates, options).notes, IsEmpty());
  }
  for (const char* numbers :
       {"p;q\n1.234;1\n2.345;2\n", "p;t\n980;1,5\n1.001;2,5\n", "p;q\n980;1\n1.001;2\n"}) {
    for (const char sign : {'.', ',', '\0'}) {
      TableOptions options;
      options.thousands = sign;
      EXPECT_THAT(notation_of(numbers, options).notes, IsEmpty()) << numbers << sign;
    }
  }
  TableOptions options;
  options.decimal = ',';
  EXPECT_THAT(notation_of("p;t\n980;1\n1.001;2\n", options).notes, IsEmpty());
}

}  // namespace
}  // namespace kurv::app
