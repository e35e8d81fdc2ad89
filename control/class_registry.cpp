#include <KurvGraph/class_registry.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include <KurvGraph/services.h>
#include <KurvGraph/text.h>

#include "control/built_in_classes.h"
#include "expr/evaluator.h"
#include "model/built_in_services.h"

namespace kurv {

namespace {

struct BuiltIn {
  std::string_view class_id;
  std::unique_ptr<Service> (*make)();
};

constexpr std::array kBuiltIn = {
    BuiltIn{kExprEvaluatorClass, []() -> std::unique_ptr<Service> { return make_evaluator(); }},
    BuiltIn{kNumericServiceClass, make_numeric_service},
    BuiltIn{kSwapServiceClass, make_swap_service},
    BuiltIn{kTextFieldToolClass, make_text_field_tool},
};

struct Registered {
  std::string class_id;
  ServiceFactory factory;
};

// Registered by hosts.
std::vector<Registered>& registered() {
  static std::vector<Registered> classes;
  return classes;
}

// Registered by modules above this one.
std::vector<Registered>& built_in_above() {
  static std::vector<Registered> classes;
  return classes;
}

template <class Classes>
auto find_class(Classes& classes, std::string_view class_id) {
  return std::find_if(classes.begin(), classes.end(), [&](const auto& entry) {
    return equals_ignoring_case(entry.class_id, class_id);
  });
}

// The host's factory takes precedence. Returns a copy, because a factory may register another class
// while it runs.
ServiceFactory find_factory(std::string_view class_id) {
  for (const auto* classes : {&registered(), &built_in_above()}) {
    if (const auto found = find_class(*classes, class_id); found != classes->end()) {
      return found->factory;
    }
  }
  return {};
}

void replace_class(std::vector<Registered>& classes, std::string_view class_id,
                   ServiceFactory factory) {
  if (const auto found = find_class(classes, class_id); found != classes.end()) {
    classes.erase(found);
  }
  if (factory) classes.push_back({std::string(class_id), std::move(factory)});
}

}  // namespace

void register_class(std::string_view class_id, ServiceFactory factory) {
  replace_class(registered(), class_id, std::move(factory));
}

void register_built_in_class(std::string_view class_id, ServiceFactory factory) {
  replace_class(built_in_above(), class_id, std::move(factory));
}

std::unique_ptr<Service> create_service(std::string_view class_id) {
  std::unique_ptr<Service> service;
  if (const ServiceFactory factory = find_factory(class_id)) {
    service = factory();
  } else if (const auto built_in = find_class(kBuiltIn, class_id); built_in != kBuiltIn.end()) {
    service = built_in->make();
  }
  if (!service) throw Fault(FaultKind::kCannotCreateObject);
  return service;
}

// Braces evaluate from left to right, so this is also the order of creation.
Services make_services() {
  return {create<ExprEvaluator>(kExprEvaluatorClass), create<NumericService>(kNumericServiceClass),
          create<SwapService>(kSwapServiceClass), create<TextFieldTool>(kTextFieldToolClass)};
}

const Services& library_services() {
  static const Services services = make_services();
  return services;
}

}  // namespace kurv
