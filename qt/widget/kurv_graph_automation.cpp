// Late-bound properties and events of the widget; its methods are called in kurv_graph.cpp, like
// all that may fail.
#include <KurvGraph/KurvGraph.h>

#include <utility>

#include "qt/widget/kurv_graph_state.h"

namespace kurv {

Variant get_property(const KurvGraph& graph, const MemberKey& key) {
  return get_property(graph.m_state->graph, key);
}

void set_property(KurvGraph& graph, const MemberKey& key, const Variant& value) {
  set_property(graph.m_state->graph, key, value);
  graph.m_state->changed_from_outside();
}

// The state, which owns the listener, may outlive the widget until the event is over.
void KurvGraph::add_listener(EventListener listener) {
  m_state->graph.add_listener([&state = *m_state, listener = std::move(listener)](
                                  const Event& event, std::span<const Variant> arguments) {
    if (state.widget) listener(event, arguments);
  });
}

}  // namespace kurv
