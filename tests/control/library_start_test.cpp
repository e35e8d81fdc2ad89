// What happens once per process, in a program of its own.
#include <KurvGraph/class_registry.h>
#include <KurvGraph/fault.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/support/test_host.h"

namespace kurv {
namespace {

std::vector<std::string> g_created;
int g_exchanges = 0;

class CountingSwap final : public SwapService {
 public:
  void exchange(Double& first, Double& second) const override {
    ++g_exchanges;
    std::swap(first, second);
  }
};

// The built-in class of an identifier, recorded each time it is created.
void note(std::string_view id) {
  register_class(id, nullptr);
  register_class(id, [id]() -> std::unique_ptr<Service> {
    g_created.emplace_back(id);
    register_class(id, nullptr);
    return create_service(id);
  });
}

struct SharedHost {
  test::PlainContainer container;
  test::ScriptedShell shell;
  RecordingSurface surface{12000, 9000};
  Control control{container, shell, surface};  // with the library's services

  void load() {
    control.scatter_graph(test::columns({{1, 2, 3}}), test::points({3, 1, 2}), 3, 1, String("T"),
                          "x", test::names({"y"}), 0, {});
  }
};

TEST(LibraryStart, HostsClassesRegisteredBeforeItServeEveryControl) {
  // One that cannot be created fails the first control, and the next one tries again.
  register_class(kSwapServiceClass,
                 []() -> std::unique_ptr<Service> { throw Fault(FaultKind::kPermissionDenied); });
  try {
    SharedHost host;
    FAIL();
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.kind(), FaultKind::kPermissionDenied);
  }

  for (const auto id : {kTextFieldToolClass, kNumericServiceClass, kExprEvaluatorClass}) note(id);
  register_class(kSwapServiceClass, []() -> std::unique_ptr<Service> {
    g_created.emplace_back(kSwapServiceClass);
    return std::make_unique<CountingSwap>();
  });
  SharedHost first;
  SharedHost second;
  EXPECT_EQ(g_created, (std::vector<std::string>{
                           std::string(kExprEvaluatorClass), std::string(kNumericServiceClass),
                           std::string(kSwapServiceClass), std::string(kTextFieldToolClass)}))
      << "in their order, once for both controls";

  register_class(kSwapServiceClass, nullptr);
  first.load();
  second.load();
  EXPECT_EQ(g_exchanges, 2 * 2 * 2) << "two exchanges of two columns each: the host's class stays";
}

}  // namespace
}  // namespace kurv
