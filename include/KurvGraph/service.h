// What every external component is.
#pragma once

namespace kurv {

class Service {
 public:
  virtual ~Service() = default;
};

}  // namespace kurv
