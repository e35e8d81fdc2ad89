// The implementations of the services that are used where the host registers none of its own.
#pragma once

#include <memory>

#include <KurvGraph/service.h>

namespace kurv {

std::unique_ptr<Service> make_numeric_service();
std::unique_ptr<Service> make_swap_service();
std::unique_ptr<Service> make_text_field_tool();

}  // namespace kurv
