#include "control/picture_export.h"

#include "control/control_state.h"
#include "control/graph_file_commands.h"
#include "io/text_file.h"
#include "render/curves.h"

namespace kurv {

namespace {

constexpr const char* kFilter =
    "KURV graph (*.gdf)|*.gdf|Bitmap file (*.bmp)|*.bmp|All files (*.*)|*.*";
constexpr int kBitmapFilter = 2;
constexpr int kAskBeforeReplacing = 2;

// The curves are drawn once more, over legend and titles, before the picture is written. A graph
// that is not valid has none to draw; its picture is the surface as it is.
void write_bitmap(ControlState& state, const String& path) {
  if (state.document.GraphValid) DrawScatterCurves(state.document, state.layout, state.surface);
  const String bytes = state.surface.bitmap();
  OutputFile file(path, [](const String&) { return false; });
  file.write(bytes);
  file.close();
}

}  // namespace

// The filter alone decides what is written, not the extension: a graph that was saved as
// "picture.bmp" under "All files" is a graph file, so that nobody loses data by the choice of a
// name.
void save_dialog(ControlState& state) {
  const FileChoice choice =
      state.shell.save_file({"", kFilter, "gdf", state.document.FileName, kAskBeforeReplacing});
  if (choice.path.empty()) return;
  if (choice.filter == kBitmapFilter) {
    write_bitmap(state, choice.path);
  } else {
    save_graph_file(state, choice.path);
  }
}

void print_graph(ControlState& state) {
  if (!state.printer) state.printer = create<PicturePrinter>(kPicturePrinterClass);
  // A copy: a redraw while the print dialog is open may change the surface's font.
  const Font font = state.surface.font();
  state.printer->PrintPicture(state.surface.bitmap(), font.FontName, "", font.FontSize);
}

void copy_graph(ControlState& state) {
  state.shell.copy_picture(state.surface.bitmap());
}

}  // namespace kurv
