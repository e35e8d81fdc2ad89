#include "app/base/edit_distance.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace kurv::app {
namespace {

TEST(EditDistance, CountsChangesRemovalsAndAdditions) {
  EXPECT_EQ(levenshtein_distance("", ""), 0U);
  EXPECT_EQ(levenshtein_distance("abc", ""), 3U);
  EXPECT_EQ(levenshtein_distance("", "abc"), 3U);
  EXPECT_EQ(levenshtein_distance("title", "titel"), 2U);
  EXPECT_EQ(levenshtein_distance("picture", "pictur"), 1U);
  EXPECT_EQ(levenshtein_distance("kitten", "sitting"), 3U);
}

TEST(EditDistance, NearestNameIsOneThatWasProbablyMeant) {
  const std::array<std::string_view, 5> names = {"get", "set", "picture", "Title", "to"};
  EXPECT_EQ(nearest_name("pictur", names), "picture");
  EXPECT_EQ(nearest_name("TITEL", names), "Title");
  EXPECT_EQ(nearest_name("gett", names), "get");
  EXPECT_EQ(nearest_name("bet", names), "get") << "the first of two";
  EXPECT_EQ(nearest_name("colour", names), "");
  EXPECT_EQ(nearest_name("", names), "");
  EXPECT_EQ(nearest_name("t", names), "") << "one letter may mean anything";
  EXPECT_EQ(nearest_name(std::string(100000, 'a'), names), "");
  EXPECT_EQ(nearest_name("get", {}), "");
}

}  // namespace
}  // namespace kurv::app
