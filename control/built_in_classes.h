// Built-in services that are implemented in a module above the control.
#pragma once

#include <KurvGraph/class_registry.h>

namespace kurv {

// Registers the built-in implementation of a class that this module has none for. A class that a
// host registers, before or after, takes precedence.
void register_built_in_class(std::string_view class_id, ServiceFactory factory);

}  // namespace kurv
