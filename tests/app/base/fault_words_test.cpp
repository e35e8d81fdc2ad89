// No user sees the text of a fault, which is for hosts.
#include "app/base/fault_words.h"

#include <gmock/gmock.h>

#include <array>

namespace kurv::app {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr std::array kKinds = {
    FaultKind::kInvalidProcedureCall,
    FaultKind::kOverflow,
    FaultKind::kOutOfMemory,
    FaultKind::kSubscriptOutOfRange,
    FaultKind::kDivisionByZero,
    FaultKind::kTypeMismatch,
    FaultKind::kFileNotFound,
    FaultKind::kDeviceIoError,
    FaultKind::kDiskFull,
    FaultKind::kInputPastEnd,
    FaultKind::kPermissionDenied,
    FaultKind::kPathFileAccessError,
    FaultKind::kPathNotFound,
    FaultKind::kCannotCreateObject,
    FaultKind::kNoSuchMember,
    FaultKind::kArgumentMissing,
    FaultKind::kTooManyArguments,
};
constexpr std::array kAttempts = {Attempt::kLoad, Attempt::kWrite, Attempt::kPrint, Attempt::kDraw};

TEST(FaultWords, SayWhatIsWrongAndWhatToDoWithoutAnInternalWord) {
  for (const FaultKind kind : kKinds) {
    for (const Attempt attempt : kAttempts) {
      const std::string clause = fault_clause(attempt, kind);
      EXPECT_THAT(clause, StartsWith(" cannot be "));
      EXPECT_THAT(clause, HasSubstr("; "));
      EXPECT_THAT(clause, EndsWith("."));
      for (const char* word : {fault_text(kind), "ubscript", "rocedure", "rgument", "bject", "I/O",
                               "verflow", "ivision", "mismatch", "Path", "past end"}) {
        EXPECT_THAT(clause, Not(HasSubstr(word)));
      }
    }
  }
}

TEST(FaultWords, NameNoMistakeOfTheProgramForWhatComesFromFilesAndDisks) {
  for (const int number : {438, 449, 450}) {
    EXPECT_THAT(fault_reason(Attempt::kDraw, static_cast<FaultKind>(number)), HasSubstr("mistake"));
  }
  for (const int number : {7, 53, 57, 61, 62, 70, 75, 76, 13, 6, 9, 11, 5}) {
    EXPECT_THAT(fault_reason(Attempt::kLoad, static_cast<FaultKind>(number)),
                Not(HasSubstr("mistake")))
        << number;
  }
}

TEST(FaultWords, AreWholeSentencesAfterAName) {
  EXPECT_EQ("a.gdf" + fault_clause(Attempt::kLoad, FaultKind::kInputPastEnd),
            "a.gdf cannot be loaded: the file ends too early; \"kurv info --check\" lists what is "
            "wrong with it.");
  EXPECT_EQ("a.gdf" + fault_clause(Attempt::kWrite, FaultKind::kDiskFull),
            "a.gdf cannot be written: the disk is full; make room on the disk or choose another "
            "one.");
  EXPECT_EQ("The graph" + fault_clause(Attempt::kPrint, FaultKind::kDeviceIoError),
            "The graph cannot be printed: the printer has not taken it; check the printer, or "
            "print to a file.");
}

}  // namespace
}  // namespace kurv::app
