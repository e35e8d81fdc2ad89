#include "bindings/c/bound_graph.h"

#include <atomic>
#include <vector>

#include "bindings/c/call_error.h"
#include "bindings/c/value_conversion.h"

namespace kurv::c {

namespace {

std::atomic<std::size_t> g_living = 0;

// Values that are released at the end of the call that they are passed to.
class Arguments {
 public:
  explicit Arguments(std::span<const Variant> values) {
    m_values.reserve(values.size());
    for (const Variant& value : values) m_values.push_back(owned_value(value));
  }
  ~Arguments() {
    for (kurv_value& value : m_values) kurv_value_clear(&value);
  }
  Arguments(const Arguments&) = delete;
  Arguments& operator=(const Arguments&) = delete;

  const std::vector<kurv_value>& values() const { return m_values; }

 private:
  std::vector<kurv_value> m_values;
};

}  // namespace

BoundGraph::BoundGraph() {
  ++g_living;
}

BoundGraph::~BoundGraph() {
  --g_living;
}

void BoundGraph::notify(const char* name, std::uint32_t id,
                        std::span<const Variant> arguments) const {
  if (m_listener == nullptr) return;
  // Called by the toolkit too, through which no exception may pass.
  guarded([&] {
    const Arguments passed(arguments);
    const kurv_event event{sizeof(kurv_event), name, id, passed.values().data(),
                           passed.values().size()};
    m_listener(m_handle, &event, m_user);
  });
}

std::size_t living_graphs() {
  return g_living;
}

}  // namespace kurv::c
