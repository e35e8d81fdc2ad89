#include <KurvGraph/fault.h>
#include <KurvGraph/services.h>
#include <gtest/gtest.h>

namespace kurv {
namespace {

TEST(Services, NumericHelperHasItsOrdinaryMeanings) {
  const NumericService& numeric = *library_services().numeric;
  EXPECT_EQ(numeric.decimal_logarithm(1000), 3);
  EXPECT_EQ(numeric.round_down(-1.5), -2);
  EXPECT_EQ(numeric.round_up(-1.5), -1);
  EXPECT_EQ(numeric.larger_of(3, 4), 4);
  EXPECT_EQ(numeric.larger_of(4, 3), 4);
}

TEST(Services, LogarithmOfNothingIsAnInvalidCall) {
  const NumericService& numeric = *library_services().numeric;
  for (const Double value : {0.0, -0.0, -1.0}) {
    try {
      numeric.decimal_logarithm(value);
      ADD_FAILURE() << value;
    } catch (const Fault& fault) {
      EXPECT_EQ(fault.kind(), FaultKind::kInvalidProcedureCall);
    }
  }
}

TEST(Services, ExchangeMovesBothValues) {
  Double first = 1;
  Double second = 2;
  library_services().swap->exchange(first, second);
  EXPECT_EQ(first, 2);
  EXPECT_EQ(second, 1);
}

TEST(Services, LibrarySetIsMadeOnce) {
  EXPECT_EQ(&library_services(), &library_services());
}

}  // namespace
}  // namespace kurv
