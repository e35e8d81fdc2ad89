// The library as an in-process automation server: the class of the control in the class registry of
// the process.
#include <KurvGraph/class_registry.h>
#include <KurvGraph/kurvgraph_c.h>
#include <KurvGraph/text.h>

#include <atomic>
#include <memory>

#include "bindings/c/bound_graph.h"
#include "bindings/c/call_error.h"
#include "bindings/c/graph_class.h"

namespace kurv::c {

namespace {

constexpr kurv_class_object kClass = {sizeof(kurv_class_object), KURV_CLASS_ID, "KurvGraph",
                                      kurv_create_pixels};

std::atomic<bool> g_is_registered = false;

}  // namespace

const kurv_class_object& GraphClass::object() const {
  return kClass;
}

}  // namespace kurv::c

std::int32_t kurv_DllRegisterServer() {
  return kurv::c::guarded([] {
    kurv::register_class(KURV_CLASS_ID, [] { return std::make_unique<kurv::c::GraphClass>(); });
    kurv::c::g_is_registered = true;
  });
}

std::int32_t kurv_DllUnregisterServer() {
  return kurv::c::guarded([] {
    kurv::register_class(KURV_CLASS_ID, {});
    kurv::c::g_is_registered = false;
  });
}

std::int32_t kurv_create_object(const char* class_id, std::int32_t width, std::int32_t height,
                                double ratio, kurv_graph* graph) {
  return kurv::c::guarded([&] {
    const auto graph_class = kurv::create<kurv::c::GraphClass>(&kurv::c::required(class_id));
    const std::int32_t result = graph_class->object().create_instance(width, height, ratio, graph);
    if (result != KURV_OK) kurv::c::throw_last_error();
  });
}

std::int32_t kurv_DllGetClassObject(const char* class_id, const kurv_class_object** object) {
  return kurv::c::guarded([&] {
    kurv::c::required(object) = nullptr;
    kurv::c::required(class_id);
    if (!kurv::equals_ignoring_case(class_id, KURV_CLASS_ID)) {
      throw kurv::c::CallError(KURV_CANNOT_CREATE, class_id);
    }
    *object = &kurv::c::kClass;
  });
}

std::int32_t kurv_DllCanUnloadNow() {
  return kurv::c::living_graphs() == 0 && !kurv::c::g_is_registered ? KURV_OK : KURV_IN_USE;
}
