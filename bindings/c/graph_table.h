// The handles of the process and their graphs. A handle is a serial number that is never given
// twice, so that one of a graph that is gone never means another.
#pragma once

#include <memory>

#include "bindings/c/bound_graph.h"

namespace kurv::c {

// The graph belongs to the calling thread.
kurv_graph enter_graph(std::shared_ptr<BoundGraph> graph);

// The graph is kept as long as the result, also when its handle becomes invalid meanwhile. Throws
// CallError for an invalid handle and on a thread that the graph does not belong to.
std::shared_ptr<BoundGraph> find_graph(kurv_graph handle);

// The same, null for an invalid handle.
std::shared_ptr<BoundGraph> graph_or_null(kurv_graph handle);

// Makes the handle invalid, on any thread. Null where it is so already.
std::shared_ptr<BoundGraph> take_graph(kurv_graph handle);

}  // namespace kurv::c
