// The class of the control, as the class registry creates it.
#pragma once

#include <KurvGraph/kurvgraph_c.h>
#include <KurvGraph/service.h>

namespace kurv::c {

class GraphClass final : public Service {
 public:
  const kurv_class_object& object() const;
};

}  // namespace kurv::c
