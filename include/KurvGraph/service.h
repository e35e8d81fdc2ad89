// The base class of every external service.
#pragma once

#include <KurvGraph/export.h>

namespace kurv {

class KURV_EXPORT Service {
 public:
  virtual ~Service() = default;
};

}  // namespace kurv
