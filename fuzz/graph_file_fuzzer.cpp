// Gives any bytes to the reader of graph files, which must return a graph whose parts fit together
// or throw one of the faults that it promises. tools/fuzz builds and runs it.
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include <KurvGraph/fault.h>
#include <KurvGraph/services.h>

#include "io/graph_file_reader.h"
#include "io/text_file.h"
#include "model/built_in_services.h"
#include "model/graph_document.h"

namespace kurv {
namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

// A file in memory, because a fuzzer makes thousands in a second.
class MemoryFile {
 public:
  MemoryFile(const std::uint8_t* data, std::size_t size) : m_descriptor(memfd_create("graph", 0)) {
    require(m_descriptor >= 0);
    while (size > 0) {
      const ssize_t written = write(m_descriptor, data, size);
      require(written > 0);
      data += written;
      size -= static_cast<std::size_t>(written);
    }
  }
  ~MemoryFile() { close(m_descriptor); }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  String path() const { return "/proc/self/fd/" + std::to_string(m_descriptor); }

 private:
  int m_descriptor;
};

void check_graph(const GraphFile& graph) {
  require(graph.num_data >= -1 && graph.num_y >= 0);
  require(graph.xyarr.upper_column() == graph.num_y + 1);
  require(graph.xyarr.upper_point() == graph.num_data);
  require(graph.names.upper() == graph.num_y + 1);
  require(graph.visible.lower() == 1 && graph.visible.upper() == graph.num_y);
  require(graph.functions.upper() == std::clamp<int>(graph.num_functions, 0, kMaxFunctions));
}

void check_fault(FaultKind kind) {
  require(kind == FaultKind::kInputPastEnd || kind == FaultKind::kTypeMismatch ||
          kind == FaultKind::kOverflow || kind == FaultKind::kSubscriptOutOfRange);
}

void check(const String& path, char decimal_separator) {
  static const auto service = make_text_field_tool();
  const auto& tool = dynamic_cast<const TextFieldTool&>(*service);
  GraphDocument document;
  InputFile file(path);
  try {
    check_graph(read_graph_file(file, document, tool, decimal_separator));
  } catch (const Fault& fault) {
    check_fault(fault.kind());
  }
}

}  // namespace
}  // namespace kurv

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const kurv::MemoryFile file(data, size);
  kurv::check(file.path(), '.');
  kurv::check(file.path(), ',');
  return 0;
}
