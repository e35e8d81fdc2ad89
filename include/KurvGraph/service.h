// The base class of every external service.
#pragma once

namespace kurv {

class Service {
 public:
  virtual ~Service() = default;
};

}  // namespace kurv
