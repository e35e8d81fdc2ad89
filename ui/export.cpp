#include "ui/export.h"

#include "core/control_state.h"
#include "ui/graph_file_commands.h"

namespace kurv {

namespace {

constexpr const char* kFilter =
    "KURV graph (*.gdf)|*.gdf|Bitmap file (*.bmp)|*.bmp|All files (*.*)|*.*";
constexpr int kBitmapFilter = 2;
constexpr int kAskBeforeReplacing = 2;

}  // namespace

// The filter alone decides what is written: a graph named "picture.bmp" under "All files" is a
// graph file; deliberate.
void save_dialog(ControlState& state) {
  const FileChoice choice =
      state.shell.save_file({"", kFilter, "gdf", state.document.FileName, kAskBeforeReplacing});
  if (choice.path.empty() || choice.filter == kBitmapFilter) return;
  save_graph_file(state, choice.path);
}

}  // namespace kurv
