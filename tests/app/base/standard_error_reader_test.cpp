// When the errors of the program belong into a window.
#include "app/base/standard_error_reader.h"

#include <gtest/gtest.h>

namespace kurv::app {
namespace {

constexpr ErrorTarget kAll[] = {ErrorTarget::kNull, ErrorTarget::kSocket, ErrorTarget::kPipe,
                                ErrorTarget::kOther};

TEST(StandardErrorReader, IsAUserAtATerminal) {
  for (const ErrorTarget target : kAll) {
    for (const bool by_desktop : {false, true}) {
      EXPECT_TRUE(has_error_reader({true, target, by_desktop}));
    }
  }
}

TEST(StandardErrorReader, IsAScriptThatHasAPipe) {
  for (const bool by_desktop : {false, true}) {
    EXPECT_TRUE(has_error_reader({false, ErrorTarget::kPipe, by_desktop}));
  }
}

TEST(StandardErrorReader, IsNobodyBehindTheNullDeviceOrASocket) {
  for (const bool by_desktop : {false, true}) {
    EXPECT_FALSE(has_error_reader({false, ErrorTarget::kNull, by_desktop}));
    EXPECT_FALSE(has_error_reader({false, ErrorTarget::kSocket, by_desktop}));
  }
}

TEST(StandardErrorReader, OfAFileIsNobodyWhereADesktopHasStartedTheProgram) {
  EXPECT_FALSE(has_error_reader({false, ErrorTarget::kOther, true}));
  EXPECT_TRUE(has_error_reader({false, ErrorTarget::kOther, false}));
}

TEST(StartedByDesktop, IsSaidByTheEnvironment) {
  EXPECT_TRUE(is_started_by_desktop("42", nullptr, nullptr, 42));
  EXPECT_TRUE(is_started_by_desktop(nullptr, "x-1_TIME2", nullptr, 42));
  EXPECT_TRUE(is_started_by_desktop(nullptr, nullptr, "token", 42));
}

TEST(StartedByDesktop, IsNotInheritedFromAProcessThatWas) {
  EXPECT_FALSE(is_started_by_desktop("41", nullptr, nullptr, 42));
  EXPECT_FALSE(is_started_by_desktop("", "", "", 42));
  EXPECT_FALSE(is_started_by_desktop("42x", nullptr, nullptr, 42));
  EXPECT_FALSE(is_started_by_desktop(nullptr, nullptr, nullptr, 42));
}

}  // namespace
}  // namespace kurv::app
