// External components that another part of the library brings along.
#pragma once

#include <KurvGraph/class_registry.h>

namespace kurv {

// Makes the factory the built-in one of a class that the core alone has none for. A class that a
// host registers, before or after, goes before it.
void provide_class(std::string_view class_id, ServiceFactory factory);

}  // namespace kurv
