#include <KurvGraph/class_registry.h>
#include <KurvGraph/fault.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/test_host.h"

namespace kurv {
namespace {

// Restores the built-in class when a test ends.
struct Registration {
  Registration(std::string_view id, ServiceFactory factory) : class_id(id) {
    register_class(class_id, std::move(factory));
  }
  ~Registration() { register_class(class_id, nullptr); }
  std::string class_id;
};

class NoLogarithm final : public NumericService {
  Double decimal_logarithm(Double) const override { throw Fault(FaultKind::kDeviceIoError); }
  Double round_down(Double value) const override { return value; }
  Double round_up(Double value) const override { return value; }
  Double larger_of(Double value, Double) const override { return value; }
};

FaultKind fault_of(const std::function<void()>& call) {
  try {
    call();
  } catch (const Fault& fault) {
    return fault.kind();
  }
  return FaultKind{};
}

TEST(Services, NumericHelperHasItsOrdinaryMeanings) {
  const NumericService& numeric = *library_services().numeric;
  EXPECT_EQ(numeric.decimal_logarithm(1000), 3);
  EXPECT_EQ(numeric.round_down(-1.5), -2);
  EXPECT_EQ(numeric.round_up(-1.5), -1);
  EXPECT_EQ(numeric.larger_of(3, 4), 4);
  EXPECT_EQ(numeric.larger_of(4, 3), 4);
}

TEST(Services, LogarithmOfNothingIsAnInvalidCall) {
  for (const Double value : {0.0, -0.0, -1.0}) {
    EXPECT_EQ(fault_of([&] { library_services().numeric->decimal_logarithm(value); }),
              FaultKind::kInvalidProcedureCall);
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

TEST(Services, FourAreCreatedInTheirOrder) {
  std::vector<std::string> created;
  std::vector<std::unique_ptr<Registration>> registrations;
  for (const std::string_view id :
       {kTextFieldToolClass, kSwapServiceClass, kNumericServiceClass, kExprEvaluatorClass}) {
    registrations.push_back(std::make_unique<Registration>(id, [&created, id] {
      created.emplace_back(id);
      register_class(id, nullptr);
      return create_service(id);
    }));
  }
  const Services services = make_services();
  EXPECT_EQ(created, (std::vector<std::string>{
                         std::string(kExprEvaluatorClass), std::string(kNumericServiceClass),
                         std::string(kSwapServiceClass), std::string(kTextFieldToolClass)}));
}

TEST(Services, HostsOwnClassTakesTheBuiltInOnesPlace) {
  const Registration failing(kNumericServiceClass, [] { return std::make_unique<NoLogarithm>(); });
  EXPECT_EQ(fault_of([] { test::TestHost host; }), FaultKind::kDeviceIoError)
      << "its failure reaches the host that creates a control, which loads its demonstration graph";
}

TEST(Services, WhatCannotBeCreatedIsATypedError) {
  EXPECT_EQ(fault_of([] { create_service("{00000000-0000-0000-0000-000000000000}"); }),
            FaultKind::kCannotCreateObject);
  EXPECT_EQ(fault_of([] { create<SwapService>(kNumericServiceClass); }), FaultKind::kTypeMismatch);
  const Registration refusing(kSwapServiceClass, []() -> std::unique_ptr<Service> {
    throw Fault(FaultKind::kPermissionDenied);
  });
  EXPECT_EQ(fault_of([] { make_services(); }), FaultKind::kPermissionDenied);
}

}  // namespace
}  // namespace kurv
