#include "bindings/c/graph_table.h"

#include <cstdint>
#include <map>
#include <mutex>
#include <thread>
#include <utility>

#include "bindings/c/call_error.h"

namespace kurv::c {

namespace {

struct Entry {
  std::shared_ptr<BoundGraph> graph;
  std::thread::id thread;
};

struct Table {
  std::mutex mutex;
  std::map<kurv_graph, Entry> entries;
  std::uintptr_t last = 0;
};

// Never destroyed: a host may have graphs until the process ends.
Table& table() {
  static auto* const only = new Table;
  return *only;
}

}  // namespace

kurv_graph enter_graph(std::shared_ptr<BoundGraph> graph) {
  Table& all = table();
  const std::lock_guard lock(all.mutex);
  const auto handle = reinterpret_cast<kurv_graph>(all.last + 1);
  graph->set_handle(handle);
  all.entries.emplace(handle, Entry{std::move(graph), std::this_thread::get_id()});
  ++all.last;
  return handle;
}

std::shared_ptr<BoundGraph> find_graph(kurv_graph handle) {
  std::shared_ptr<BoundGraph> graph = graph_or_null(handle);
  if (!graph) throw CallError(KURV_INVALID_HANDLE);
  return graph;
}

std::shared_ptr<BoundGraph> graph_or_null(kurv_graph handle) {
  Table& all = table();
  const std::lock_guard lock(all.mutex);
  const auto found = all.entries.find(handle);
  if (found == all.entries.end()) return nullptr;
  if (found->second.thread != std::this_thread::get_id()) throw CallError(KURV_WRONG_THREAD);
  return found->second.graph;
}

std::shared_ptr<BoundGraph> take_graph(kurv_graph handle) {
  Table& all = table();
  const std::lock_guard lock(all.mutex);
  const auto found = all.entries.find(handle);
  if (found == all.entries.end()) return nullptr;
  std::shared_ptr<BoundGraph> graph = std::move(found->second.graph);
  all.entries.erase(found);
  return graph;
}

}  // namespace kurv::c
