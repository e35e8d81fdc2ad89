/// @file
/// Which class implements each of the external services.
///
/// A service is created by its class identifier, under which a host may register a class of its
/// own, which the control then uses. Four of the five are created once per process, when the
/// library's first control is made, so a host registers before that. Each control makes its printer
/// at its first print; a built-in one comes with the first widget.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include <KurvGraph/fault.h>
#include <KurvGraph/service.h>
#include <KurvGraph/services.h>

namespace kurv {

/// The class identifier of the ExprEvaluator.
inline constexpr std::string_view kExprEvaluatorClass = "{D10A8894-FCD7-441D-BE94-39703B7B85E3}";
/// The class identifier of the NumericService.
inline constexpr std::string_view kNumericServiceClass = "{DC310E99-5AAF-4F6D-AAA2-FBB6B4AF54AF}";
/// The class identifier of the SwapService.
inline constexpr std::string_view kSwapServiceClass = "{777D194A-1CDA-447F-B3FB-32E768482A56}";
/// The class identifier of the TextFieldTool.
inline constexpr std::string_view kTextFieldToolClass = "{0D3FA4E7-4074-41CE-9530-6CEC2D7D987F}";
/// The class identifier of the PicturePrinter.
inline constexpr std::string_view kPicturePrinterClass = "{5E0B6C1D-93A7-4F52-8C0E-2B7D41F6A398}";

/// Makes a new service. A factory that makes nothing, or throws, has failed.
using ServiceFactory = std::function<std::unique_ptr<Service>()>;

/// Registers the class that is created for the identifier from now on; an empty factory restores
/// the built-in one. Not thread-safe.
KURV_EXPORT void register_class(std::string_view class_id, ServiceFactory factory);

/// Makes a service of the class that is registered. Identifiers are compared case-insensitively.
/// Throws kCannotCreateObject for one without a class or whose factory makes nothing, and what the
/// factory throws.
KURV_EXPORT std::unique_ptr<Service> create_service(std::string_view class_id);

/// The same, cast to the interface. Throws kTypeMismatch when the class does not implement it.
template <class Interface>
std::unique_ptr<Interface> create(std::string_view class_id) {
  std::unique_ptr<Service> service = create_service(class_id);
  auto* const wanted = dynamic_cast<Interface*>(service.get());
  if (wanted == nullptr) throw Fault(FaultKind::kTypeMismatch);
  static_cast<void>(service.release());
  // The service was released above, so it is not deleted here.
  // cppcheck-suppress returnDanglingLifetime
  return std::unique_ptr<Interface>(wanted);
}

/// The library's set, shared by all controls of a process: created at its first use, from the
/// classes that are registered then. Where one cannot be created, its fault reaches the caller, and
/// the next use tries again.
KURV_EXPORT const Services& library_services();
/// A fresh set of the classes that are registered now.
KURV_EXPORT Services make_services();

}  // namespace kurv
