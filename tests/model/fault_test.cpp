#include <KurvGraph/fault.h>
#include <gtest/gtest.h>

#include <utility>

namespace kurv {
namespace {

TEST(Fault, CarriesItsNumberAndText) {
  const std::pair<int, const char*> kTable[] = {
      {5, "Invalid procedure call or argument"},
      {6, "Overflow"},
      {7, "Out of memory"},
      {9, "Subscript out of range"},
      {11, "Division by zero"},
      {13, "Type mismatch"},
      {438, "Object doesn't support this property or method"},
  };
  for (const auto& [number, text] : kTable) {
    SCOPED_TRACE(number);
    const auto kind = static_cast<FaultKind>(number);
    EXPECT_STREQ(fault_text(kind), text);
    EXPECT_STREQ(Fault(kind).what(), text);
    EXPECT_EQ(Fault(kind).kind(), kind);
    EXPECT_EQ(Fault(kind).number(), number);
  }
}

TEST(Fault, AForeignNumberHasATextToo) {
  EXPECT_STREQ(Fault(static_cast<FaultKind>(-7)).what(), "Unknown error");
  EXPECT_EQ(Fault(static_cast<FaultKind>(-7)).number(), -7);
}

TEST(Fault, IsCaughtAsAStandardRuntimeError) {
  EXPECT_THROW(throw Fault(FaultKind::kOverflow), std::runtime_error);
}

}  // namespace
}  // namespace kurv
