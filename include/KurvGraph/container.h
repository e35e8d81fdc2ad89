// What the control asks of the host that it stands in.
#pragma once

#include <KurvGraph/values.h>

namespace kurv {

inline constexpr Integer kDefaultPointer = 0;
inline constexpr Integer kHourglassPointer = 11;

class Container {
 public:
  virtual ~Container() = default;
  // False while a form designer shows the control.
  virtual bool run_mode() const = 0;
  virtual void set_MousePointer(Integer pointer) = 0;
};

}  // namespace kurv
