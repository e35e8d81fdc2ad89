#include <KurvGraph/services.h>

#include <cmath>
#include <utility>

#include <KurvGraph/fault.h>

namespace kurv {

namespace {

class BuiltInNumericService final : public NumericService {
 public:
  Double decimal_logarithm(Double value) const override {
    if (value <= 0) throw Fault(FaultKind::kInvalidProcedureCall);
    return std::log10(value);
  }
  Double round_down(Double value) const override { return std::floor(value); }
  Double round_up(Double value) const override { return std::ceil(value); }
  Double larger_of(Double value, Double other) const override {
    return value > other ? value : other;
  }
};

class BuiltInSwapService final : public SwapService {
 public:
  void exchange(Double& first, Double& second) const override { std::swap(first, second); }
};

}  // namespace

Services make_services() {
  return {std::make_unique<BuiltInNumericService>(), std::make_unique<BuiltInSwapService>()};
}

const Services& library_services() {
  static const Services services = make_services();
  return services;
}

}  // namespace kurv
