/// @file
/// The base class of every external service.
#pragma once

#include <KurvGraph/export.h>

namespace kurv {

/// The base of what a host may register in class_registry.h.
class KURV_EXPORT Service {
 public:
  virtual ~Service() = default;
};

}  // namespace kurv
