#include "app/graph/graph_file.h"

#include <KurvGraph/file_fault.h>
#include <KurvGraph/graph_file_fields.h>
#include <KurvGraph/text.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>

#include "app/base/fault_words.h"

namespace kurv::app {

namespace {

namespace fs = std::filesystem;

bool begins_as_graph_file(const std::string& path) {
  std::error_code ignored;
  if (!fs::is_regular_file(path, ignored)) return false;
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"),
                                                             &std::fclose);
  if (!file) return false;
  std::array<char, kGraphFileTag.size()> bytes{};
  const std::size_t length = std::fread(bytes.data(), 1, bytes.size(), file.get());
  return std::string_view(bytes.data(), length) == kGraphFileTag;
}

UserError unloadable(const std::string& path, const Fault& fault) {
  std::error_code ignored;
  if (fs::is_directory(path, ignored)) {
    return UserError(path + " cannot be loaded: it is a directory; name a graph file instead.");
  }
  return UserError(path + fault_clause(Attempt::kLoad, fault.kind()));
}

template <class Work>
void loading(const std::string& path, const Work& work) {
  try {
    work();
  } catch (const Fault& fault) {
    throw unloadable(path, fault);
  }
}

}  // namespace

bool is_named_as_graph_file(const std::string& path) {
  return equals_ignoring_case(fs::path(path).extension().string(), ".gdf");
}

bool is_graph_file(const std::string& path) {
  return is_named_as_graph_file(path) || begins_as_graph_file(path);
}

void load_graph_file(Control& graph, const std::string& path) {
  loading(path, [&] { graph.file_load(path); });
}

void load_graph_file(KurvGraph& graph, const std::string& path) {
  loading(path, [&] { graph.load_path(path); });
}

UserError unwritable_graph_file(const std::string& path, const Fault& fault) {
  if (const auto* of = dynamic_cast<const FileFault*>(&fault); of && of->path() != path) {
    return UserError(path + " cannot be written, because of " + of->path() + ": " +
                     fault_reason(Attempt::kWrite, fault.kind()) +
                     "; set TMPDIR to another folder for temporary files.");
  }
  return UserError(path + fault_clause(Attempt::kWrite, fault.kind()));
}

}  // namespace kurv::app
