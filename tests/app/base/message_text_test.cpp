#include "app/base/message_text.h"

#include <gmock/gmock.h>

#include <string>

namespace kurv::app {
namespace {

TEST(Text, EnumeratesNamesAndCountsTheRest) {
  EXPECT_EQ(enumeration({"a"}, 2), "\"a\"");
  EXPECT_EQ(enumeration({"a", "b"}, 2), "\"a\" and \"b\"");
  EXPECT_EQ(enumeration({"a", "b", "c"}, 2), "\"a\", \"b\" and \"c\"");
  EXPECT_EQ(enumeration({"a", "b", "c", "d"}, 2), "\"a\", \"b\" and 2 more");
}

TEST(Text, AQuotationStaysOnItsLineAndCutsNoCharacterInTwo) {
  EXPECT_EQ(in_quotes("a\r\nb"), "\"a  b\"");
  EXPECT_EQ(in_quotes(std::string(59, 'a') + "\u00E4\u00E4"), '"' + std::string(59, 'a') + "...\"");
  EXPECT_EQ(in_quotes(std::string(100, '\x80')), "\"...\"");
}

}  // namespace
}  // namespace kurv::app
